// Errors: one exception type, one table of numbers and messages.
#pragma once

#include <cstdint>
#include <exception>
#include <string>
#include <string_view>

namespace wendrill {

// The source of every error that the library itself raises.
inline constexpr std::u16string_view kLibraryTitle = u"Wendrill23";

// What a member reports to its caller: either one of the library's own numbers, a run-time error with its standard
// number, or an error of a toolkit call, which propagates unchanged.
class Error final : public std::exception {
 public:
  Error(std::int32_t number, std::u16string source, std::u16string description)
      : number_(number), source_(std::move(source)), description_(std::move(description)) {}

  std::int32_t Number() const { return number_; }
  const std::u16string& Source() const { return source_; }
  const std::u16string& Description() const { return description_; }
  const char* what() const noexcept override { return "wendrill::Error"; }

 private:
  std::int32_t number_;
  std::u16string source_;
  std::u16string description_;
};

// Errors of the automation run time, under their standard numbers.
enum class RunTimeError : std::int32_t {
  InvalidCall = 5,           // an invalid argument, such as a negative length
  Overflow = 6,              // a number that its type cannot hold
  OutOfMemory = 7,           //
  SubscriptOutOfRange = 9,   // an array index outside the bounds
  TypeMismatch = 13,         // a value that does not convert
  PermissionDenied = 70,     //
  ObjectNotSet = 91,         // a call on Nothing
  InvalidUseOfNull = 94,     //
  ObjectRequired = 424,      //
  CannotCreateObject = 429,  //
  NoAutomation = 430,        // the object lacks an interface
  MemberNotSupported = 438,  // the object has no such member
  ActionNotSupported = 445,  // the member exists, but does nothing
  ArgumentMissing = 449,     //
  WrongArgumentCount = 450,  //
  KeyAlreadyPresent = 457,   // a collection rejects a duplicate key
  ServerUnavailable = 462,   // the object's process has ended
};

// Raises a run-time error with its standard description; the source is the library's title.
[[noreturn]] void Raise(RunTimeError error);

// One of the library's own errors: its number, the library's title as the source, its message from the table. RaiseOwn
// throws this error.
Error OwnErrorOf(std::int32_t number);
[[noreturn]] void RaiseOwn(std::int32_t number);

// The message of one of the library's own numbers; empty for a number that the library does not raise.
std::u16string_view MessageOf(std::int32_t number);

// The standard description of a run-time error.
std::u16string_view DescriptionOf(RunTimeError error);

// The status code (HRESULT) of an error number: 0x800A0000 + n for 1..65535, the number itself otherwise.
std::int32_t StatusOfNumber(std::int32_t number);

// The reverse: the error number of a failed call that left error information.
std::int32_t NumberOfStatus(std::int32_t status);

// The error number of a failed call that left no error information: as NumberOfStatus, but a standard failure with a
// run-time number gets that number (438 for an unknown name, 450 for a bad argument count, ...), as in the automation
// run time.
std::int32_t NumberOfBareStatus(std::int32_t status);

}  // namespace wendrill
