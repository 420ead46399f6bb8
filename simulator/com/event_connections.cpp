#include "com/event_connections.h"

#include <olectl.h>

#include "com/server/automation_types.h"
#include "com/server/boundary.h"
#include "com/terminal_objects.h"

namespace wendrill::simulator {
namespace {

constexpr DISPID kReceivedResponse = 1;  // as in _HostSessionEvents

// Tells one listener of the newest response.
void Fire(IDispatch* sink, const std::shared_ptr<HostResponse>& response) {
  com::OwnedVariant argument;
  V_VT(&argument) = VT_DISPATCH;
  V_DISPATCH(&argument) = response ? new HostResponseObject(response) : nullptr;
  DISPPARAMS arguments{&argument, nullptr, 1, 0};
  // What a listener answers is its own affair.
  sink->Invoke(kReceivedResponse, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &arguments, nullptr, nullptr,
               nullptr);
}

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
  return E_NOTIMPL;  // there is one point, and it is found by its interface
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
    // The session outlives its connections, so the handler may refer to it.
    const std::weak_ptr<SimulatedSession> session = core_;
    connections_[lastCookie_ + 1] = core_->OnReceivedResponse([listener, session] {
      if (const auto alive = session.lock()) {
        Fire(listener.Get(), alive->NewestResponse());
      }
    });
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
  return E_NOTIMPL;
}

}  // namespace wendrill::simulator
