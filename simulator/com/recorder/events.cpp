#include "com/recorder/events.h"

#include <map>
#include <optional>
#include <utility>
#include <vector>

#include "com/recorder/handed_arguments.h"
#include "com/recorder/quiet_call.h"
#include "com/recorder/run.h"
#include "com/recorder/wrapper.h"
#include "com/server/boundary.h"
#include "com/server/counted_object.h"
#include "com/server/snapshot_enumerator.h"

namespace wendrill::recorder {
namespace {

// Private interface by which the recorder recognises its own sinks. The interface has no marshalling, so a proxy of a
// sink does not support it.
class Sink;
MIDL_INTERFACE("81F5C0D9-3B72-4E16-A8F4-0D6C29E7B153")
ISink : public IUnknown {
 public:
  virtual Sink& ItselfAsSink() = 0;
};

constexpr IID kSinkInterface = {0x81F5C0D9, 0x3B72, 0x4E16, {0xA8, 0xF4, 0x0D, 0x6C, 0x29, 0xE7, 0xB1, 0x53}};

// The sink that the terminal calls in place of the program's sink. It reports each event to Notes, which records the
// event, and forwards the event to the program's sink. The terminal may keep a reference to a Sink that was
// disconnected; an event that reaches such a Sink is forwarded, but not recorded.
class Sink final : public com::CountedObject<com::CountOfAnyThread, com::ObjectLock, IDispatch> {
 public:
  Sink(com::Reference<IDispatch> programs, const IID& eventInterface)
      : programs_(std::move(programs)), eventInterface_(eventInterface) {}
  ~Sink() override { ListensNoMore(); }

  IUnknown* Programs() const { return programs_.Get(); }

  void ListensTo(const std::u16string& session) {
    if (Notes* notes = TheRun().Recording()) {
      notes->Listens(this, session);
    }
  }
  void ListensNoMore() {
    if (Notes* notes = TheRun().Recording()) {
      notes->ListensNoMore(this);
    }
  }

  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override { return programs_->GetTypeInfoCount(count); }
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT index, LCID locale, ITypeInfo** information) override {
    return programs_->GetTypeInfo(index, locale, information);
  }
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID reserved, LPOLESTR* names, UINT count, LCID locale,
                                          DISPID* ids) override {
    return programs_->GetIDsOfNames(reserved, names, count, locale, ids);
  }
  HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID reserved, LCID locale, WORD flags, DISPPARAMS* arguments,
                                   VARIANT* result, EXCEPINFO* exception, UINT* argument) override {
    const com::Reference<Sink> keepAlive(this);
    Notes* const notes = TheRun().Recording();
    std::optional<HandedArguments> handed;
    HRESULT status = HandOver(arguments, HandedArguments::Way::ToTheProgram, notes, handed);
    if (FAILED(status)) {
      return status;
    }
    DISPPARAMS* const given = handed->Get();
    if (notes != nullptr && given != nullptr && given->cArgs == 1) {
      notes->Event(this, ObjectIn(given->rgvarg[0]).Get());
    }
    status = programs_->Invoke(id, reserved, locale, flags, given, result, exception, argument);
    const HRESULT stored = com::Guarded([&] { handed->GiveBack(); });
    return FAILED(stored) && SUCCEEDED(status) ? stored : status;
  }

 protected:
  void* FindFurther(REFIID wanted) override {
    if (wanted == eventInterface_) {
      return static_cast<IDispatch*>(this);
    }
    return wanted == kSinkInterface ? static_cast<void*>(&mark_) : nullptr;
  }

 private:
  // Implements the interface ISink for the sink that contains this Mark. AddRef and Release are those of the sink.
  class Mark final : public ISink {
   public:
    explicit Mark(Sink& owner) : owner_(owner) {}
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID wanted, void** object) override {
      return owner_.QueryInterface(wanted, object);
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return owner_.AddRef(); }
    ULONG STDMETHODCALLTYPE Release() override { return owner_.Release(); }
    Sink& ItselfAsSink() override { return owner_; }

   private:
    Sink& owner_;
  };

  com::Reference<IDispatch> programs_;
  IID eventInterface_;
  Mark mark_{*this};
};

// Returns the recorder's sink if `object` is one, else null. The sink is not AddRef'ed.
Sink* SinkIn(IUnknown* object) {
  com::Reference<ISink> ours;
  if (object == nullptr || FAILED(object->QueryInterface(kSinkInterface, ours.ReceiveVoid()))) {
    return nullptr;
  }
  return &ours->ItselfAsSink();
}

void GiveConnection(const std::pair<com::Reference<IUnknown>, DWORD>& connection, CONNECTDATA* result) {
  *result = {com::Reference<IUnknown>(connection.first).Release(), connection.second};
}
using ConnectionEnumerator =
    com::SnapshotEnumerator<IEnumConnections, std::pair<com::Reference<IUnknown>, DWORD>, CONNECTDATA, GiveConnection>;

class Point final : public com::CountedObject<com::CountOfAnyThread, com::ObjectLock, IConnectionPoint> {
 public:
  Point(Wrapper& session, com::Reference<IConnectionPoint> real) : session_(&session), real_(std::move(real)) {}

  HRESULT STDMETHODCALLTYPE GetConnectionInterface(IID* connected) override {
    return real_->GetConnectionInterface(connected);
  }
  HRESULT STDMETHODCALLTYPE GetConnectionPointContainer(IConnectionPointContainer** container) override {
    if (container == nullptr) {
      return real_->GetConnectionPointContainer(nullptr);
    }
    return session_->QueryInterface(IID_IConnectionPointContainer, reinterpret_cast<void**>(container));
  }

  // Connects a sink of the recorder in place of the program's sink. In three cases the call is forwarded with the
  // program's sink instead, and the events of that sink are not recorded:
  // - The sink supports neither the event interface nor IDispatch, so the recorder could not call the sink.
  // - GetConnectionInterface of the terminal's connection point fails.
  // - The sink or the cookie pointer is null.
  HRESULT STDMETHODCALLTYPE Advise(IUnknown* sink, DWORD* cookie) override {
    return com::Guarded([&]() -> HRESULT {
      IID connected = IID_NULL;
      com::Reference<IDispatch> programs;
      if (sink == nullptr || cookie == nullptr || FAILED(real_->GetConnectionInterface(&connected)) ||
          (FAILED(sink->QueryInterface(connected, programs.ReceiveVoid())) &&
           FAILED(sink->QueryInterface(IID_IDispatch, programs.ReceiveVoid())))) {
        return real_->Advise(sink, cookie);
      }
      const auto ours = com::Reference<Sink>::Adopt(new Sink(std::move(programs), connected));
      // Register the sink with Notes before Advise is forwarded, because the terminal may raise an event during Advise.
      ours->ListensTo(session_->Knowledge().session);
      const HRESULT status = real_->Advise(ours.Get(), cookie);
      if (FAILED(status)) {
        ours->ListensNoMore();
      }
      return status;
    });
  }
  HRESULT STDMETHODCALLTYPE Unadvise(DWORD cookie) override {
    com::Guarded([&] {
      if (const auto sink = SinkOf(cookie)) {
        sink->ListensNoMore();
      }
    });
    return real_->Unadvise(cookie);
  }
  HRESULT STDMETHODCALLTYPE EnumConnections(IEnumConnections** connections) override {
    if (connections == nullptr) {
      return real_->EnumConnections(nullptr);
    }
    *connections = nullptr;
    return com::Guarded([&]() -> HRESULT {
      com::Reference<IEnumConnections> real;
      const HRESULT status = real_->EnumConnections(real.Receive());
      if (FAILED(status) || !real) {
        return status;
      }
      std::vector<std::pair<com::Reference<IUnknown>, DWORD>> programs;
      for (auto& [sink, cookie] : All(real.Get())) {
        Sink* const ours = SinkIn(sink.Get());
        programs.emplace_back(ours != nullptr ? com::Reference<IUnknown>(ours->Programs()) : sink, cookie);
      }
      *connections = new ConnectionEnumerator(std::move(programs));
      return S_OK;
    });
  }

 private:
  static std::vector<std::pair<com::Reference<IUnknown>, DWORD>> All(IEnumConnections* real) {
    std::vector<std::pair<com::Reference<IUnknown>, DWORD>> all;
    CONNECTDATA connection{};
    ULONG fetched = 0;
    while (real->Next(1, &connection, &fetched) == S_OK && fetched == 1) {
      all.emplace_back(com::Reference<IUnknown>::Adopt(connection.pUnk), connection.dwCookie);
    }
    return all;
  }

  com::Reference<Sink> SinkOf(DWORD cookie) const {
    com::Reference<IEnumConnections> real;
    if (TheRun().Recording() != nullptr && SUCCEEDED(real_->EnumConnections(real.Receive())) && real) {
      for (const auto& [sink, known] : All(real.Get())) {
        if (known == cookie) {
          return com::Reference<Sink>(SinkIn(sink.Get()));
        }
      }
    }
    return {};
  }

  com::Reference<Wrapper> session_;
  com::Reference<IConnectionPoint> real_;
};

void GivePoint(const com::Reference<IConnectionPoint>& point, IConnectionPoint** result) {
  *result = com::Reference<IConnectionPoint>(point).Release();
}
using PointEnumerator =
    com::SnapshotEnumerator<IEnumConnectionPoints, com::Reference<IConnectionPoint>, IConnectionPoint*, GivePoint>;

}  // namespace

HRESULT WrappedPoint(Wrapper& session, IConnectionPointContainer* real, REFIID wanted, IConnectionPoint** point) {
  if (point == nullptr) {
    return real->FindConnectionPoint(wanted, nullptr);
  }
  *point = nullptr;
  com::Reference<IConnectionPoint> found;
  const HRESULT status = real->FindConnectionPoint(wanted, found.Receive());
  if (FAILED(status) || !found) {
    return status;
  }
  return com::Guarded([&] { *point = new Point(session, std::move(found)); });
}

HRESULT WrappedPoints(Wrapper& session, IConnectionPointContainer* real, IEnumConnectionPoints** points) {
  if (points == nullptr) {
    return real->EnumConnectionPoints(nullptr);
  }
  *points = nullptr;
  return com::Guarded([&]() -> HRESULT {
    com::Reference<IEnumConnectionPoints> found;
    const HRESULT status = real->EnumConnectionPoints(found.Receive());
    if (FAILED(status) || !found) {
      return status;
    }
    std::vector<com::Reference<IConnectionPoint>> wrapped;
    com::Reference<IConnectionPoint> point;
    ULONG fetched = 0;
    while (found->Next(1, point.Receive(), &fetched) == S_OK && fetched == 1) {
      wrapped.push_back(com::Reference<IConnectionPoint>::Adopt(new Point(session, point)));
    }
    *points = new PointEnumerator(std::move(wrapped));
    return S_OK;
  });
}

}  // namespace wendrill::recorder
