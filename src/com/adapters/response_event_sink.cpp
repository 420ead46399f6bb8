#include "com/adapters/response_event_sink.h"

#include <ocidl.h>

#include "com/server/boundary.h"
#include "com/server/counted_object.h"
#include "common/error.h"

namespace wendrill::com {
namespace {

constexpr wchar_t kEventName[] = L"ReceivedResponse";

struct EventIdentity {
  IID eventInterface = IID_NULL;
  DISPID event = DISPID_UNKNOWN;
};

// The event sink that the toolkit calls. The toolkit may keep its reference to the sink after the connection ends. So
// Disconnect drops the handler; without a handler, the sink ignores the event. The sink has an ObjectLock, so that
// DllCanUnloadNow returns S_FALSE as long as the sink is live.
class EventSink final : public CountedObject<CountOfAnyThread, ObjectLock, IDispatch> {
 public:
  EventSink(const EventIdentity& identity, std::function<void()> handler)
      : identity_(identity), handler_(std::move(handler)) {}

  void Disconnect() { handler_ = nullptr; }

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
      // The handler is copied, because it may disconnect the sink, which destroys handler_ while the handler runs.
      const std::function<void()> handler = handler_;
      handler();
    });
  }

 protected:
  void* FindFurther(REFIID wanted) override {
    return wanted == identity_.eventInterface ? static_cast<IDispatch*>(this) : nullptr;
  }

 private:
  EventIdentity identity_;
  std::function<void()> handler_;
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

TYPEATTR AttributesOf(ITypeInfo* type) {
  TYPEATTR copy{};
  TYPEATTR* attributes = nullptr;
  if (SUCCEEDED(type->GetTypeAttr(&attributes))) {
    copy = *attributes;
    type->ReleaseTypeAttr(attributes);
  }
  return copy;
}

// Calls `visit` with the interfaces of a class until `visit` returns true. Skips the interfaces whose values of
// IMPLTYPEFLAG_FDEFAULT and IMPLTYPEFLAG_FSOURCE differ from `flags`. Returns whether `visit` returned true.
template <typename Visit>
bool AnyInterfaceOf(ITypeInfo* classInformation, INT flags, Visit visit) {
  constexpr INT kTold = IMPLTYPEFLAG_FDEFAULT | IMPLTYPEFLAG_FSOURCE;
  const UINT count = AttributesOf(classInformation).cImplTypes;
  for (UINT index = 0; index < count; ++index) {
    INT found = 0;
    HREFTYPE reference = 0;
    Reference<ITypeInfo> type;
    if (SUCCEEDED(classInformation->GetImplTypeFlags(index, &found)) && (found & kTold) == flags &&
        SUCCEEDED(classInformation->GetRefTypeOfImplType(index, &reference)) &&
        SUCCEEDED(classInformation->GetRefTypeInfo(reference, type.Receive())) && visit(type.Get())) {
      return true;
    }
  }
  return false;
}

// Calls `visit` with each type of a kind in a type library, until `visit` returns true. Returns whether `visit`
// returned true.
template <typename Visit>
bool AnyTypeIn(ITypeLib* library, TYPEKIND kind, Visit visit) {
  const UINT count = library->GetTypeInfoCount();
  for (UINT index = 0; index < count; ++index) {
    TYPEKIND found = TKIND_MAX;
    Reference<ITypeInfo> type;
    if (SUCCEEDED(library->GetTypeInfoType(index, &found)) && found == kind &&
        SUCCEEDED(library->GetTypeInfo(index, type.Receive())) && visit(type.Get())) {
      return true;
    }
  }
  return false;
}

bool Implements(ITypeInfo* classInformation, const IID& wanted) {
  const auto isWanted = [&](ITypeInfo* type) { return AttributesOf(type).guid == wanted; };
  return AnyInterfaceOf(classInformation, IMPLTYPEFLAG_FDEFAULT, isWanted) ||
         AnyInterfaceOf(classInformation, 0, isWanted);
}

// Searches for the interface that declares the event ReceivedResponse of a session. The search succeeds with the first
// interface that declares a member with this name (kEventName) and for which the session has a connection point. After
// a successful search, Identity() returns the IID of the interface and the DISPID of the event, and Point() returns the
// connection point. Types whose type information cannot be read are skipped.
class EventSearch {
 public:
  explicit EventSearch(Reference<IConnectionPointContainer> container) : container_(std::move(container)) {}

  // Searches the source interfaces of a class, the default source interface first. Returns whether the event was found.
  bool TryClass(ITypeInfo* classInformation) {
    const auto attempt = [this](ITypeInfo* events) { return TryInterface(events); };
    return AnyInterfaceOf(classInformation, IMPLTYPEFLAG_FDEFAULT | IMPLTYPEFLAG_FSOURCE, attempt) ||
           AnyInterfaceOf(classInformation, IMPLTYPEFLAG_FSOURCE, attempt);
  }

  // Searches a type library: first the classes that implement the session's interface, then all classes, then all
  // dispatch interfaces. Returns whether the event was found.
  bool TryLibrary(ITypeLib* library, const IID& sessionInterface) {
    return AnyTypeIn(library, TKIND_COCLASS,
                     [&](ITypeInfo* type) { return Implements(type, sessionInterface) && TryClass(type); }) ||
           AnyTypeIn(library, TKIND_COCLASS, [&](ITypeInfo* type) { return TryClass(type); }) ||
           AnyTypeIn(library, TKIND_DISPATCH, [&](ITypeInfo* type) { return TryInterface(type); });
  }

  const EventIdentity& Identity() const { return identity_; }
  const Reference<IConnectionPoint>& Point() const { return point_; }

 private:
  bool TryInterface(ITypeInfo* events) {
    auto* name = const_cast<LPOLESTR>(kEventName);
    identity_.eventInterface = AttributesOf(events).guid;
    return SUCCEEDED(events->GetIDsOfNames(&name, 1, &identity_.event)) &&
           SUCCEEDED(container_->FindConnectionPoint(identity_.eventInterface, point_.Receive())) && point_;
  }

  Reference<IConnectionPointContainer> container_;
  EventIdentity identity_;
  Reference<IConnectionPoint> point_;
};

bool FindByProvidedClass(const Reference<IDispatch>& session, EventSearch& search) {
  const auto provider = session.As<IProvideClassInfo>();
  Reference<ITypeInfo> classInformation;
  return provider && SUCCEEDED(provider->GetClassInfo(classInformation.Receive())) && classInformation &&
         search.TryClass(classInformation.Get());
}

bool FindByLibrary(const Reference<IDispatch>& session, EventSearch& search) {
  Reference<ITypeInfo> type;
  Reference<ITypeLib> library;
  UINT index = 0;
  return SUCCEEDED(session->GetTypeInfo(0, LOCALE_USER_DEFAULT, type.Receive())) && type &&
         SUCCEEDED(type->GetContainingTypeLib(library.Receive(), &index)) && library &&
         search.TryLibrary(library.Get(), AttributesOf(type.Get()).guid);
}

}  // namespace

std::unique_ptr<EventConnection> ConnectReceivedResponse(IDispatch* session, std::function<void()> handler) {
  const Reference<IDispatch> held(session);
  auto container = held.As<IConnectionPointContainer>();
  if (!container) {
    Raise(RunTimeError::MemberNotSupported);
  }
  EventSearch search(std::move(container));
  if (!FindByProvidedClass(held, search) && !FindByLibrary(held, search)) {
    Raise(RunTimeError::MemberNotSupported);
  }
  auto sink = Reference<EventSink>::Adopt(new EventSink(search.Identity(), std::move(handler)));
  return std::make_unique<SinkConnection>(search.Point(), std::move(sink));
}

}  // namespace wendrill::com
