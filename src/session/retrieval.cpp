// PNR retrieval: each member replaces the PNR that every CPNR of the process reads. The toolkit's PNR object sends the
// entry and reads the answer itself, over the session's host connection.
#include <string>

#include "common/error.h"
#include "common/text.h"
#include "session/error_numbers.h"
#include "session/failures.h"
#include "session/pnr_object.h"
#include "session/quillet.h"
#include "session/shared_session.h"
#include "toolkit/platform.h"

namespace wendrill {
namespace {

// Intentional: the previous PNR is released even when the new PNR object cannot be created.
ObjectRef ReplacePnr(ModuleState& module) {
  module.gobjPNR.reset();
  module.gobjPNR = module.platform.CreatePnr();
  return module.gobjPNR;
}

// Whether the host has the PNR. After an answer without a header, gobjPNR is Nothing; after an answer whose header has
// no text, gobjPNR is the new, empty PNR object.
bool Retrieve(ModuleState& module, TextView entry) {
  const ObjectRef pnr = ReplacePnr(module);
  RetrieveByEntry(*pnr, SessionOf(module)->HostConnection(), entry);
  const ObjectRef header = HeaderOf(*pnr);
  if (!header) {
    module.gobjPNR.reset();
    return false;
  }
  return !HeaderText(*header, module.texts).empty();
}

}  // namespace

std::int32_t CQuillet::RetrieveCurrent() {
  return WithNumber(kRetrieveCurrentFailed, [&] {
    const ObjectRef pnr = ReplacePnr(module_);
    const std::int32_t status = RetrieveOnDisplay(*pnr, SessionOf(module_)->HostConnection());
    const ObjectRef header = HeaderOf(*pnr);
    if (!header || HeaderText(*header, module_.texts).empty()) {
      RaiseOwn(kRetrieveCurrentFailed);
    }
    return status;
  });
}

bool CQuillet::RetrieveRecLoc(std::u16string_view strRecLoc) {
  if (strRecLoc.empty()) {
    return false;
  }
  return WithNumber(kRetrieveRecLocFailed, [&] { return Retrieve(module_, u"RT" + std::u16string(strRecLoc)); });
}

bool CQuillet::SplitPNR(std::u16string_view strPasAsso) {
  if (strPasAsso.empty()) {
    return false;
  }
  return WithNumber(kSplitPNRFailed, [&] { return Retrieve(module_, u"SP" + std::u16string(strPasAsso)); });
}

bool CQuillet::ReadPNR(std::u16string_view strCommand) {
  if (strCommand.empty()) {
    return false;
  }
  return Unlocking(kReadPNRFailed, [&] {
    LockAlarmForEntry(strCommand);
    return Retrieve(module_, strCommand);
  });
}

}  // namespace wendrill
