// The members of CQuillet that send entries whose response may be longer than one screen.
#include <string>
#include <utility>

#include "common/error_numbers.h"
#include "common/numeric.h"
#include "common/text.h"
#include "session/page_readers.h"
#include "session/page_rules.h"
#include "session/quillet.h"
#include "session/shared_session.h"
#include "session/unlocking.h"

namespace wendrill {
namespace {

constexpr std::int32_t kFirstLine = 1;
constexpr std::int32_t kAllPages = 0;

// The number that a caller passed as a string, rounded to an integer. Returns `otherwise` when the string is not a
// number or the rounded number is below 1. Raises 6 (overflow) when the number does not fit into 32 bits.
std::int32_t CountingNumber(TextView text, std::int32_t otherwise) {
  const auto number = ParseNumber(text);
  const std::int32_t count = number ? Narrow32(*number) : otherwise;
  return count < 1 ? otherwise : count;
}

}  // namespace

std::u16string CQuillet::SendCommandGetAll(std::u16string_view strCommand) {
  loopActive_ = true;
  if (strCommand.empty()) {
    return {};
  }
  return WithNumber(kSendCommandGetAllFailed, [&] {
    PressClear(state_);
    return loopActive_ ? SendCommandGetAllNoClear(strCommand) : std::u16string();
  });
}

std::u16string CQuillet::SendCommandGetAllNoClear(std::u16string_view strCommand) {
  if (strCommand.empty()) {
    return {};
  }
  return Unlocking(kSendCommandGetAllFailed, [&] { return SendAndCollect(strCommand, nullptr); });
}

std::u16string CQuillet::SendCommandCollectPages(std::u16string_view strCommand, TextArray& vntPages) {
  loopActive_ = true;
  TextArray pages = {.lowerBound = 1, .items = {}};
  std::u16string text;
  if (!strCommand.empty()) {
    text = Unlocking(kSendCommandCollectPagesFailed, [&] { return SendAndCollect(strCommand, &pages.items); });
  }
  vntPages = std::move(pages);
  return text;
}

std::u16string CQuillet::SendAndCollect(std::u16string_view strCommand, std::vector<std::u16string>* pages) {
  LockAlarmForEntry(strCommand);
  SendEntry(state_, strCommand);
  std::u16string buffer = ResponseBuffer(state_);
  const std::int16_t type = ResponseType(state_);
  std::u16string text = CollectPages(state_, strCommand, type, std::move(buffer), pages);
  state_.LastResponseObject.reset();
  return text;
}

std::u16string CQuillet::GetTotalHostResponse() {
  return WithNumber(kGetTotalHostResponseFailed, [&] {
    std::u16string buffer = LastBuffer();
    const std::int16_t type = LastResponseType();
    std::u16string text = CollectPages(state_, LastHostCommand(), type, std::move(buffer));
    state_.LastResponseObject.reset();
    return text;
  });
}

std::u16string CQuillet::SendCommandLines(std::u16string_view strCommand, std::u16string_view strLinenumberStart,
                                          std::u16string_view strNoPages) {
  if (strCommand.empty()) {
    return {};
  }
  return WithNumber(kSendCommandLinesFailed, [&] {
    const std::int32_t firstLine = CountingNumber(strLinenumberStart, kFirstLine);
    const std::int32_t pages = CountingNumber(strNoPages, kAllPages);
    SendEntry(state_, strCommand);
    const std::u16string text = ReadDisplay(state_, pages, ResponseBuffer(state_));
    state_.LastResponseObject.reset();
    return std::u16string(FromLine(text, firstLine));
  });
}

}  // namespace wendrill
