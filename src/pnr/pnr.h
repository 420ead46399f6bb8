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
// object (`gobjPNR`) on each call. A member that needs the PNR object raises 91 when there is none; Command, SetCommand
// and PNR do not need the PNR object. An error of the toolkit propagates unchanged.
class CPNR {
 public:
  explicit CPNR(ModuleState& state) : state_(state) {}
  CPNR(const CPNR&) = delete;
  CPNR& operator=(const CPNR&) = delete;

  // A string that the caller stores here; the library does not use it.
  const std::u16string& Command() const { return strCommand_; }
  void SetCommand(std::u16string_view strCommand) { strCommand_ = strCommand; }

  // The current PNR object; Nothing when there is none, for example before the first connection. Intentional: SetPNR
  // does not replace this object, but assigns to the object's default property.
  ObjectRef PNR() const { return state_.gobjPNR; }
  void SetPNR(const ObjectRef& objPNR);

  std::u16string Text();           // the text of the PNR's display
  std::u16string RecordLocator();  // from the PNR's header object

  // The three fields of the creation line, OFFICE/AGENT/DATE; empty when the display has no creation line. This object
  // keeps the first creation line that it finds, even when another PNR is retrieved later.
  std::u16string CreationOfficeID();
  std::u16string CreationAgentSign();
  std::u16string CreationDate();

  // Stores the MIS element at "intKeyIndex" (counted from 0) under "strKeySegment" and "strKeySegmentNr" in the
  // caller's bag, and returns the bag. Raises 2206 for an index at or above MISElementsCount. A negative index leaves
  // the bag unchanged.
  ParamBagRef GetMISElement(const ParamBagRef& objParams);

  // Returns the elements of the display that begin with one of the prefixes. `texts` receives their texts, each joined
  // with up to four continuation lines, and `numbers` their element numbers. Both arrays count from 1; they are empty
  // when no element is found. The entry of `prefixes` at index 0 is ignored. A prefix of two or three letters is a
  // keyword: its case is ignored, and a blank must follow it. Raises 6 beyond line 32,767.
  void CollectElementLines(const TextArray& prefixes, TextArray& texts, TextArray& numbers);

 private:
  std::u16string CreationField(std::int32_t n);

  ModuleState& state_;
  std::u16string strCommand_;
  std::u16string mstrCreationLine_;
};

}  // namespace wendrill
