// CPNR's own members: the display text, the record locator and the creation line of the PNR that was retrieved last.
//
// Terms such as PNR, entry, segment and association: docs/glossary.md.
#pragma once

#include <string>
#include <string_view>

#include "common/module_state.h"
#include "common/param_bag.h"
#include "common/value.h"

namespace wendrill {

// A CPNR contains no PNR data except the creation line, and sends no entry. Its members read the process-wide PNR
// object (`gobjPNR`) on each call and raise 91 (object not set) when there is no PNR object. Exceptions:
//   - Command, SetCommand and PNR never raise 91.
//   - Once a creation line has been found, the creation fields do not read the PNR object again.
//
// An error of the toolkit propagates unchanged.
class CPNR {
 public:
  explicit CPNR(ModuleState& state) : state_(state) {}
  CPNR(const CPNR&) = delete;
  CPNR& operator=(const CPNR&) = delete;

  // A string that the caller stores here; the library does not use it.
  const std::u16string& Command() const { return strCommand_; }
  void SetCommand(std::u16string_view strCommand) { strCommand_ = strCommand; }

  // The current PNR object; Nothing when no PNR object exists, for example before the first connection. Intentional:
  // SetPNR does not replace the current PNR object, but assigns `objPNR` to the default property of the current PNR
  // object.
  ObjectRef PNR() const { return state_.gobjPNR; }
  void SetPNR(const ObjectRef& objPNR);

  std::u16string Text();           // the text of the PNR's display
  std::u16string RecordLocator();  // the record locator, read from the PNR's header object

  // The fields of the creation line, OFFICE/AGENT/DATE. A field is empty when the display has no creation line or the
  // creation line lacks the field. A CPNR keeps the first creation line that it finds, even when another PNR is
  // retrieved later.
  std::u16string CreationOfficeID();
  std::u16string CreationAgentSign();
  std::u16string CreationDate();

  // Stores the text and the element number of an MIS element under "strKeySegment" and "strKeySegmentNr" in the
  // caller's bag, and returns the bag. Reads the index of the element (counted from 0) from "intKeyIndex" in the bag.
  // Raises 2206 for an index at or above MISElementsCount. Stores nothing when the index is below this count, but no
  // element has the index, for example for the index -1.
  ParamBagRef GetMISElement(const ParamBagRef& objParams);

  // Collects the elements of the display that begin with one of the prefixes; the search ends at the first empty line.
  // `texts` receives the texts of these elements, each joined with up to four continuation lines, and `numbers`
  // receives the element numbers. Both arrays count from 1; they are empty when no element is found.
  //
  // A prefix at an index below 1 of `prefixes` is ignored. A prefix of two or three characters is a keyword: its case
  // is ignored, and a blank must follow the keyword in the element. Raises 6 (overflow) beyond line 32,767, and 9
  // (index out of range) when `prefixes` is not empty and its lower bound is above 1.
  void CollectElementLines(const TextArray& prefixes, TextArray& texts, TextArray& numbers);

 private:
  std::u16string CreationField(std::int32_t n);

  ModuleState& state_;
  std::u16string strCommand_;
  std::u16string mstrCreationLine_;
};

}  // namespace wendrill
