#include "common/error.h"

#include <algorithm>
#include <array>

#include "common/error_numbers.h"

namespace wendrill {
namespace {

constexpr std::u16string_view kNoActivePnr =
    u"Could not retrieve an active PNR. Make sure there is an active PNR/Session.";
constexpr std::u16string_view kPnrNotRetrieved = u"Could not retrieve the PNR.";
constexpr std::u16string_view kSplitFailed = u"Error when splitting the PNR.";
constexpr std::u16string_view kReadFailed = u"Error when reading the PNR.";
constexpr std::u16string_view kCommunicationFailed = u"An error has occurred while communicating with Quillet.";
constexpr std::u16string_view kNoConnection = u"Could not connect to Quillet Session.";
constexpr std::u16string_view kGeneralError = u"A general error has occurred.";
constexpr std::u16string_view kElementNotRetrieved = u"An error has occurred while retrieving a PNR element/segment.";

// A row of the table kOwnErrors: every number from `first` to `last` has the message `message`.
struct OwnError {
  std::int32_t first;
  std::int32_t last;
  std::u16string_view message;

  constexpr OwnError(std::int32_t number, std::u16string_view text) : OwnError(number, number, text) {}
  constexpr OwnError(std::int32_t lowest, std::int32_t highest, std::u16string_view text)
      : first(lowest), last(highest), message(text) {}
};

// Intentional: several numbers share one message. Only the number shows the caller which member failed.
constexpr std::array kOwnErrors = {
    OwnError{2010, 2261, kElementNotRetrieved},  // the accessors of CPNR, each with its own number
    OwnError{kSubmitFailed, kGeneralError},
    OwnError{kRMBatchFailed, kGeneralError},
    OwnError{kBatchHelperFailed, kGeneralError},
    OwnError{kSubmitWithResponseFailed, kGeneralError},
    OwnError{kAddFailed, kGeneralError},
    OwnError{kRetrieveCurrentFailed, kNoActivePnr},
    OwnError{kRetrieveRecLocFailed, kPnrNotRetrieved},
    OwnError{kSplitPNRFailed, kSplitFailed},
    OwnError{kReadPNRFailed, kReadFailed},
    OwnError{kSendCommandFailed, kCommunicationFailed},
    OwnError{kSendCommandFIFailed, kCommunicationFailed},
    OwnError{kNoSessionRuns, kNoActivePnr},  // intentional: the message mentions a PNR, although none was asked for
    OwnError{kSendKeyFailed, kGeneralError},
    OwnError{kChangeSMODFailed, kGeneralError},
    OwnError{kSendCommandGetAllFailed, kCommunicationFailed},
    OwnError{kSendCommandNoClearFailed, kCommunicationFailed},
    OwnError{kConnectSessionFailed, kNoConnection},
    OwnError{kSendCommandTicsPasFailed, kCommunicationFailed},
    OwnError{kGetTotalHostResponseFailed, kCommunicationFailed},
    OwnError{kPageReaderFailed, kCommunicationFailed},
    OwnError{kSendCommandCollectPagesFailed, kCommunicationFailed},
    OwnError{kLockAlarmFailed, kCommunicationFailed},
    OwnError{kUnLockAlarmFailed, kCommunicationFailed},
    OwnError{kSendCommandLinesFailed, kCommunicationFailed},
};

// A row of the table kStatusNumbers: the status of a failed call and the run-time error to which the status
// corresponds. The table contains no status of the form 0x800Axxxx, because the last 16 bits of such a status are the
// error number itself.
struct StatusNumber {
  std::uint32_t status;
  RunTimeError error;
};

constexpr std::array kStatusNumbers = {
    StatusNumber{0x80004001, RunTimeError::ActionNotSupported},   // E_NOTIMPL
    StatusNumber{0x80004002, RunTimeError::NoAutomation},         // E_NOINTERFACE
    StatusNumber{0x80020003, RunTimeError::MemberNotSupported},   // DISP_E_MEMBERNOTFOUND
    StatusNumber{0x80020005, RunTimeError::TypeMismatch},         // DISP_E_TYPEMISMATCH
    StatusNumber{0x80020006, RunTimeError::MemberNotSupported},   // DISP_E_UNKNOWNNAME
    StatusNumber{0x8002000A, RunTimeError::Overflow},             // DISP_E_OVERFLOW
    StatusNumber{0x8002000B, RunTimeError::SubscriptOutOfRange},  // DISP_E_BADINDEX
    StatusNumber{0x8002000E, RunTimeError::WrongArgumentCount},   // DISP_E_BADPARAMCOUNT
    StatusNumber{0x8002000F, RunTimeError::ArgumentMissing},      // DISP_E_PARAMNOTOPTIONAL
    StatusNumber{0x80040154, RunTimeError::CannotCreateObject},   // REGDB_E_CLASSNOTREG
    StatusNumber{0x800401F3, RunTimeError::CannotCreateObject},   // CO_E_CLASSSTRING
    StatusNumber{0x80070005, RunTimeError::PermissionDenied},     // E_ACCESSDENIED
    StatusNumber{0x8007000E, RunTimeError::OutOfMemory},          // E_OUTOFMEMORY
    StatusNumber{0x80070057, RunTimeError::InvalidCall},          // E_INVALIDARG
    StatusNumber{0x800706BA, RunTimeError::ServerUnavailable},    // RPC_S_SERVER_UNAVAILABLE
};

// Automation's status code for an error number from 1 to 65535 is kControlFacility plus the number.
constexpr std::uint32_t kControlFacility = 0x800A0000;
constexpr std::uint32_t kNumberBits = 0x0000FFFF;

}  // namespace

void Raise(RunTimeError error) {
  throw Error(static_cast<std::int32_t>(error), std::u16string(kLibraryTitle), std::u16string(DescriptionOf(error)));
}

Error OwnErrorOf(std::int32_t number) {
  return {number, std::u16string(kLibraryTitle), std::u16string(MessageOf(number))};
}

void RaiseOwn(std::int32_t number) {
  throw OwnErrorOf(number);
}

std::u16string_view MessageOf(std::int32_t number) {
  const auto* row = std::ranges::find_if(
      kOwnErrors, [number](const OwnError& error) { return error.first <= number && number <= error.last; });
  return row == kOwnErrors.end() ? std::u16string_view() : row->message;
}

std::u16string_view DescriptionOf(RunTimeError error) {
  switch (error) {
    case RunTimeError::InvalidCall:
      return u"Invalid procedure call or argument";
    case RunTimeError::Overflow:
      return u"Overflow";
    case RunTimeError::OutOfMemory:
      return u"Out of memory";
    case RunTimeError::SubscriptOutOfRange:
      return u"Subscript out of range";
    case RunTimeError::TypeMismatch:
      return u"Type mismatch";
    case RunTimeError::PermissionDenied:
      return u"Permission denied";
    case RunTimeError::ObjectNotSet:
      return u"Object variable or With block variable not set";
    case RunTimeError::InvalidUseOfNull:
      return u"Invalid use of Null";
    case RunTimeError::ObjectRequired:
      return u"Object required";
    case RunTimeError::CannotCreateObject:
      return u"ActiveX component can't create object";
    case RunTimeError::NoAutomation:
      return u"Class does not support Automation or does not support expected interface";
    case RunTimeError::MemberNotSupported:
      return u"Object doesn't support this property or method";
    case RunTimeError::ActionNotSupported:
      return u"Object doesn't support this action";
    case RunTimeError::ArgumentMissing:
      return u"Argument not optional";
    case RunTimeError::WrongArgumentCount:
      return u"Wrong number of arguments or invalid property assignment";
    case RunTimeError::KeyAlreadyPresent:
      return u"This key is already associated with an element of this collection";
    case RunTimeError::ServerUnavailable:
      return u"The remote server machine does not exist or is unavailable";
  }
  return {};
}

std::int32_t StatusOfNumber(std::int32_t number) {
  const bool travelsInFacility = number > 0 && number <= static_cast<std::int32_t>(kNumberBits);
  return travelsInFacility ? static_cast<std::int32_t>(kControlFacility + static_cast<std::uint32_t>(number)) : number;
}

std::int32_t NumberOfStatus(std::int32_t status) {
  const auto code = static_cast<std::uint32_t>(status);
  const bool hasNumber = code > kControlFacility && code <= kControlFacility + kNumberBits;
  return hasNumber ? static_cast<std::int32_t>(code & kNumberBits) : status;
}

std::int32_t NumberOfBareStatus(std::int32_t status) {
  const auto* row = std::ranges::find(kStatusNumbers, static_cast<std::uint32_t>(status), &StatusNumber::status);
  return row == kStatusNumbers.end() ? NumberOfStatus(status) : static_cast<std::int32_t>(row->error);
}

}  // namespace wendrill
