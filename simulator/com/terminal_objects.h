// The automation classes of the simulated terminal: session list, session, response.
#pragma once

#include <memory>

#include "com/response_event_source.h"
#include "com/server/automation_class.h"
#include "core/simulated_terminal.h"
#include "platform_dispatch.h"

namespace wendrill::simulator {

class HostResponseObject final : public com::AutomationClass<HostResponseObject, &IID__HostResponse, _HostResponse> {
 public:
  explicit HostResponseObject(std::shared_ptr<HostResponse> core) : core_(std::move(core)) {}

  HRESULT STDMETHODCALLTYPE get_Buffer(BSTR* result) override;
  HRESULT STDMETHODCALLTYPE get_HostCommand(BSTR* result) override;
  HRESULT STDMETHODCALLTYPE get_ResponseType(LONG* result) override;
  HRESULT STDMETHODCALLTYPE get_Text(BSTR* result) override;
  HRESULT STDMETHODCALLTYPE get_NumberOfColumns(SHORT* result) override;
  HRESULT STDMETHODCALLTYPE get_NumberOfLines(SHORT* result) override;
  HRESULT STDMETHODCALLTYPE get_Line(SHORT index, BSTR* result) override;

 private:
  std::shared_ptr<HostResponse> core_;
};

class HostSessionObject final : public com::AutomationClass<HostSessionObject, &CLSID_HostSession, _HostSession> {
 public:
  HostSessionObject();  // for the first running session; refers to no session when no session runs
  explicit HostSessionObject(std::shared_ptr<SimulatedSession> core);

  HRESULT STDMETHODCALLTYPE Send(BSTR* entry, VARIANT_BOOL* transmit, _HostResponse** response) override;
  HRESULT STDMETHODCALLTYPE get_LastResponse(_HostResponse** response) override;
  HRESULT STDMETHODCALLTYPE get_SessionName(BSTR* result) override;
  HRESULT STDMETHODCALLTYPE get_HostConnection(IDispatch** result) override;
  HRESULT STDMETHODCALLTYPE SendKey(LONG key, VARIANT_BOOL* accepted) override;

 protected:
  void* FindFurther(REFIID wanted) override;

 private:
  std::shared_ptr<SimulatedSession> core_;
  EventConnections events_{*this, core_};
};

class HostSessionListObject final
    : public com::AutomationClass<HostSessionListObject, &CLSID_HostSessionList, _HostSessionList> {
 public:
  HostSessionListObject();

  HRESULT STDMETHODCALLTYPE Item(VARIANT key, _HostSession** session) override;
  HRESULT STDMETHODCALLTYPE get_Count(LONG* result) override;
  HRESULT STDMETHODCALLTYPE get__NewEnum(IUnknown** result) override;

 private:
  std::shared_ptr<SimulatedSessionList> core_;
};

}  // namespace wendrill::simulator
