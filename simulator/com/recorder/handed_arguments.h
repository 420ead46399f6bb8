// The arguments of a call with the objects that the other side has in place of these: wrappers become the terminal's
// objects on the way in, the terminal's objects become wrappers on the way to a sink.
//
// Variables that are passed by reference stay the caller's own, unless one holds an object that is replaced. An object
// that the callee puts into a variable is replaced on the way back.
#pragma once

#include <ole2.h>
#include <windows.h>

#include <memory>
#include <optional>
#include <vector>

#include "com/server/automation_types.h"

namespace wendrill::recorder {

class HandedArguments {
 public:
  enum class Way { ToTheTerminal, ToTheProgram };

  HandedArguments(DISPPARAMS* arguments, Way way);
  HandedArguments(const HandedArguments&) = delete;
  HandedArguments& operator=(const HandedArguments&) = delete;

  DISPPARAMS* Get() { return replaced_.empty() ? given_ : &handed_; }

  // After the call: gives the caller's variables what the callee stored. Where that fails, they hold Nothing.
  void GiveBack();

 private:
  struct Replaced {
    UINT place;
    com::Reference<IDispatch> object;  // what the callee is given
    com::OwnedVariant variable;        // what the callee's reference refers to; empty for a value
  };

  // An object in one of the caller's variables that is the same on both sides.
  struct Common {
    UINT place;
    com::Reference<IUnknown> identity;
  };

  com::Reference<IDispatch> CounterpartOf(IUnknown* object) const;
  void Replace(UINT place, com::Reference<IDispatch> object);
  void GiveBack(Replaced& replaced, VARIANT& argument);
  void GiveBackInPlace(UINT place, VARIANT& argument);

  DISPPARAMS* given_;
  Way way_;
  DISPPARAMS handed_{};
  std::vector<VARIANT> values_;  // not owned: copies of the caller's, but for those replaced
  std::vector<std::unique_ptr<Replaced>> replaced_;
  std::vector<Common> common_;
};

class Notes;

// Prepares the arguments of a call. Where memory is short, the call cannot be made: `handed` stays empty, and the
// recording (null when nothing is recorded) notes that it missed a call.
HRESULT HandOver(DISPPARAMS* arguments, HandedArguments::Way way, Notes* notes, std::optional<HandedArguments>& handed);

}  // namespace wendrill::recorder
