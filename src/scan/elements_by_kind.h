// IGetPNR: reads an element of any kind by the kind's name, or all display lines that begin with one of several
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

  // Reads the kind under "strKeyPNRElement", compared exactly: "ATX", "* SP", "SUR", "FH", "FA", "FE", "FS", "OSI",
  // "SSR", "ES", "MIS", "MCO", "INS", "HTL". The element at "intKeyIndex", counted from 0, is stored in the caller's
  // own bag under the kind's keys, and the result is Nothing.
  //
  // "ALL" looks for the prefixes under "strKeyFind()" (entries 1 to the upper bound) and returns a new bag with
  // "strKeyResult()" and "strKeyElementNbrs()", arrays from 1, without entries when nothing is found.
  //
  // An empty or unknown kind stores nothing and returns Nothing.
  //
  // Raises the kind's number (2245 to 2261, MIS 2206) for an index that is out of range, missing or not a number, and
  // for any other failure; keys already stored stay in the bag. ATX has no number: an index out of range stores
  // nothing, and a failure propagates unchanged. Raises 2252 when "ALL" fails or the kind cannot be read from the bag.
  ParamBagRef Elements(const ParamBagRef& objParams);

 private:
  ModuleState& state_;
  CPNR& pnr_;
  DisplayScans& scans_;
};

}  // namespace wendrill
