// The system's conversions between automation types, under one rule: conversions to a string follow the user's regional
// settings, conversions from a string never do.
#pragma once

#include <ole2.h>
#include <windows.h>

#include "common/text_forms.h"

namespace wendrill::com {

// Converts into an empty VARIANT, or in place. A string is read by US conventions, whatever the desktop: a decimal
// point, the words True and False.
HRESULT ChangeType(VARIANT* target, const VARIANT* source, VARTYPE type);

// Raises a failed conversion's error: 6 for an overflow, 5 for a value out of range, 13 for any other failure.
void CheckConversion(HRESULT status);

// The string forms of this desktop, from the user's regional settings.
const TextForms& UsersTextForms();

}  // namespace wendrill::com
