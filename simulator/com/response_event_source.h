// The connection point of a session, which holds the sinks for the session's event ReceivedResponse.
#pragma once

#include <ocidl.h>
#include <ole2.h>
#include <windows.h>

#include <map>
#include <memory>

#include "com/server/automation_types.h"
#include "core/simulated_terminal.h"

namespace wendrill::simulator {

// Implements the connection point of a session and the connection point container. An EventConnections is a part of the
// session object: AddRef and Release change the session object's reference count.
class EventConnections final : public IConnectionPointContainer, public IConnectionPoint {
 public:
  EventConnections(IDispatch& session, const std::shared_ptr<SimulatedSession>& core)
      : session_(session), core_(core) {}

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID wanted, void** object) override;
  ULONG STDMETHODCALLTYPE AddRef() override { return session_.AddRef(); }
  ULONG STDMETHODCALLTYPE Release() override { return session_.Release(); }

  HRESULT STDMETHODCALLTYPE EnumConnectionPoints(IEnumConnectionPoints** points) override;
  HRESULT STDMETHODCALLTYPE FindConnectionPoint(REFIID wanted, IConnectionPoint** point) override;

  HRESULT STDMETHODCALLTYPE GetConnectionInterface(IID* connected) override;
  HRESULT STDMETHODCALLTYPE GetConnectionPointContainer(IConnectionPointContainer** container) override;
  HRESULT STDMETHODCALLTYPE Advise(IUnknown* sink, DWORD* cookie) override;
  HRESULT STDMETHODCALLTYPE Unadvise(DWORD cookie) override;
  HRESULT STDMETHODCALLTYPE EnumConnections(IEnumConnections** connections) override;

 private:
  IDispatch& session_;
  const std::shared_ptr<SimulatedSession>& core_;
  struct Connection {
    com::Reference<IDispatch> listener;
    std::unique_ptr<EventConnection> delivery;
  };
  std::map<DWORD, Connection> connections_;  // by cookie; cookies increase, so the oldest connection is first
  DWORD lastCookie_ = 0;
};

}  // namespace wendrill::simulator
