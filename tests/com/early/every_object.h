// One object of every interface that the library publishes, on a desktop with a PNR.
#pragma once

#include <string>
#include <vector>

#include "desktop_fixture.h"

namespace wendrill::com::testing {

class EveryObject : public Desktop {
 protected:
  void SetUp() override;
  void TearDown() override;

  // StopLoop is among the members: after each call the session is chosen again, and the journal forgotten.
  void Reconnect();

  Reference<_CQuillet> quillet_;
  Reference<_ParamBag> bag_;
  std::vector<Reference<IDispatch>> objects_;  // a pointer to each interface, CPNR's three one by one
};

std::string Narrow(const std::wstring& text);

}  // namespace wendrill::com::testing
