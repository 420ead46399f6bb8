// The operations of the toolkit's PNR object that load a PNR and read whether a PNR is loaded.
//
// Each function may raise the PNR object's own error. When a value of the PNR object has an unexpected type, the
// function raises the error of the conversion, such as 13.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "common/value.h"
#include "toolkit/automation_object.h"

namespace wendrill {

// Loads the PNR that is on display into `pnr`. Returns the toolkit's status code unchanged; the toolkit defines the
// codes.
std::int32_t RetrieveOnDisplay(AutomationObject& pnr, const ObjectRef& hostConnection);

// Sends an entry and loads the PNR with which the host answers into `pnr`.
void RetrieveByEntry(AutomationObject& pnr, const ObjectRef& hostConnection, std::u16string_view entry);

// The display text of the loaded PNR.
std::u16string DisplayTextOf(AutomationObject& pnr, const TextForms& forms);

// The header object of the loaded PNR; null when no PNR is loaded.
ObjectRef HeaderOf(AutomationObject& pnr);
// The text of a header object that HeaderOf returned.
std::u16string HeaderText(AutomationObject& header, const TextForms& forms);

}  // namespace wendrill
