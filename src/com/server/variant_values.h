// Conversions between the system's VARIANT and the core's Value.
#pragma once

#include "com/server/automation_types.h"
#include "common/value.h"

namespace wendrill::com {

// Converts objects between automation and the core. The library wraps objects of other servers; the simulator unwraps
// its own.
class ObjectBridge {
 public:
  // The core's reference for an automation object, which is not null.
  virtual ObjectRef ToCore(IDispatch* object) const = 0;

  // The automation object for a core reference, AddRef'ed for the caller; null for Nothing.
  virtual IDispatch* ToAutomation(const ObjectRef& object) const = 0;

 protected:
  ~ObjectBridge() = default;
};

// Whether a chain of references (VT_BYREF) ends in a variable, and not in a null pointer or a cycle. True for a value
// that is not a reference.
bool EndsInAVariable(const VARIANT& variant);

// References are followed. A one-dimensional array of strings becomes an array of text, and a one-dimensional array of
// VARIANT an array of values; every other type that the core does not have is kept verbatim as a foreign value. Raises
// 13 (type mismatch) for a VARIANT of a type that automation does not have, and for an object without IDispatch.
Value ToValue(const VARIANT& variant, const ObjectBridge& bridge);

// The form in which an array of strings is returned: scripts can index arrays of VARIANT only, early-bound callers
// expect arrays of BSTR.
enum class ArrayForm { Strings, Variants };

// Stores a value in an empty VARIANT. A foreign value keeps its original type.
void ToVariant(const Value& value, VARIANT* variant, const ObjectBridge& bridge, ArrayForm form);

// The same for an array of strings alone.
SAFEARRAY* ArrayOfTexts(const TextArray& texts);
TextArray TextsOfArray(SAFEARRAY* texts);

}  // namespace wendrill::com
