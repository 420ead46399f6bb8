// The members of CQuillet that send an entry in the way that the keys of a parameter bag choose.
#include <string>

#include "common/error_numbers.h"
#include "common/text.h"
#include "session/page_joiner.h"
#include "session/page_readers.h"
#include "session/page_rules.h"
#include "session/pnr_loading.h"
#include "session/quillet.h"
#include "session/shared_session.h"
#include "session/unlocking.h"
#include "toolkit/platform.h"

namespace wendrill {
namespace {

// The values of the keys of SendCommandFI. The constructor reads the keys in the order in which the members are
// declared.
struct FIKeys {
  explicit FIKeys(ParamBag& bag)
      : clear(BooleanKey(bag, u"blnKeyClear")),
        getAll(BooleanKey(bag, u"blnKeyGetAll")),
        pnr(BooleanKey(bag, u"blnKeyPNR")),
        ticketing(BooleanKey(bag, u"blnKeyTST")) {}

  bool clear;
  bool getAll;
  bool pnr;
  bool ticketing;
};

// The display of the PNR that the host returns for `entry`. The PNR is loaded into a new PNR object, so that the PNR
// that every CPNR reads is not replaced.
std::u16string DisplayOfFreshPnr(const ModuleState& state, TextView entry) {
  const ObjectRef pnr = state.platform.CreatePnr();
  RetrieveByEntry(*pnr, SessionOf(state)->HostConnection(), entry);
  return DisplayTextOf(*pnr, state.texts);
}

// Whether a response has further text, which is so when the last three characters of its text contain "MD" or "+".
bool AsksForMore(TextView text) {
  constexpr std::ptrdiff_t kTailLength = 3;
  const TextView tail = LastColumns(text, kTailLength);
  return Contains(tail, kNextPageEntry) || Contains(tail, u"+");
}

// Whether the text contains "DAC:CONT". With this sign the host shows that it is still extending the response by
// itself, so that MD must not be sent for the further text.
bool IsStillGrowing(TextView text) {
  return Contains(text, u"DAC:CONT");
}

}  // namespace

// Reads the bag before checking the entry: a bag that cannot be read is an error even when the entry is empty.
std::u16string CQuillet::SendCommandFI(std::u16string_view strCommand, const ParamBagRef& objParams) {
  const FIKeys keys = UnlockingOnFailure(kSendCommandFIFailed, [&] { return FIKeys(BagOf(objParams)); });
  if (strCommand.empty()) {
    return {};
  }
  return Unlocking(kSendCommandFIFailed, [&] {
    if (keys.clear) {
      PressClear(state_);
    }
    LockAlarmForEntry(strCommand);
    SendEntry(state_, strCommand);
    std::u16string result = ResponseBuffer(state_);
    if (keys.getAll) {
      result = RestOfResponse(strCommand, keys.pnr, keys.ticketing, std::move(result));
    }
    state_.LastResponseObject.reset();
    return result;
  });
}

// The result of SendCommandFI when the caller asks for all pages; `buffer` is the first page. `pnr` and `ticketing`
// choose the result:
//   - both false: all pages of the response, joined
//   - only `pnr` true: the display of the PNR that the host returns for the entry
//   - `ticketing` true: the pages of the ticketing display, joined. When `pnr` is true too, the display of the PNR is
//     also read, but not returned.
std::u16string CQuillet::RestOfResponse(std::u16string_view strCommand, bool pnr, bool ticketing,
                                        std::u16string buffer) {
  if (!pnr && !ticketing) {
    return CollectPages(state_, strCommand, ResponseType(state_), std::move(buffer));
  }
  std::u16string result;
  if (pnr) {
    result = DisplayOfFreshPnr(state_, strCommand);
  }
  if (ticketing) {
    result = ReadTicketingPages(state_, strCommand, std::move(buffer));
  }
  return result;
}

std::u16string CQuillet::SendCommandTicsPas(const ParamBagRef& objParams) {
  return WithNumber(kSendCommandTicsPasFailed, [&]() -> std::u16string {
    ParamBag& bag = BagOf(objParams);
    const std::u16string entry = TextKey(bag, u"strKeyCommand", state_.texts);
    if (entry.empty()) {
      return {};
    }
    const bool getAll = BooleanKey(bag, u"blnKeyGetAll");
    const bool clear = BooleanKey(bag, u"blnKeyClear");
    if (clear) {
      PressClear(state_);
    }
    SendEntry(state_, entry);
    std::u16string text = ResponseOf(state_)->Text();
    if (getAll) {
      text = CollectWhileAsked(std::move(text));
    }
    state_.LastResponseObject.reset();
    return text;
  });
}

// Returns the text of a response that begins with `firstText`, together with the further text of the response.
//
// Each pass of the loop reads the last response of the session:
//   - It adds the text of that response when the previous pass sent MD, or when the text differs from the text that the
//     previous pass read (`firstText` for the first pass), because the host has extended the response.
//   - When AsksForMore is false for the text, the loop ends. When AsksForMore is true, the pass sends MD, unless the
//     host is still extending the response by itself (IsStillGrowing). Then the pass delivers messages.
//
// The loop runs only while loopActive_ is true; quillet.h says which members set and clear loopActive_. When
// loopActive_ is false from the start, the result is `firstText` alone. When a message clears loopActive_, the result
// is the text collected so far.
std::u16string CQuillet::CollectWhileAsked(std::u16string firstText) {
  PageJoiner collected;
  collected.Add(firstText);
  std::u16string current = std::move(firstText);
  bool isFetched = false;
  while (loopActive_) {
    std::u16string text = LastText();
    if (isFetched || text != current) {
      collected.Add(text);
    }
    if (!AsksForMore(text)) {
      break;
    }
    isFetched = !IsStillGrowing(text);
    if (isFetched) {
      FetchWhileLoopActive();
    }
    current = std::move(text);
    RunMessages(state_);
  }
  return collected.Take();
}

// Presses the clear key and then sends MD, each only when loopActive_ is true. The key press may deliver a message
// that clears loopActive_ and drops the session; MD is not sent in this case.
void CQuillet::FetchWhileLoopActive() {
  if (loopActive_) {
    PressClear(state_);
  }
  if (loopActive_) {
    SendEntry(state_, kNextPageEntry);
  }
}

}  // namespace wendrill
