#include "support/kind_references.h"

#include <algorithm>
#include <cstdlib>

namespace wendrill::testing {
namespace {

ReferenceScan ReferenceSURInLines(const ReadDisplay& read) {
  return ReferenceSUR(ElementsIn(read()));
}

constexpr KindReference kReferences[] = {
    {&kSpecialServiceElements, ReferenceSpecialService, u"12 *SSR NSST SK HK2 PARLON/12A,P1/12B,P2/S3", false},
    {&kOtherServiceElements, ReferenceOtherService, u" 12 OSI SK CTCP 0123 456789/P1", true},
    {&kSecurityElements, ReferenceSecurity, u"  * ES/B PARXX0 100A/R LONXX0 ALL", false},
    {&kManualTktElements, ReferenceManualTkt, u"12 FHE PAX 117-1234567890/S3/P1", false},
    {&kMiscTktInfoElements, ReferenceMiscTktInfo, u"12 FS PAX N-100.00,S-120.50,T-TOUR1/S3/P1", false},
    {&kSURElements, ReferenceSURInLines, u"SUR/1030/A/PARIS/RUE DE RIVOLI/P2", false},
    {&kSPElements, ReferenceSP, u"  * SP 12JUN/0001AA/PARXX0100-ABC123", false},
    {&kATXSegments, ReferenceATX, u"12  ATX YY HK1 PARLON 12JUN-BY TRAIN", false},
    {&kMCOElements, ReferenceMCO, u"12 MCO SK PAR 12JUN/USD100.00/*BAGGAGE/P2", false},
    {&kValidatingAirlineElements, ReferenceValidatingAirline, u" 12 FV PAX *F*LH/S3/P1", false},
    {&kAirSequenceNrElements, ReferenceAirSequence, u" 18 FB 0000000001 TTP/S2/P1", true},
};

}  // namespace

const KindReference& ReferenceOf(const DisplayKind& kind) {
  const auto* found = std::ranges::find(kReferences, &kind, &KindReference::kind);
  if (found == std::end(kReferences)) {
    std::abort();
  }
  return *found;
}

std::vector<ReferenceElement> ElementsIn(std::u16string_view display) {
  std::vector<ReferenceElement> elements;
  for (DisplayLines lines(display); !lines.AtEnd();) {
    const TextView line = lines.Next();
    const TextView number = Contains(line, u"|") ? Before(line, u"|") : TextView();
    const TextView text = Contains(line, u"|") ? FromColumn(line, ColumnOf(line, u"|") + 1) : line;
    elements.push_back({std::u16string(text), std::u16string(number)});
  }
  return elements;
}

}  // namespace wendrill::testing
