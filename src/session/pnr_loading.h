// The operations of the toolkit's PNR object that load a PNR and show whether one is loaded.
//
// Each may raise the object's own error, and the error of the conversion when a value has an unexpected type.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "common/value.h"
#include "toolkit/automation_object.h"

namespace wendrill {

// Loads the PNR on display. Returns the toolkit's status unchanged; its values are the toolkit's own.
std::int32_t RetrieveOnDisplay(AutomationObject& pnr, const ObjectRef& hostConnection);

// Sends an entry and loads the PNR that answers it.
void RetrieveByEntry(AutomationObject& pnr, const ObjectRef& hostConnection, std::u16string_view entry);

// The display text of the loaded PNR.
std::u16string DisplayTextOf(AutomationObject& pnr, const TextForms& forms);

// The header of the loaded PNR; Nothing when no PNR is loaded.
ObjectRef HeaderOf(AutomationObject& pnr);
std::u16string HeaderText(AutomationObject& header, const TextForms& forms);

}  // namespace wendrill
