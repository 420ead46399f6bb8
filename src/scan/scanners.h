// The nine scanners: the keys of each kind, in the order in which its getter copies them, and its scan.
//
// A scan fills arrays that have just been reset and returns the number of elements found. Errors of the toolkit and
// overflow (6) propagate unchanged.
//
// Terms such as PNR, entry, segment and association: docs/glossary.md.
#pragma once

#include <array>

#include "common/module_state.h"
#include "common/text.h"
#include "scan/display_walk.h"
#include "scan/element_arrays.h"

namespace wendrill {

// Intentional: the seat flag is stored and returned as a string, "True" or "False", not as a Boolean.
inline constexpr std::array kSpecialServiceKeys = {
    ArrayKey{u"strKeyElement"},
    ArrayKey{u"strKeyElementNr"},
    ArrayKey{u"strKeyStatus"},
    ArrayKey{u"strKeyPasAsso"},
    ArrayKey{u"strKeySegAsso"},
    ArrayKey{u"strKeyCode"},
    ArrayKey{u"strKeyAirline"},
    ArrayKey{u"strKeyFFNnumber"},
    ArrayKey{u"strKeyFreeText"},
    ArrayKey{u"strKeySeatNbr"},
    ArrayKey{u"blnKeySeat", ArrayType::Text, u"False"},
    ArrayKey{u"blnKeyAsterix", ArrayType::Flag},
};
ScanCount ScanSpecialServiceElements(TextView display, ElementArrays& arrays);

inline constexpr std::array kOtherServiceKeys = {
    ArrayKey{u"strKeyElement"}, ArrayKey{u"strKeyElementNr"}, ArrayKey{u"strKeyText"},
    ArrayKey{u"strKeyPasAsso"}, ArrayKey{u"strKeyAirline"},
};
// Reads the display again for each row.
ScanCount ScanOtherServiceElements(const ModuleState& state, ElementArrays& arrays);

inline constexpr std::array kSecurityKeys = {
    ArrayKey{u"strKeyItem"},
    ArrayKey{u"strKeyOfficeID"},
    ArrayKey{u"strKeyAccessMode"},
};
ScanCount ScanSecurityElements(TextView display, ElementArrays& arrays);

inline constexpr std::array kManualTktKeys = {
    ArrayKey{u"strKeyElement"},
    ArrayKey{u"strKeyElementNr"},
    ArrayKey{u"strKeyTktNbr"},
    ArrayKey{u"strKeyPasAsso"},
    ArrayKey{u"strKeySegAsso"},
    ArrayKey{u"strKeyAirline"},
    ArrayKey{u"blnKeyManual", ArrayType::Flag},
    ArrayKey{u"blnKeyAutomated", ArrayType::Flag},
    ArrayKey{u"blnKeyElectronic", ArrayType::Flag},
};
ScanCount ScanManualTktElements(TextView display, ElementArrays& arrays);

inline constexpr std::array kMiscTktInfoKeys = {
    ArrayKey{u"strKeyElement"}, ArrayKey{u"strKeyElementNr"}, ArrayKey{u"strKeyText"},    ArrayKey{u"strKeyPasAsso"},
    ArrayKey{u"strKeySegAsso"}, ArrayKey{u"strKeyTourCode"},  ArrayKey{u"strKeyNetFare"}, ArrayKey{u"strKeySellFare"},
};
ScanCount ScanMiscTktInfoElements(TextView display, ElementArrays& arrays);

inline constexpr std::array kSURKeys = {
    ArrayKey{u"strKeyElement"},
    ArrayKey{u"strKeyElementNr"},
    ArrayKey{u"strKeyAddress"},
    ArrayKey{u"strKeyPUTime"},
    ArrayKey{u"blnKeyArrival", ArrayType::Flag},
    ArrayKey{u"blnKeyDeparture", ArrayType::Flag},
    ArrayKey{u"strKeyPasAsso"},
};
// Reads the PNR object's element collection instead of the display.
ScanCount ScanSURElements(const ModuleState& state, ElementArrays& arrays);

inline constexpr std::array kSPKeys = {
    ArrayKey{u"strKeyElement"},
    ArrayKey{u"strKeyRecLoc"},
};
// Reads the display again for each line.
ScanCount ScanSPElements(const ModuleState& state, ElementArrays& arrays);

inline constexpr std::array kATXKeys = {
    ArrayKey{u"strKeySegment"},  ArrayKey{u"strKeySegmentNr"}, ArrayKey{u"strKeyDepCity"},  ArrayKey{u"strKeyArrCity"},
    ArrayKey{u"strKeyProvider"}, ArrayKey{u"strKeyDepDate"},   ArrayKey{u"strKeyFreeText"}, ArrayKey{u"strKeyStatus"},
};
ScanCount ScanATXSegments(TextView display, ElementArrays& arrays);

inline constexpr std::array kMCOKeys = {
    ArrayKey{u"strKeyElement"},        ArrayKey{u"strKeyElementNr"},    ArrayKey{u"strKeyAirline"},
    ArrayKey{u"strKeyOrigin"},         ArrayKey{u"strKeyDepDate"},      ArrayKey{u"strKeyPasAsso"},
    ArrayKey{u"strKeyFare"},           ArrayKey{u"strKeyServiceType"},  ArrayKey{u"strKeyMCOFAElement"},
    ArrayKey{u"strKeyMCOFATicketNbr"}, ArrayKey{u"strKeyMCOFPElement"}, ArrayKey{u"strKeyMCOFMElement"},
};
ScanCount ScanMCOElements(TextView display, ElementArrays& arrays);

}  // namespace wendrill
