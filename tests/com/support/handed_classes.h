// Classes that the main apartment hands to a client in another one.
//
// A client can look a class up by itself. But each such look-up from another apartment keeps a reference to the class's
// factory for good under Wine, so that DllCanUnloadNow could not tell any more whether the client left anything behind.
#pragma once

#include <ole2.h>
#include <windows.h>

#include <utility>
#include <vector>

#include "com/server/automation_types.h"

namespace wendrill::com::testing {

// Made in the main apartment; for one client.
class HandedClasses {
 public:
  explicit HandedClasses(const std::vector<CLSID>& classes);

 private:
  friend class TakenClasses;
  std::vector<std::pair<CLSID, IStream*>> factories_;
};

// Made and used in the client's apartment.
class TakenClasses {
 public:
  explicit TakenClasses(HandedClasses& handed);

  // As CoCreateInstance; REGDB_E_CLASSNOTREG for a class that was not handed over.
  HRESULT Create(const CLSID& id, const IID& wanted, void** object) const;

 private:
  std::vector<std::pair<CLSID, Reference<IClassFactory>>> factories_;
};

}  // namespace wendrill::com::testing
