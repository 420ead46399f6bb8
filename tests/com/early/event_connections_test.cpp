// The simulated session's connection point as a client goes through it.
#include <ocidl.h>

#include <vector>

#include "desktop_fixture.h"

namespace wendrill::com::testing {
namespace {

class EventConnections : public Desktop {
 protected:
  void SetUp() override {
    Load(L"session = [{ name = \"A\" }]");
    const auto session = Create<IDispatch>(CLSID_HostSession);
    container_ = session.As<IConnectionPointContainer>();
    ASSERT_TRUE(container_);
    ASSERT_EQ(S_OK, container_->FindConnectionPoint(DIID__HostSessionEvents, point_.Receive()));
  }

  void TearDown() override {
    point_ = {};
    container_ = {};
    Desktop::TearDown();
  }

  // A listener need only be a dispatch object.
  DWORD Connect(const Reference<_ParamBag>& listener) {
    DWORD cookie = 0;
    EXPECT_EQ(S_OK, point_->Advise(listener.Get(), &cookie));
    EXPECT_NE(0U, cookie);
    return cookie;
  }

  Reference<IEnumConnections> Connections() {
    Reference<IEnumConnections> connections;
    EXPECT_EQ(S_OK, point_->EnumConnections(connections.Receive()));
    return connections;
  }

  static std::vector<DWORD> CookiesLeft(const Reference<IEnumConnections>& connections) {
    std::vector<DWORD> cookies;
    CONNECTDATA connection{};
    ULONG fetched = 0;
    while (connections->Next(1, &connection, &fetched) == S_OK) {
      EXPECT_EQ(1U, fetched);
      cookies.push_back(connection.dwCookie);
      connection.pUnk->Release();
    }
    EXPECT_EQ(0U, fetched);
    return cookies;
  }

  Reference<IConnectionPointContainer> container_;
  Reference<IConnectionPoint> point_;
};

TEST_F(EventConnections, TheOnePointIsEnumerated) {
  Reference<IEnumConnectionPoints> points;
  ASSERT_EQ(S_OK, container_->EnumConnectionPoints(points.Receive()));
  IConnectionPoint* found[2]{};
  ULONG fetched = 99;
  EXPECT_EQ(S_FALSE, points->Next(2, found, &fetched));
  ASSERT_EQ(1U, fetched);
  const auto first = Reference<IConnectionPoint>::Adopt(found[0]);
  EXPECT_EQ(nullptr, found[1]);
  EXPECT_EQ(point_.Get(), first.Get());
  IID connected{};
  EXPECT_EQ(S_OK, first->GetConnectionInterface(&connected));
  EXPECT_EQ(DIID__HostSessionEvents, connected);

  Reference<IEnumConnectionPoints> atTheEnd;
  ASSERT_EQ(S_OK, points->Clone(atTheEnd.Receive()));
  Reference<IConnectionPoint> none;
  EXPECT_EQ(S_FALSE, atTheEnd->Next(1, none.Receive(), nullptr));
  EXPECT_EQ(S_OK, points->Reset());
  EXPECT_EQ(S_OK, points->Skip(1));
  EXPECT_EQ(S_FALSE, points->Skip(1));
}

TEST_F(EventConnections, ConnectionsAreEnumeratedAsTheyWereAtTheBeginning) {
  const auto first = Create<_ParamBag>(CLSID_ParamBag);
  const auto second = Create<_ParamBag>(CLSID_ParamBag);
  const std::vector<DWORD> none;
  EXPECT_EQ(none, CookiesLeft(Connections()));
  const std::vector<DWORD> both{Connect(first), Connect(second)};
  const auto connections = Connections();

  CONNECTDATA connection{};
  ULONG fetched = 0;
  ASSERT_EQ(S_OK, connections->Next(1, &connection, &fetched));
  EXPECT_EQ(static_cast<IDispatch*>(first.Get()), connection.pUnk);
  connection.pUnk->Release();
  EXPECT_EQ(S_OK, connections->Reset());

  EXPECT_EQ(S_OK, point_->Unadvise(both[0]));
  EXPECT_EQ(both, CookiesLeft(connections));
  EXPECT_EQ(std::vector<DWORD>{both[1]}, CookiesLeft(Connections()));
  EXPECT_EQ(S_OK, point_->Unadvise(both[1]));
}

TEST_F(EventConnections, AnEnumeratorOutlivesItsSession) {
  const auto listener = Create<_ParamBag>(CLSID_ParamBag);
  const DWORD cookie = Connect(listener);
  const auto connections = Connections();
  EXPECT_EQ(S_OK, point_->Unadvise(cookie));
  point_ = {};
  container_ = {};
  EXPECT_EQ(std::vector<DWORD>{cookie}, CookiesLeft(connections));
}

TEST_F(EventConnections, NowhereToPutAnAnswerIsRejected) {
  EXPECT_EQ(E_POINTER, container_->EnumConnectionPoints(nullptr));
  EXPECT_EQ(E_POINTER, point_->EnumConnections(nullptr));
  const auto connections = Connections();
  EXPECT_EQ(E_POINTER, connections->Next(1, nullptr, nullptr));
  EXPECT_EQ(E_POINTER, connections->Clone(nullptr));
  CONNECTDATA two[2]{};
  EXPECT_EQ(E_POINTER, connections->Next(2, two, nullptr));
}

}  // namespace
}  // namespace wendrill::com::testing
