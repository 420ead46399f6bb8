// Between the system's VARIANT and the core's Value.
#pragma once

#include "com/server/automation_types.h"
#include "common/value.h"

namespace wendrill::com {

// Objects look different on the two sides: the library meets objects of other servers, the simulator its own.
class ObjectBridge {
 public:
  // The core's view of a foreign object, which is not null.
  virtual ObjectRef ToCore(IDispatch* object) const = 0;

  // A counted reference for the other side; null for Nothing.
  virtual IDispatch* ToAutomation(const ObjectRef& object) const = 0;

 protected:
  ~ObjectBridge() = default;
};

// Whether a reference leads to a variable: not to nowhere, and not in a circle. True for a value that is no reference.
bool EndsInAVariable(const VARIANT& variant);

// References are followed. A one-dimensional array of strings becomes an array of text, one of VARIANT an array of
// values; every other type that the core does not have is kept verbatim as a foreign value. A VARIANT of no type that
// automation knows, and an object without automation, is a type mismatch (13).
Value ToValue(const VARIANT& variant, const ObjectBridge& bridge);

// Who reads an array decides its form: scripts can index arrays of VARIANT alone, typed callers want arrays of strings.
enum class ArrayForm { Strings, Variants };

// Writes into an empty VARIANT. A foreign value has the type with which it came.
void ToVariant(const Value& value, VARIANT* variant, const ObjectBridge& bridge, ArrayForm form);

// The same for an array of text on its own.
SAFEARRAY* ArrayOfTexts(const TextArray& texts);
TextArray TextsOfArray(SAFEARRAY* texts);

}  // namespace wendrill::com
