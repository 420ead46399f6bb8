// The members of CQuillet that retrieve a PNR. Each member replaces the PNR that every CPNR of the process reads. The
// toolkit's PNR object, not the library, sends the entry and reads the host's answer. The PNR object uses the host
// connection of the session.
#include <string>

#include "common/error.h"
#include "common/error_numbers.h"
#include "common/text.h"
#include "session/pnr_loading.h"
#include "session/quillet.h"
#include "session/shared_session.h"
#include "session/unlocking.h"
#include "toolkit/platform.h"

namespace wendrill {
namespace {

// Replaces the shared PNR object with a new one and returns the new object. Intentional: the previous PNR object is
// released before the new one is created, so that a failed creation leaves no PNR object.
ObjectRef ReplacePnr(ModuleState& state) {
  state.gobjPNR.reset();
  state.gobjPNR = state.platform.CreatePnr();
  return state.gobjPNR;
}

// Retrieves a PNR with `entry` into a new shared PNR object (gobjPNR). Returns true when the host has the PNR, which is
// when the PNR object has a header with a text. Returns false in two cases:
//   - The PNR object has no header: gobjPNR is null afterwards.
//   - The header has no text: gobjPNR is the new, empty PNR object afterwards.
bool Retrieve(ModuleState& state, TextView entry) {
  const ObjectRef pnr = ReplacePnr(state);
  RetrieveByEntry(*pnr, SessionOf(state)->HostConnection(), entry);
  const ObjectRef header = HeaderOf(*pnr);
  if (!header) {
    state.gobjPNR.reset();
    return false;
  }
  return !HeaderText(*header, state.texts).empty();
}

}  // namespace

std::int32_t CQuillet::RetrieveCurrent() {
  return WithNumber(kRetrieveCurrentFailed, [&] {
    const ObjectRef pnr = ReplacePnr(state_);
    const std::int32_t status = RetrieveOnDisplay(*pnr, SessionOf(state_)->HostConnection());
    const ObjectRef header = HeaderOf(*pnr);
    if (!header || HeaderText(*header, state_.texts).empty()) {
      RaiseOwn(kRetrieveCurrentFailed);
    }
    return status;
  });
}

bool CQuillet::RetrieveRecLoc(std::u16string_view strRecLoc) {
  if (strRecLoc.empty()) {
    return false;
  }
  return WithNumber(kRetrieveRecLocFailed, [&] { return Retrieve(state_, u"RT" + std::u16string(strRecLoc)); });
}

bool CQuillet::SplitPNR(std::u16string_view strPasAsso) {
  if (strPasAsso.empty()) {
    return false;
  }
  return WithNumber(kSplitPNRFailed, [&] { return Retrieve(state_, u"SP" + std::u16string(strPasAsso)); });
}

bool CQuillet::ReadPNR(std::u16string_view strCommand) {
  if (strCommand.empty()) {
    return false;
  }
  return Unlocking(kReadPNRFailed, [&] {
    LockAlarmForEntry(strCommand);
    return Retrieve(state_, strCommand);
  });
}

}  // namespace wendrill
