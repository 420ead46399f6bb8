#include "pnr/pnr.h"

#include "common/text.h"
#include "pnr/accessor.h"
#include "pnr/accessor_tables.h"
#include "pnr/creation_line.h"
#include "pnr/element_lines.h"
#include "pnr/toolkit_pnr.h"

namespace wendrill {
namespace {

// The numbers (counted from 1) of the fields of the creation line.
constexpr std::int32_t kOffice = 1;
constexpr std::int32_t kAgentSign = 2;
constexpr std::int32_t kDate = 3;

}  // namespace

void CPNR::SetPNR(const ObjectRef& objPNR) {
  ToolkitPnr(state_)->Put(kDefaultProperty, Value(objPNR));
}

std::u16string CPNR::Text() {
  return DisplayText(state_);
}

std::u16string CPNR::RecordLocator() {
  return ToText(HeaderObject(state_)->Get(Member::Name(u"RecordLocator")), state_.texts);
}

std::u16string CPNR::CreationOfficeID() {
  return CreationField(kOffice);
}

std::u16string CPNR::CreationAgentSign() {
  return CreationField(kAgentSign);
}

std::u16string CPNR::CreationDate() {
  return CreationField(kDate);
}

// The n-th field of the creation line (`n` counts from 1); empty when there is no creation line or no n-th field.
// Intentional: after a creation line was found, the display is never searched for a creation line again, even when
// another PNR has been retrieved.
std::u16string CPNR::CreationField(std::int32_t n) {
  if (mstrCreationLine_.empty()) {
    mstrCreationLine_ = CreationLineIn(DisplayText(state_));
  }
  return std::u16string(FieldOf(mstrCreationLine_, n, u"/"));
}

ParamBagRef CPNR::GetMISElement(const ParamBagRef& objParams) {
  return ReadElement(state_, MisAccessor(), objParams);
}

void CPNR::CollectElementLines(const TextArray& prefixes, TextArray& texts, TextArray& numbers) {
  ElementLines found = ElementLinesIn(DisplayText(state_), prefixes);
  texts = std::move(found.texts);
  numbers = std::move(found.numbers);
}

}  // namespace wendrill
