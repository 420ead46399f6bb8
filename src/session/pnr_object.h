// The operations of the toolkit's PNR object that load it and tell whether it holds a PNR.
//
// Each may fail with the object's own error; a value of another type than expected fails as its conversion does.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "common/value.h"
#include "toolkit/automation_object.h"

namespace wendrill {

// Loads the PNR on display; returns the toolkit's status, whose meaning is the toolkit's.
std::int32_t RetrieveOnDisplay(AutomationObject& pnr, const ObjectRef& hostConnection);

// Sends an entry and loads the PNR that answers it.
void RetrieveByEntry(AutomationObject& pnr, const ObjectRef& hostConnection, std::u16string_view entry);

// The display text of the loaded PNR.
std::u16string DisplayTextOf(AutomationObject& pnr, const TextForms& forms);

// The header of the loaded PNR; Nothing when none is loaded.
ObjectRef HeaderOf(AutomationObject& pnr);
std::u16string HeaderText(AutomationObject& header, const TextForms& forms);

}  // namespace wendrill
