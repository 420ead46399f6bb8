// The members that read one element into a bag, and where each finds its elements.
#pragma once

#include <functional>
#include <iosfwd>
#include <string>
#include <string_view>
#include <vector>

#include "common/param_bag.h"
#include "support/pnr_desk.h"

namespace wendrill::testing {

// How a member finds its element by "intKeyIndex".
enum class IndexRule {
  None,     // it does not read the index
  Segment,  // converts it to 16 bits, then compares it with the count
  Element,  // compares it unchanged, then converts it
  Array,    // the same, and looks it up in the arrays that the scan of the display fills
};

struct MemberRow {
  std::string name;
  std::string sample;  // one of its data files
  std::int32_t error;  // the member's own number
  bool returnsBag;
  IndexRule index;
  std::function<void(const PnrDesk&, std::vector<ObjectRef>)> hold;   // puts the elements where the member finds them
  std::function<ParamBagRef(ModuleState&, const ParamBagRef&)> call;  // on a new CPNR
};

std::ostream& operator<<(std::ostream& out, const MemberRow& row);

// The twenty members of IGet in the interface's order, and MISElement.
const std::vector<MemberRow>& Members();

// Null for a name that no member has.
const MemberRow* MemberNamed(std::string_view name);

// A PNR in which the member finds that many elements, each with its position (from 0) as element number, and nothing
// else.
void HoldSamples(const PnrDesk& desk, const MemberRow& member, int count);

}  // namespace wendrill::testing
