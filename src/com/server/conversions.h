// Conversions between automation types by the system's functions. Conversions to a string follow the user's regional
// settings. Conversions from a string follow US conventions, with one exception: UsersTextForms().DateOf reads a date
// by the user's regional settings.
#pragma once

#include <ole2.h>
#include <windows.h>

#include "common/text_forms.h"

namespace wendrill::com {

// Converts `source` to `type` and stores the result in `target`, which is an empty VARIANT or `source` itself. A string
// result follows the user's regional settings. A source string is always read by US conventions, independent of the
// user's settings: with a decimal point, and with the words True and False. Returns the status of the system's
// conversion.
HRESULT ChangeType(VARIANT* target, const VARIANT* source, VARTYPE type);

// Raises the run-time error for the status of a failed conversion: 6 (overflow) for DISP_E_OVERFLOW, 5 (invalid
// argument) for a value out of range (E_INVALIDARG), 13 (type mismatch) for any other failure. Throws std::bad_alloc
// when memory is short. Does nothing for S_OK.
void CheckConversion(HRESULT status);

// The conversions of numbers and dates to strings, and of strings to dates, according to the user's regional settings.
const TextForms& UsersTextForms();

}  // namespace wendrill::com
