// Entries whose handling the caller chooses through the keys of a parameter bag.
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

// The options of SendCommandFI. The members are declared in the order in which their keys are read.
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

// The display of the PNR that answers the entry, read through a new PNR object, so that the PNR that every CPNR reads
// is not replaced.
std::u16string DisplayOfFreshPnr(const ModuleState& state, TextView entry) {
  const ObjectRef pnr = state.platform.CreatePnr();
  RetrieveByEntry(*pnr, SessionOf(state)->HostConnection(), entry);
  return DisplayTextOf(*pnr, state.texts);
}

// Whether a response to SendCommandTicsPas asks for a further entry: its last three characters contain one of the
// marks.
bool AsksForMore(TextView text) {
  constexpr std::ptrdiff_t kTailLength = 3;
  const TextView tail = LastColumns(text, kTailLength);
  return Contains(tail, kNextPageEntry) || Contains(tail, u"+");
}

// Whether the host is still extending the response by itself, so that no MD is sent.
bool IsStillGrowing(TextView text) {
  return Contains(text, u"DAC:CONT");
}

}  // namespace

// The bag is read before the entry is checked: a bag that fails is an error even with an empty entry.
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

// When the caller asks for both the PNR and the ticketing pages, both are read, and the ticketing pages are the result.
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

// Each pass reads the session's last response again. The response's text is added to the collected text when MD fetched
// it, and when it differs from the text of the previous pass because the host extended it. Messages are pumped at the
// end of a pass: a StopLoop called from a message ends the loop, and the text collected so far is the result.
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

// A toolkit call may pump messages too. A StopLoop called from such a message also ends the loop and drops the session,
// and no further entry is sent.
void CQuillet::FetchWhileLoopActive() {
  if (loopActive_) {
    PressClear(state_);
  }
  if (loopActive_) {
    SendEntry(state_, kNextPageEntry);
  }
}

}  // namespace wendrill
