// Errors: the library's exception type, and the table of its error numbers and messages.
#pragma once

#include <cstdint>
#include <exception>
#include <string>
#include <string_view>

namespace wendrill {

// The source of the errors that the library itself raises. Two kinds of errors have another source: the error of the
// constructor of CEncodeUtils, and the refusals and registry failures of registering and unregistering, whose source is
// the path of the DLL.
inline constexpr std::u16string_view kLibraryTitle = u"Wendrill23";

// An error that a member reports to its caller. The number of the error is one of these:
// - one of the library's own numbers (MessageOf);
// - the standard number of a run-time error (RunTimeError);
// - the number of a failed call of another component, such as the toolkit, when that failure propagates unchanged;
// - a status code (HRESULT), for a failure that has no other number.
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

// The errors of the automation run time, with their standard numbers.
enum class RunTimeError : std::int32_t {
  InvalidCall = 5,           // an argument is invalid, such as a negative length; or a call failed
  Overflow = 6,              // a number does not fit into its type
  OutOfMemory = 7,           // an allocation failed
  SubscriptOutOfRange = 9,   // an array index is out of bounds
  TypeMismatch = 13,         // a value does not convert to the wanted type
  PermissionDenied = 70,     // access was denied
  ObjectNotSet = 91,         // a call on Nothing, or on a session or response that is missing
  InvalidUseOfNull = 94,     // Null does not convert to the wanted type
  ObjectRequired = 424,      // a value is not an object, but must be an object
  CannotCreateObject = 429,  // an object of a class could not be created
  NoAutomation = 430,        // the object does not implement an interface
  MemberNotSupported = 438,  // the object has no such member
  ActionNotSupported = 445,  // the object has the member but does not implement it
  ArgumentMissing = 449,     // a required argument is missing
  WrongArgumentCount = 450,  // too many or too few arguments
  KeyAlreadyPresent = 457,   // the collection already contains the key
  ServerUnavailable = 462,   // the object's process has ended
};

// Throws a run-time error with its standard number and description, and with the library's title as the source.
[[noreturn]] void Raise(RunTimeError error);

// OwnErrorOf returns an error with one of the library's own numbers, the library's title as the source and
// MessageOf(number) as the description. RaiseOwn throws this error.
Error OwnErrorOf(std::int32_t number);
[[noreturn]] void RaiseOwn(std::int32_t number);

// The message of one of the library's own error numbers. All numbers from 2010 to 2261 have the message of the members
// that count and read elements, including numbers that no member raises. Empty for a number without a row in kOwnErrors
// (error.cpp).
std::u16string_view MessageOf(std::int32_t number);

// The standard description of a run-time error; empty for a number that is not in the enumeration.
std::u16string_view DescriptionOf(RunTimeError error);

// The status code (HRESULT) of an error number: 0x800A0000 + n for a number n from 1 to 65535, and the number itself
// otherwise.
std::int32_t StatusOfNumber(std::int32_t number);

// The inverse of StatusOfNumber: the error number of a call that failed with `status` and left error information. The
// result is n for 0x800A0000 + n, where n is from 1 to 65535, and the status itself otherwise.
std::int32_t NumberOfStatus(std::int32_t status);

// The error number of a call that failed with `status` and left no error information. Some statuses correspond to a
// run-time error: the result is the number of that run-time error, such as 438 (member not supported) for
// DISP_E_UNKNOWNNAME and 450 (wrong number of arguments) for DISP_E_BADPARAMCOUNT. For any other status, the result is
// that of NumberOfStatus.
std::int32_t NumberOfBareStatus(std::int32_t status);

}  // namespace wendrill
