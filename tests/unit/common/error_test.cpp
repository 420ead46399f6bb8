#include "common/error.h"

#include <gtest/gtest.h>

#include <array>
#include <limits>

#include "support/raises.h"

namespace wendrill::testing {
namespace {

constexpr std::u16string_view kElementMessage = u"An error has occurred while retrieving a PNR element/segment.";

struct OwnMessage {
  std::int32_t number;
  std::u16string_view message;
};

constexpr auto kOwnMessages = std::to_array<OwnMessage>({
    {2500, kNoActivePnrMessage},   {2501, kNoPnrMessage},         {2502, kSplitMessage},
    {2503, kReadMessage},          {2505, kCommunicationMessage}, {2506, kCommunicationMessage},
    {2515, kGeneralMessage},       {2520, kGeneralMessage},       {2525, kCommunicationMessage},
    {2530, kCommunicationMessage}, {2535, kConnectMessage},       {2540, kCommunicationMessage},
    {2545, kCommunicationMessage}, {2550, kCommunicationMessage}, {2557, kCommunicationMessage},
    {2558, kCommunicationMessage}, {2559, kCommunicationMessage}, {2600, kCommunicationMessage},
    {2300, kGeneralMessage},       {2305, kGeneralMessage},       {2310, kGeneralMessage},
    {2315, kGeneralMessage},       {2400, kGeneralMessage},
});

TEST(RaiseOwn, CarriesTheNumberTheTitleAndTheMessage) {
  for (const OwnMessage& own : kOwnMessages) {
    EXPECT_TRUE(Raises(own.number, own.message, [&own] { RaiseOwn(own.number); }));
    EXPECT_EQ(MessageOf(own.number), own.message) << own.number;
  }
}

TEST(RaiseOwn, CallsAMissingSessionAMissingPnr) {
  EXPECT_TRUE(Raises(2510, kNoActivePnrMessage, [] { RaiseOwn(2510); }));
}

TEST(RaiseOwn, GivesAllElementAccessorsOneMessage) {
  for (std::int32_t number = 2010; number <= 2261; ++number) {
    EXPECT_TRUE(Raises(number, kElementMessage, [number] { RaiseOwn(number); }));
  }
}

TEST(MessageOf, IsEmptyForNumbersThatTheLibraryDoesNotRaise) {
  for (const std::int32_t number : {0, -1, 5, 1110, 2009, 2262, 2299, 2301, 2401, 2499, 2504, 2511, 2601, 65535}) {
    EXPECT_EQ(MessageOf(number), u"") << number;
  }
}

struct RunTimeDescription {
  RunTimeError error;
  std::int32_t number;
  std::u16string_view description;
};

constexpr auto kRunTimeDescriptions = std::to_array<RunTimeDescription>({
    {RunTimeError::InvalidCall, 5, u"Invalid procedure call or argument"},
    {RunTimeError::Overflow, 6, u"Overflow"},
    {RunTimeError::OutOfMemory, 7, u"Out of memory"},
    {RunTimeError::SubscriptOutOfRange, 9, u"Subscript out of range"},
    {RunTimeError::TypeMismatch, 13, u"Type mismatch"},
    {RunTimeError::ObjectNotSet, 91, u"Object variable or With block variable not set"},
    {RunTimeError::InvalidUseOfNull, 94, u"Invalid use of Null"},
    {RunTimeError::ObjectRequired, 424, u"Object required"},
    {RunTimeError::CannotCreateObject, 429, u"ActiveX component can't create object"},
    {RunTimeError::MemberNotSupported, 438, u"Object doesn't support this property or method"},
    {RunTimeError::WrongArgumentCount, 450, u"Wrong number of arguments or invalid property assignment"},
    {RunTimeError::KeyAlreadyPresent, 457, u"This key is already associated with an element of this collection"},
});

TEST(Raise, CarriesTheStandardNumberAndDescription) {
  for (const RunTimeDescription& row : kRunTimeDescriptions) {
    EXPECT_TRUE(Raises(row.number, row.description, [&row] { Raise(row.error); }));
    EXPECT_EQ(DescriptionOf(row.error), row.description) << row.number;
  }
}

std::int32_t Status(std::uint32_t bits) {
  return static_cast<std::int32_t>(bits);
}

TEST(StatusOfNumber, PutsSixteenBitNumbersAfterTheControlFacility) {
  EXPECT_EQ(StatusOfNumber(1), Status(0x800A0001));
  EXPECT_EQ(StatusOfNumber(6), Status(0x800A0006));
  EXPECT_EQ(StatusOfNumber(91), Status(0x800A005B));
  EXPECT_EQ(StatusOfNumber(2505), Status(0x800A09C9));
  EXPECT_EQ(StatusOfNumber(2510), Status(0x800A09CE));
  EXPECT_EQ(StatusOfNumber(65535), Status(0x800AFFFF));
}

TEST(StatusOfNumber, LeavesOtherNumbersAsTheyAre) {
  constexpr std::int32_t kLowest = std::numeric_limits<std::int32_t>::min();
  for (const std::int32_t number : {0, -1, 65536, -2147220394, -2147467259, kLowest}) {
    EXPECT_EQ(StatusOfNumber(number), number);
  }
}

TEST(NumberOfStatus, ReversesStatusOfNumber) {
  for (std::int32_t number = 0; number <= 65537; ++number) {
    ASSERT_EQ(NumberOfStatus(StatusOfNumber(number)), number);
  }
  EXPECT_EQ(NumberOfStatus(-2147220394), -2147220394);
}

struct StatusNumber {
  std::uint32_t status;
  std::int32_t number;
};

TEST(NumberOfStatus, LeavesAStandardFailureThatCameWithInformationAsItIs) {
  for (const std::uint32_t status : {0x80070057u, 0x80070005u, 0x80020006u, 0x80004001u}) {
    EXPECT_EQ(NumberOfStatus(Status(status)), Status(status)) << std::hex << status;
  }
}

TEST(NumberOfBareStatus, KnowsTheRunTimeNumbersOfTheStandardFailures) {
  constexpr auto kRows = std::to_array<StatusNumber>({
      {0x80070057, 5},    // E_INVALIDARG
      {0x8002000A, 6},    // DISP_E_OVERFLOW
      {0x8007000E, 7},    // E_OUTOFMEMORY
      {0x8002000B, 9},    // DISP_E_BADINDEX
      {0x80020005, 13},   // DISP_E_TYPEMISMATCH
      {0x80070005, 70},   // E_ACCESSDENIED
      {0x80040154, 429},  // REGDB_E_CLASSNOTREG
      {0x800401F3, 429},  // CO_E_CLASSSTRING
      {0x80004002, 430},  // E_NOINTERFACE
      {0x80020003, 438},  // DISP_E_MEMBERNOTFOUND
      {0x80020006, 438},  // DISP_E_UNKNOWNNAME
      {0x80004001, 445},  // E_NOTIMPL
      {0x8002000F, 449},  // DISP_E_PARAMNOTOPTIONAL
      {0x8002000E, 450},  // DISP_E_BADPARAMCOUNT
      {0x800706BA, 462},  // RPC_S_SERVER_UNAVAILABLE
      {0x800A09C9, 2505},
  });
  for (const StatusNumber& row : kRows) {
    EXPECT_EQ(NumberOfBareStatus(Status(row.status)), row.number) << std::hex << row.status;
    if (row.number != 2505) {
      EXPECT_FALSE(DescriptionOf(static_cast<RunTimeError>(row.number)).empty()) << row.number;
    }
  }
}

TEST(NumberOfBareStatus, LeavesEveryOtherStatusAsItIs) {
  // Success, E_FAIL, E_POINTER, DISP_E_EXCEPTION, DISP_E_BADVARTYPE, CLASS_E_CLASSNOTAVAILABLE, and the neighbours of
  // the control facility.
  for (const std::uint32_t status : {0x00000000u, 0x80004005u, 0x80004003u, 0x80020009u, 0x80020008u, 0x80040111u,
                                     0x80040456u, 0x800A0000u, 0x800B0000u}) {
    EXPECT_EQ(NumberOfBareStatus(Status(status)), Status(status)) << std::hex << status;
  }
}

TEST(Error, KeepsWhatAForeignCallReported) {
  const Error error(Status(0x80040201), u"szuPNR", u"No such element.");
  EXPECT_EQ(error.Number(), Status(0x80040201));
  EXPECT_EQ(error.Source(), u"szuPNR");
  EXPECT_EQ(error.Description(), u"No such element.");
}

}  // namespace
}  // namespace wendrill::testing
