#include "com/terminal_objects.h"

#include "com/lazy_enumerator.h"
#include "com/results.h"
#include "com/simulation.h"

namespace wendrill::simulator {
namespace {

void Give(const std::shared_ptr<HostResponse>& core, _HostResponse** result) {
  *result = core ? new HostResponseObject(core) : nullptr;
}

void Give(const std::shared_ptr<HostSession>& core, _HostSession** result) {
  // The cast is safe: the simulated terminal creates only sessions of the class SimulatedSession.
  *result = core ? new HostSessionObject(std::static_pointer_cast<SimulatedSession>(core)) : nullptr;
}

// Stores in `result` the automation object of the core object that `work` returns, or null when `work` returns null.
// Returns E_POINTER when `result` is null. An exception of `work` becomes the returned status.
template <typename Interface, typename Work>
HRESULT GiveObject(Interface** result, Work&& work) {
  if (result == nullptr) {
    return E_POINTER;
  }
  *result = nullptr;
  return com::Guarded([&] { Give(work(), result); });
}

}  // namespace

HRESULT HostResponseObject::get_Buffer(BSTR* result) {
  return GiveResult(result, [&] { return core_->Buffer(); });
}

HRESULT HostResponseObject::get_HostCommand(BSTR* result) {
  return GiveResult(result, [&] { return core_->HostCommand(); });
}

HRESULT HostResponseObject::get_ResponseType(LONG* result) {
  return GiveResult(result, [&] { return core_->ResponseType(); });
}

HRESULT HostResponseObject::get_Text(BSTR* result) {
  return GiveResult(result, [&] { return core_->Text(); });
}

HRESULT HostResponseObject::get_NumberOfColumns(SHORT* result) {
  return GiveResult(result, [&] { return core_->NumberOfColumns(); });
}

HRESULT HostResponseObject::get_NumberOfLines(SHORT* result) {
  return GiveResult(result, [&] { return core_->NumberOfLines(); });
}

HRESULT HostResponseObject::get_Line(SHORT index, BSTR* result) {
  return GiveResult(result, [&] { return core_->Line(index); });
}

HostSessionObject::HostSessionObject() : core_(TheSimulation().world.MakeSession()) {}

HostSessionObject::HostSessionObject(std::shared_ptr<SimulatedSession> core) : core_(std::move(core)) {}

HRESULT HostSessionObject::Send(BSTR* entry, VARIANT_BOOL* transmit, _HostResponse** response) {
  if (entry == nullptr || transmit == nullptr) {
    return E_POINTER;
  }
  return GiveObject(response, [&] { return core_->Send(com::TextOf(*entry), *transmit != VARIANT_FALSE); });
}

HRESULT HostSessionObject::get_LastResponse(_HostResponse** response) {
  return GiveObject(response, [&] { return core_->LastResponse(); });
}

HRESULT HostSessionObject::get_SessionName(BSTR* result) {
  return GiveResult(result, [&] { return core_->SessionName(); });
}

HRESULT HostSessionObject::get_HostConnection(IDispatch** result) {
  if (result == nullptr) {
    return E_POINTER;
  }
  *result = nullptr;
  return com::Guarded([&] { *result = TheSimulation().bridge.ToAutomation(core_->HostConnection()); });
}

HRESULT HostSessionObject::SendKey(LONG key, VARIANT_BOOL* accepted) {
  return GiveResult(accepted, [&] { return core_->SendKey(key); });
}

void* HostSessionObject::FindFurther(REFIID wanted) {
  return wanted == IID_IConnectionPointContainer ? static_cast<IConnectionPointContainer*>(&events_) : nullptr;
}

HostSessionListObject::HostSessionListObject() : core_(TheSimulation().world.MakeSessionList()) {}

HRESULT HostSessionListObject::Item(VARIANT key, _HostSession** session) {
  return GiveObject(session, [&] { return core_->Item(ValueIn(key)); });
}

HRESULT HostSessionListObject::get_Count(LONG* result) {
  return GiveResult(result, [&] { return core_->Count(); });
}

HRESULT HostSessionListObject::get__NewEnum(IUnknown** result) {
  if (result == nullptr) {
    return E_POINTER;
  }
  *result = nullptr;
  return com::Guarded([&] {
    *result = NewWalkEnumerator([list = core_]() -> WalkStep {
      return [sessions = list->Sessions(), next = std::size_t{0}]() mutable {
        TheSimulation().world.Enter(u"Next");
        _HostSession* session = nullptr;
        if (next < sessions.size()) {
          Give(sessions[next++], &session);
        }
        return com::Reference<IDispatch>::Adopt(session);
      };
    });
  });
}

}  // namespace wendrill::simulator
