// CPNR's own members: what the PNR retrieved last says about itself.
#pragma once

#include <string>
#include <string_view>

#include "common/module_state.h"
#include "common/param_bag.h"
#include "common/value.h"

namespace wendrill {

// Holds no PNR and sends nothing: every member reads, when it is called, the one PNR of the process (`gobjPNR`).
// Without one, every member but Command and PNR fails with 91. A failing toolkit call reaches the caller unchanged.
class CPNR {
 public:
  explicit CPNR(ModuleState& state) : state_(state) {}
  CPNR(const CPNR&) = delete;
  CPNR& operator=(const CPNR&) = delete;

  // A text of the caller's; nothing else reads it.
  const std::u16string& Command() const { return strCommand_; }
  void SetCommand(std::u16string_view strCommand) { strCommand_ = strCommand; }

  // The current PNR object, Nothing when there is none. Setting assigns to the default property of the current object
  // and leaves the reference as it is: meant so.
  ObjectRef PNR() const { return state_.gobjPNR; }
  void SetPNR(const ObjectRef& objPNR);

  std::u16string Text();           // the PNR display text
  std::u16string RecordLocator();  // from the PNR's header object

  // The three fields of the creation line, OFFICE/AGENT/DATE; empty when the display has none. The first line found is
  // kept for the life of this object, whatever is retrieved later.
  std::u16string CreationOfficeID();
  std::u16string CreationAgentSign();
  std::u16string CreationDate();

  // One MIS element, "intKeyIndex" counted from 0, into "strKeySegment" and "strKeySegmentNr" of the caller's bag,
  // which is returned. 2206 for an index at or beyond MISElementsCount; a negative one leaves the bag as it is.
  ParamBagRef GetMISElement(const ParamBagRef& objParams);

  // The elements on display that begin with one of the prefixes: their texts, each with up to four continuation lines,
  // and their numbers, both counted from 1; no entries when none is found. The entry with index 0 of `prefixes` is
  // never tried; a prefix of two or three letters stands for that keyword, in whatever case. 6 beyond line 32,767.
  void CollectElementLines(const TextArray& prefixes, TextArray& texts, TextArray& numbers);

 private:
  std::u16string CreationField(std::int32_t n);

  ModuleState& state_;
  std::u16string strCommand_;
  std::u16string mstrCreationLine_;
};

}  // namespace wendrill
