// The operations of the toolkit's PNR object that load a PNR and read whether a PNR is loaded.
//
// Each function may raise the PNR object's own error. A value of the PNR object that has an unexpected type raises the
// error of the failed conversion, such as 13 (type mismatch).
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "common/value.h"
#include "toolkit/automation_object.h"

namespace wendrill {

// Makes `pnr` load the PNR that is on display, over the host connection `hostConnection`. Returns the toolkit's status
// code unchanged; the toolkit defines the meaning of the codes.
std::int32_t RetrieveOnDisplay(AutomationObject& pnr, const ObjectRef& hostConnection);

// Makes `pnr` send `entry` over the host connection `hostConnection` and load the PNR with which the host answers.
void RetrieveByEntry(AutomationObject& pnr, const ObjectRef& hostConnection, std::u16string_view entry);

// The display text of the loaded PNR.
std::u16string DisplayTextOf(AutomationObject& pnr, const TextForms& forms);

// The header object of the loaded PNR; null when no PNR is loaded.
ObjectRef HeaderOf(AutomationObject& pnr);
// The text of `header`, an object that HeaderOf returned.
std::u16string HeaderText(AutomationObject& header, const TextForms& forms);

}  // namespace wendrill
