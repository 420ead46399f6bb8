#include "com/terminal_objects.h"

#include "com/object_walk_enumerator.h"
#include "com/results.h"
#include "com/simulation.h"

namespace wendrill::com {

template <>
const DispatchTable& TableOf<_HostResponse>() {
  using I = _HostResponse;
  static constexpr auto kMembers = std::to_array<DispatchRow>({
      Property<&I::get_Buffer>(1, L"Buffer"),
      Property<&I::get_HostCommand>(2, L"HostCommand"),
      Property<&I::get_ResponseType>(3, L"ResponseType"),
      Property<&I::get_Text>(4, L"Text"),
      Property<&I::get_NumberOfColumns>(5, L"NumberOfColumns"),
      Property<&I::get_NumberOfLines>(6, L"NumberOfLines"),
      Property<&I::get_Line>(7, L"Line", {L"index"}),
  });
  static const DispatchTable table(kMembers);
  return table;
}

template <>
const DispatchTable& TableOf<_HostSession>() {
  using I = _HostSession;
  static constexpr auto kMembers = std::to_array<DispatchRow>({
      Function<&I::Send>(1, L"Send", {L"entry", L"transmit"}),
      Property<&I::get_LastResponse>(2, L"LastResponse"),
      Property<&I::get_SessionName>(3, L"SessionName"),
      Property<&I::get_HostConnection>(4, L"HostConnection"),
      Function<&I::SendKey, VT_BOOL>(5, L"SendKey", {L"key"}),
  });
  static const DispatchTable table(kMembers);
  return table;
}

template <>
const DispatchTable& TableOf<_HostSessionList>() {
  using I = _HostSessionList;
  static constexpr auto kMembers = std::to_array<DispatchRow>({
      Function<&I::Item>(DISPID_VALUE, L"Item", {L"key"}),
      Property<&I::get_Count>(1, L"Count"),
      Property<&I::get__NewEnum>(DISPID_NEWENUM, L"_NewEnum"),
  });
  static const DispatchTable table(kMembers);
  return table;
}

}  // namespace wendrill::com

namespace wendrill::simulator {
namespace {

void Give(const std::shared_ptr<HostResponse>& core, _HostResponse** result) {
  *result = core ? new HostResponseObject(core) : nullptr;
}

void Give(const std::shared_ptr<HostSession>& core, _HostSession** result) {
  // Every session of the simulated list is a simulated one.
  *result = core ? new HostSessionObject(std::static_pointer_cast<SimulatedSession>(core)) : nullptr;
}

// As GiveResult, for results that are objects.
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
