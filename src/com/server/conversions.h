// The system's conversions between automation types, under one rule: what becomes text follows the user's regional
// settings, what is read from text never does.
#pragma once

#include <ole2.h>
#include <windows.h>

#include "common/text_forms.h"

namespace wendrill::com {

// Converts into an empty VARIANT, or in place. A text is read by US conventions, whatever the desktop: a decimal point,
// the words True and False.
HRESULT ChangeType(VARIANT* target, const VARIANT* source, VARTYPE type);

// Raises a conversion's failure: 6 for an overflow, 5 for a value out of its range, 13 for anything else.
void CheckConversion(HRESULT status);

// The forms of this desktop.
const TextForms& UsersTextForms();

}  // namespace wendrill::com
