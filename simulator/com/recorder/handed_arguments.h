// The arguments of a call, with objects replaced. In a call to the terminal, the recorder's wrappers are replaced by
// the terminal's objects. In an event for a sink of the program, the terminal's objects are replaced by wrappers.
//
// A by-reference argument refers to a variable of the caller. If the object in that variable must be replaced, the
// callee gets a reference to a variable of HandedArguments instead; otherwise the callee gets the caller's variable
// itself. After the call, GiveBack replaces each object that the callee stored in a by-reference argument, in the
// opposite direction: the program gets wrappers, and the terminal gets its own objects.
#pragma once

#include <ole2.h>
#include <windows.h>

#include <memory>
#include <optional>
#include <vector>

#include "com/server/automation_types.h"

namespace wendrill::recorder {

class Notes;

class HandedArguments {
 public:
  enum class Way { ToTheTerminal, ToTheProgram };

  HandedArguments(DISPPARAMS* arguments, Way way);
  HandedArguments(const HandedArguments&) = delete;
  HandedArguments& operator=(const HandedArguments&) = delete;

  DISPPARAMS* Get() { return replaced_.empty() ? given_ : &handed_; }

  // Gives the caller what the callee stored in by-reference arguments. REQUIRES: the call has returned.
  // - After a call to the terminal, the caller is the program: it gets a wrapper for each object of the terminal.
  // - After an event, the caller is the terminal: it gets its own object for each wrapper.
  // An object that caller and callee shared before the call stays unchanged. Raises when memory is too short to wrap an
  // object; the caller's variable for that object then contains Nothing.
  void GiveBack();

 private:
  struct Replaced {
    UINT place;
    com::Reference<IDispatch> object;  // the object that the callee gets
    com::OwnedVariant variable;        // the variable of a by-reference argument; empty for an argument by value
  };

  // An object that was in a by-reference argument before the call and needs no replacement, because caller and callee
  // use the same object. GiveBack leaves the object as it is if it is still in that argument after the call.
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
  std::vector<VARIANT> values_;  // bitwise copies of the arguments, some replaced; never passed to VariantClear
  std::vector<std::unique_ptr<Replaced>> replaced_;
  std::vector<Common> common_;
};

// Creates in `handed` the arguments of a call or an event. On failure, for example for lack of memory, returns the
// failing status and leaves `handed` empty; the caller must then not forward the call or the event. On failure, `notes`
// (null when nothing is recorded) also records that a call or an event is missing.
HRESULT HandOver(DISPPARAMS* arguments, HandedArguments::Way way, Notes* notes, std::optional<HandedArguments>& handed);

}  // namespace wendrill::recorder
