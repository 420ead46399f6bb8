#include "com/response_event_source.h"

#include <olectl.h>

#include <utility>
#include <vector>

#include "com/server/boundary.h"
#include "com/server/snapshot_enumerator.h"
#include "com/terminal_objects.h"

namespace wendrill::simulator {
namespace {

constexpr DISPID kReceivedResponse = 1;  // the DISPID of ReceivedResponse in _HostSessionEvents

// Calls the sink's ReceivedResponse with the response, or with Nothing when `response` is null.
void Fire(IDispatch* sink, const std::shared_ptr<HostResponse>& response) {
  com::OwnedVariant argument;
  V_VT(&argument) = VT_DISPATCH;
  V_DISPATCH(&argument) = response ? new HostResponseObject(response) : nullptr;
  DISPPARAMS arguments{&argument, nullptr, 1, 0};
  // The status is ignored: a sink that fails must not prevent the delivery to the next sink.
  sink->Invoke(kReceivedResponse, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &arguments, nullptr, nullptr,
               nullptr);
}

void GivePoint(const com::Reference<IConnectionPoint>& point, IConnectionPoint** result) {
  *result = com::Reference<IConnectionPoint>(point).Release();
}
using PointEnumerator =
    com::SnapshotEnumerator<IEnumConnectionPoints, com::Reference<IConnectionPoint>, IConnectionPoint*, GivePoint>;

struct Listening {
  com::Reference<IDispatch> listener;
  DWORD cookie;
};
void GiveListener(const Listening& listening, CONNECTDATA* result) {
  *result = {com::Reference<IDispatch>(listening.listener).Release(), listening.cookie};
}
using ListenerEnumerator = com::SnapshotEnumerator<IEnumConnections, Listening, CONNECTDATA, GiveListener>;

}  // namespace

HRESULT EventConnections::QueryInterface(REFIID wanted, void** object) {
  if (object != nullptr && wanted == IID_IConnectionPoint) {
    *object = static_cast<IConnectionPoint*>(this);
    AddRef();
    return S_OK;
  }
  return session_.QueryInterface(wanted, object);
}

HRESULT EventConnections::EnumConnectionPoints(IEnumConnectionPoints** points) {
  if (points == nullptr) {
    return E_POINTER;
  }
  *points = nullptr;
  return com::Guarded([&] { *points = new PointEnumerator({com::Reference<IConnectionPoint>(this)}); });
}

HRESULT EventConnections::FindConnectionPoint(REFIID wanted, IConnectionPoint** point) {
  if (point == nullptr) {
    return E_POINTER;
  }
  *point = nullptr;
  if (wanted != DIID__HostSessionEvents) {
    return CONNECT_E_NOCONNECTION;
  }
  *point = this;
  AddRef();
  return S_OK;
}

HRESULT EventConnections::GetConnectionInterface(IID* connected) {
  if (connected == nullptr) {
    return E_POINTER;
  }
  *connected = DIID__HostSessionEvents;
  return S_OK;
}

HRESULT EventConnections::GetConnectionPointContainer(IConnectionPointContainer** container) {
  if (container == nullptr) {
    return E_POINTER;
  }
  *container = this;
  AddRef();
  return S_OK;
}

HRESULT EventConnections::Advise(IUnknown* sink, DWORD* cookie) {
  if (sink == nullptr || cookie == nullptr) {
    return E_POINTER;
  }
  *cookie = 0;
  com::Reference<IDispatch> listener;
  if (FAILED(sink->QueryInterface(DIID__HostSessionEvents, listener.ReceiveVoid())) &&
      FAILED(sink->QueryInterface(IID_IDispatch, listener.ReceiveVoid()))) {
    return CONNECT_E_CANNOTCONNECT;
  }
  return com::Guarded([&] {
    // The handler holds only a weak reference to the session, but `session.lock()` succeeds whenever the handler runs:
    // the session object owns the session and this connection, and destroys the connection first.
    const std::weak_ptr<SimulatedSession> session = core_;
    auto delivery = core_->OnReceivedResponse([listener, session] {
      if (const auto alive = session.lock()) {
        Fire(listener.Get(), alive->NewestResponse());
      }
    });
    connections_.emplace(lastCookie_ + 1, Connection{listener, std::move(delivery)});
    *cookie = ++lastCookie_;
  });
}

HRESULT EventConnections::Unadvise(DWORD cookie) {
  return connections_.erase(cookie) == 1 ? S_OK : CONNECT_E_NOCONNECTION;
}

HRESULT EventConnections::EnumConnections(IEnumConnections** connections) {
  if (connections == nullptr) {
    return E_POINTER;
  }
  *connections = nullptr;
  return com::Guarded([&] {
    std::vector<Listening> listening;
    for (const auto& [cookie, connection] : connections_) {
      listening.push_back({connection.listener, cookie});
    }
    *connections = new ListenerEnumerator(std::move(listening));
  });
}

}  // namespace wendrill::simulator
