// Assertions about errors:
//
//   EXPECT_TRUE(Raises(2505, kCommunication, [&] { quillet.SendCommand(u"AN"); }));
#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "common/error.h"
#include "common/text.h"

namespace wendrill::testing {

// The descriptions of the library's errors, verbatim as callers see them.
inline constexpr std::u16string_view kNoActivePnrMessage =
    u"Could not retrieve an active PNR. Make sure there is an active PNR/Session.";
inline constexpr std::u16string_view kNoPnrMessage = u"Could not retrieve the PNR.";
inline constexpr std::u16string_view kSplitMessage = u"Error when splitting the PNR.";
inline constexpr std::u16string_view kReadMessage = u"Error when reading the PNR.";
inline constexpr std::u16string_view kCommunicationMessage = u"An error has occurred while communicating with Quillet.";
inline constexpr std::u16string_view kGeneralMessage = u"A general error has occurred.";
inline constexpr std::u16string_view kConnectMessage = u"Could not connect to Quillet Session.";

// The error that the work raises; nullopt when it raises none.
template <typename Work>
std::optional<Error> ErrorOf(Work work) {
  try {
    work();
  } catch (const Error& error) {
    return error;
  }
  return std::nullopt;
}

// Whether the work raises an error with this number, this message and the library's source, "Wendrill23".
template <typename Work>
::testing::AssertionResult Raises(std::int32_t number, std::u16string_view message, Work work) {
  const auto error = ErrorOf(std::move(work));
  if (!error) {
    return ::testing::AssertionFailure() << "nothing was raised instead of " << number;
  }
  if (error->Number() == number && error->Source() == u"Wendrill23" && error->Description() == message) {
    return ::testing::AssertionSuccess();
  }
  return ::testing::AssertionFailure() << "raised " << error->Number() << " from \"" << ToUtf8(error->Source())
                                       << "\": " << ToUtf8(error->Description()) << "\ninstead of " << number << ": "
                                       << ToUtf8(message);
}

// Whether the work raises an error with this number, whatever its source and message are.
template <typename Work>
::testing::AssertionResult RaisesNumber(std::int32_t number, Work work) {
  const auto error = ErrorOf(std::move(work));
  if (!error) {
    return ::testing::AssertionFailure() << "nothing was raised instead of " << number;
  }
  if (error->Number() != number) {
    return ::testing::AssertionFailure() << "raised " << error->Number() << " instead of " << number;
  }
  return ::testing::AssertionSuccess();
}

}  // namespace wendrill::testing
