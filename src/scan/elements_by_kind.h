// IGetPNR: reads an element by the name of its kind and its index, or all display lines that begin with one of several
// prefixes.
#pragma once

#include "common/module_state.h"
#include "common/param_bag.h"

namespace wendrill {

class CPNR;          // pnr/pnr.h
class DisplayScans;  // scan/display_scans.h

class PnrElements {
 public:
  // REQUIRES: the arguments outlive this object.
  PnrElements(ModuleState& state, CPNR& pnr, DisplayScans& scans) : state_(state), pnr_(pnr), scans_(scans) {}

  // Reads an element of the kind that is named under "strKeyPNRElement", compared exactly: "ATX", "* SP", "SUR", "FH",
  // "FA", "FE", "FS", "OSI", "SSR", "ES", "MIS", "MCO", "INS" or "HTL". Stores the element at "intKeyIndex" (counted
  // from 0) in the caller's bag under the keys of the kind, and returns Nothing.
  //
  // "ALL" is not a kind of element: it searches the display for lines that begin with one of the prefixes in the array
  // under "strKeyFind()" (indexes 1 to the upper bound). Returns a new bag with the arrays "strKeyResult()" and
  // "strKeyElementNbrs()", which count from 1 and are empty when nothing is found.
  //
  // For an empty or unknown kind, stores nothing and returns Nothing.
  //
  // Raises the kind's number (2245 to 2261) for an index that is negative, at or above the count, missing or not a
  // number, and for any other failure. Lack of memory propagates unchanged for every kind. Keys stored before a failure
  // stay in the bag. Exceptions:
  //   - ATX has no number: an index out of range stores nothing and raises nothing, and a failure propagates unchanged.
  //   - MIS raises 2206 only for an index at or above the count. A missing index is 0, and other failures propagate
  //     unchanged.
  //   - A negative index stores nothing and raises nothing for FA, FE, INS, HTL and MIS.
  //   - "ALL" raises 2252 for any failure.
  //   - When the bag is Nothing, or the name of the kind cannot be read from the bag, Elements raises 2252.
  ParamBagRef Elements(const ParamBagRef& objParams);

 private:
  ModuleState& state_;
  CPNR& pnr_;
  DisplayScans& scans_;
};

}  // namespace wendrill
