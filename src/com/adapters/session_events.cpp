#include "com/adapters/session_events.h"

#include <ocidl.h>

#include <atomic>

#include "com/server/boundary.h"
#include "common/error.h"

namespace wendrill::com {
namespace {

constexpr wchar_t kEventName[] = L"ReceivedResponse";

struct EventIdentity {
  IID eventInterface;
  DISPID event;
};

// What the toolkit calls. It may hold this longer than the connection lasts, so the handler is dropped on
// disconnecting.
class EventSink final : public IDispatch {
 public:
  EventSink(const EventIdentity& identity, std::function<void()> handler)
      : identity_(identity), handler_(std::move(handler)) {}

  void Disconnect() { handler_ = nullptr; }

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID wanted, void** object) override {
    if (object == nullptr) {
      return E_POINTER;
    }
    const bool known = wanted == IID_IUnknown || wanted == IID_IDispatch || wanted == identity_.eventInterface;
    *object = known ? static_cast<IDispatch*>(this) : nullptr;
    if (known) {
      AddRef();
    }
    return known ? S_OK : E_NOINTERFACE;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return references_.fetch_add(1) + 1; }
  ULONG STDMETHODCALLTYPE Release() override {
    const ULONG left = references_.fetch_sub(1) - 1;
    if (left == 0) {
      delete this;
    }
    return left;
  }

  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override {
    *count = 0;
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo** information) override {
    *information = nullptr;
    return DISP_E_BADINDEX;
  }
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override {
    return DISP_E_UNKNOWNNAME;
  }
  HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*, UINT*) override {
    if (id != identity_.event || !handler_) {
      return S_OK;
    }
    return Guarded([this] {
      // The handler may bring about the disconnection, which destroys the function while it runs.
      const std::function<void()> handler = handler_;
      handler();
    });
  }

 private:
  EventIdentity identity_;
  std::function<void()> handler_;
  std::atomic<ULONG> references_{1};
};

class SinkConnection final : public EventConnection {
 public:
  SinkConnection(Reference<IConnectionPoint> point, Reference<EventSink> sink)
      : point_(std::move(point)), sink_(std::move(sink)) {
    CheckCall(point_->Advise(sink_.Get(), &cookie_), point_.Get());
  }
  ~SinkConnection() override {
    sink_->Disconnect();
    point_->Unadvise(cookie_);
  }

 private:
  Reference<IConnectionPoint> point_;
  Reference<EventSink> sink_;
  DWORD cookie_ = 0;
};

// The default event interface of a class.
Reference<ITypeInfo> DefaultEvents(ITypeInfo* classInformation) {
  TYPEATTR* attributes = nullptr;
  Check(classInformation->GetTypeAttr(&attributes));
  const UINT count = attributes->cImplTypes;
  classInformation->ReleaseTypeAttr(attributes);
  for (UINT index = 0; index < count; ++index) {
    INT flags = 0;
    HREFTYPE reference = 0;
    constexpr INT kDefaultSource = IMPLTYPEFLAG_FDEFAULT | IMPLTYPEFLAG_FSOURCE;
    if (SUCCEEDED(classInformation->GetImplTypeFlags(index, &flags)) && (flags & kDefaultSource) == kDefaultSource &&
        SUCCEEDED(classInformation->GetRefTypeOfImplType(index, &reference))) {
      Reference<ITypeInfo> events;
      Check(classInformation->GetRefTypeInfo(reference, events.Receive()));
      return events;
    }
  }
  Raise(RunTimeError::MemberNotSupported);
}

EventIdentity IdentityOf(ITypeInfo* events) {
  EventIdentity identity{};
  TYPEATTR* attributes = nullptr;
  Check(events->GetTypeAttr(&attributes));
  identity.eventInterface = attributes->guid;
  events->ReleaseTypeAttr(attributes);
  auto* name = const_cast<LPOLESTR>(kEventName);
  Check(events->GetIDsOfNames(&name, 1, &identity.event));
  return identity;
}

}  // namespace

std::unique_ptr<EventConnection> ConnectReceivedResponse(IDispatch* session, std::function<void()> handler) {
  const Reference<IDispatch> held(session);
  const auto described = held.As<IProvideClassInfo>();
  const auto container = held.As<IConnectionPointContainer>();
  if (!described || !container) {
    Raise(RunTimeError::MemberNotSupported);
  }
  SetErrorInfo(0, nullptr);
  Reference<ITypeInfo> classInformation;
  Check(described->GetClassInfo(classInformation.Receive()));
  const EventIdentity identity = IdentityOf(DefaultEvents(classInformation.Get()).Get());
  Reference<IConnectionPoint> point;
  Check(container->FindConnectionPoint(identity.eventInterface, point.Receive()));
  auto sink = Reference<EventSink>::Adopt(new EventSink(identity, std::move(handler)));
  return std::make_unique<SinkConnection>(std::move(point), std::move(sink));
}

}  // namespace wendrill::com
