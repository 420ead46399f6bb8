#include "com/classes/forwarding.h"

#include <utility>

#include "common/error.h"

namespace wendrill::com {

// `variable` may be a VARIANT variable or a VARIANT that refers to the variable (VT_BYREF), because an early-bound
// caller may pass such a reference. Verify follows the references and checks the variable at their end.
HRESULT Verify(VARIANT* variable) {
  if (variable == nullptr) {
    return S_OK;
  }
  if (!EndsInAVariable(*variable)) {
    return E_INVALIDARG;
  }
  VARIANT place{};
  V_VT(&place) = VT_BYREF | VT_VARIANT;
  V_VARIANTREF(&place) = variable;
  const HRESULT status = RequirePlaceForTexts(&place);
  if (status == DISP_E_TYPEMISMATCH) {
    Raise(RunTimeError::TypeMismatch);
  }
  return status;
}

void VariableForTexts::StoreBack() {
  if (variable == nullptr) {
    return;
  }
  OwnedVariant collected;
  ToVariant(Value(std::move(texts)), &collected, ForeignObjects(TheLibrary().names), ArrayForm::Variants);
  if ((V_VT(variable) & VT_BYREF) == 0) {
    std::swap(*variable, static_cast<VARIANT&>(collected));
  } else {
    Check(StoreInto(variable, &collected));
  }
}

void ArrayForTexts::StoreBack() {
  SAFEARRAY* cut = ArrayOfTexts(texts);
  const HRESULT status = ReplaceArray(array, &cut);
  SafeArrayDestroy(cut);  // `cut` is null when ReplaceArray took ownership
  Check(status);
}

}  // namespace wendrill::com
