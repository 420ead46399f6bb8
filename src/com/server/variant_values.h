// Conversions between the system's VARIANT and the core's Value.
#pragma once

#include "com/server/automation_types.h"
#include "common/value.h"

namespace wendrill::com {

// Converts object references between automation (IDispatch) and the core (ObjectRef).
// - In the library and in the simulator, ToCore wraps an object of another server in a core object, and ToAutomation
//   returns the wrapped object.
// - In the simulator, ToCore also accepts an automation object of the simulator itself and returns the core object
//   inside that automation object. ToAutomation does the reverse.
// - In the recorder, which records no objects, ToCore raises 13 (type mismatch) and ToAutomation returns null.
class ObjectBridge {
 public:
  // The core's reference to an automation object. REQUIRES: `object` is not null.
  virtual ObjectRef ToCore(IDispatch* object) const = 0;

  // The automation object that a core reference refers to, AddRef'ed for the caller; null for Nothing.
  virtual IDispatch* ToAutomation(const ObjectRef& object) const = 0;

 protected:
  ~ObjectBridge() = default;
};

// Whether the references (VT_BYREF) of a VARIANT lead to a variable. True for a VARIANT that is not a reference. False
// for a null pointer in the chain of references. False for a chain of eight or more references to VARIANTs, because
// such a chain may be a cycle.
bool EndsInAVariable(const VARIANT& variant);

// The value in a VARIANT. References are followed. A one-dimensional array of strings becomes a TextArray, a
// one-dimensional array of VARIANTs becomes a ValueArray. An omitted argument becomes Empty. A value of any other type
// that the core does not have is kept unchanged as a foreign value. Raises 13 (type mismatch) for a VARIANT of a type
// that automation does not have, for a reference that does not lead to a variable, for an object without IDispatch, and
// for an array of strings or of VARIANTs with several dimensions.
Value ToValue(const VARIANT& variant, const ObjectBridge& bridge);

// The form in which ToVariant stores an array of strings. Scripts can index only arrays of VARIANTs; early-bound
// callers expect arrays of strings (BSTR).
enum class ArrayForm { Strings, Variants };

// Stores a value in an empty VARIANT. A foreign value is stored with its original type.
void ToVariant(const Value& value, VARIANT* variant, const ObjectBridge& bridge, ArrayForm form);

// A new array of strings (BSTR), which the caller owns.
SAFEARRAY* ArrayOfTexts(const TextArray& texts);

// The strings of a one-dimensional array; an empty TextArray when `texts` is null. Raises 13 (type mismatch) for an
// array with several dimensions or with elements that are not strings.
TextArray TextsOfArray(SAFEARRAY* texts);

}  // namespace wendrill::com
