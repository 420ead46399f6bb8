// IGetPNR: any element kind of the PNR by its name, or every display line that starts with one of some prefixes.
#pragma once

#include "common/module_state.h"
#include "common/param_bag.h"

namespace wendrill {

class CPNR;          // pnr/pnr.h
class DisplayScans;  // scan/display_scans.h

class PnrElements {
 public:
  // The arguments must outlive this object.
  PnrElements(ModuleState& state, CPNR& pnr, DisplayScans& scans) : state_(state), pnr_(pnr), scans_(scans) {}

  // Reads the kind under "strKeyPNRElement", compared exactly: "ATX", "* SP", "SUR", "FH", "FA", "FE", "FS", "OSI",
  // "SSR", "ES", "MIS", "MCO", "INS", "HTL". The element at "intKeyIndex", counted from 0, goes into the caller's own
  // bag under the kind's keys, and the result is Nothing.
  //
  // "ALL" looks for the prefixes under "strKeyFind()" (entries 1 to the upper bound) and returns a new bag with
  // "strKeyResult()" and "strKeyElementNbrs()", arrays from 1, without entries when nothing is found.
  //
  // An empty or unknown kind writes nothing and returns Nothing.
  //
  // Raises the kind's number (2245 to 2261, MIS 2206) for an index out of range, missing or no number, and for any
  // failure on the way; keys already written stay. ATX has no number: out of range it writes nothing, and a failure
  // travels on as it came. 2252 for a failure of "ALL" or in the reading of the kind.
  ParamBagRef Elements(const ParamBagRef& objParams);

 private:
  ModuleState& state_;
  CPNR& pnr_;
  DisplayScans& scans_;
};

}  // namespace wendrill
