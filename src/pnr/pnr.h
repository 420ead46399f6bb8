// CPNR's own members: text, locator and creation line of the PNR retrieved last.
//
// Terms such as PNR, entry, segment and association: docs/glossary.md.
#pragma once

#include <string>
#include <string_view>

#include "common/module_state.h"
#include "common/param_bag.h"
#include "common/value.h"

namespace wendrill {

// Holds no PNR and sends no entry: every member reads, on each call, the one PNR object of the process (`gobjPNR`).
// Without a PNR object, every member but Command and PNR raises 91. An error of the toolkit propagates unchanged.
class CPNR {
 public:
  explicit CPNR(ModuleState& state) : state_(state) {}
  CPNR(const CPNR&) = delete;
  CPNR& operator=(const CPNR&) = delete;

  // A string that the caller stores; the library does not use it.
  const std::u16string& Command() const { return strCommand_; }
  void SetCommand(std::u16string_view strCommand) { strCommand_ = strCommand; }

  // The current PNR object; Nothing before the first connection. Intentional: setting PNR assigns to the default
  // property of the current object and does not replace the object.
  ObjectRef PNR() const { return state_.gobjPNR; }
  void SetPNR(const ObjectRef& objPNR);

  std::u16string Text();           // the PNR display text
  std::u16string RecordLocator();  // from the PNR's header object

  // The three fields of the creation line, OFFICE/AGENT/DATE; empty when the display has no creation line. The first
  // creation line found is kept for the life of this object, whatever PNR is retrieved later.
  std::u16string CreationOfficeID();
  std::u16string CreationAgentSign();
  std::u16string CreationDate();

  // Stores one MIS element, "intKeyIndex" counted from 0, under "strKeySegment" and "strKeySegmentNr" of the caller's
  // bag, and returns the bag. Raises 2206 for an index at or above MISElementsCount; a negative index leaves the bag
  // unchanged.
  ParamBagRef GetMISElement(const ParamBagRef& objParams);

  // The elements of the display that begin with one of the prefixes: their texts, each with up to four continuation
  // lines, and their numbers, both counted from 1; empty arrays when no element is found. The entry of `prefixes` with
  // index 0 is never tried. A prefix of two or three letters means that keyword and a blank, whatever its case. Raises
  // 6 beyond line 32,767.
  void CollectElementLines(const TextArray& prefixes, TextArray& texts, TextArray& numbers);

 private:
  std::u16string CreationField(std::int32_t n);

  ModuleState& state_;
  std::u16string strCommand_;
  std::u16string mstrCreationLine_;
};

}  // namespace wendrill
