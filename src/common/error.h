// Errors: one exception type, one table of numbers and messages.
#pragma once

#include <cstdint>
#include <exception>
#include <string>
#include <string_view>

namespace wendrill {

// The source of every error of the library's own.
inline constexpr std::u16string_view kLibraryTitle = u"Wendrill23";

// What a member reports to its caller: either one of the library's own numbers, a run-time error with its standard
// number, or an error that came from a toolkit call and travels on unchanged.
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
  InvalidCall = 5,           // also: a negative length
  Overflow = 6,              // a number that its type cannot hold
  OutOfMemory = 7,           //
  SubscriptOutOfRange = 9,   // an array index outside the bounds
  TypeMismatch = 13,         // a value that does not convert
  ObjectNotSet = 91,         // a call on Nothing
  InvalidUseOfNull = 94,     //
  CannotCreateObject = 429,  //
  ObjectRequired = 424,      //
  MemberNotSupported = 438,  // the object has no such member
  WrongArgumentCount = 450,  //
  KeyAlreadyPresent = 457,   // a collection refuses a duplicate key
};

// Raises a run-time error with its standard description; the source is the library's title.
[[noreturn]] void Raise(RunTimeError error);

// Raises one of the library's own errors: its number, the library's title, its message from the table.
[[noreturn]] void RaiseOwn(std::int32_t number);

// The message of one of the library's own numbers; empty for a number that the library does not raise.
std::u16string_view MessageOf(std::int32_t number);

// The standard description of a run-time error.
std::u16string_view DescriptionOf(RunTimeError error);

// How numbers travel as automation status codes: 1..65535 as 0x800A0000 + n, every other number as it is.
std::int32_t StatusOfNumber(std::int32_t number);

// The number that a status code of a failed call stands for: the reverse of the above, and the run-time number for the
// dispatch and creation failures that have one (an unknown name is 438, a bad argument count 450, ...).
std::int32_t NumberOfStatus(std::int32_t status);

}  // namespace wendrill
