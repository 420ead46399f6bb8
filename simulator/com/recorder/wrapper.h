// The wrapper: the object that the program gets in place of an object of the terminal. The wrapper forwards every call.
// Wrappers among the arguments are replaced by the terminal's objects, and objects that the terminal returns are
// replaced by wrappers.
//
// Identity: as long as an object of the terminal has a wrapper, the program gets that wrapper wherever the terminal
// returns the object. So the program can compare objects as it could without the recorder. When the program passes a
// wrapper to the terminal, for example a connection to a PNR, the terminal gets the wrapped object.
#pragma once

#include <ocidl.h>
#include <ole2.h>
#include <windows.h>

#include <cstdint>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "com/recorder/known_members.h"
#include "com/server/automation_types.h"
#include "com/server/counted_object.h"
#include "recording/recording.h"

namespace wendrill::recorder {

class Wrapper;

// Private interface by which the recorder recognises its own wrappers. It has no marshalling, so a proxy of a wrapper
// does not support it.
MIDL_INTERFACE("2C8E41B7-60DA-4F35-9E12-B7A5D3C80F64")
IWrapper : public IUnknown {
 public:
  virtual Wrapper& Itself() = 0;
};

}  // namespace wendrill::recorder

#ifdef __CRT_UUID_DECL
__CRT_UUID_DECL(wendrill::recorder::IWrapper, 0x2C8E41B7, 0x60DA, 0x4F35, 0x9E, 0x12, 0xB7, 0xA5, 0xD3, 0xC8, 0x0F,
                0x64)
#endif

namespace wendrill::recorder {

// What the recorder knows about a wrapped object.
struct Known {
  std::u16string session;                           // of a session, connection or response: the session's name
  std::optional<recording::SendId> answer;          // of a response: the answer that the response shows
  std::optional<recording::RetrievalId> retrieval;  // of a PNR: its last retrieval that succeeded
  std::set<std::int32_t> collections;               // of a PNR: the collections (DISPIDs) read since that retrieval
};

// Base class of the members of a wrapper that implement one further interface each. QueryInterface of the wrapper
// returns such an interface only if the terminal's object implements the interface. AddRef and Release count the
// references of the wrapper.
template <typename Interface>
class Part : public Interface {
 public:
  explicit Part(Wrapper& owner) : owner_(owner) {}
  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID wanted, void** object) final;
  ULONG STDMETHODCALLTYPE AddRef() final;
  ULONG STDMETHODCALLTYPE Release() final;

 protected:
  Wrapper& owner_;
};

class ClassInformation final : public Part<IProvideClassInfo> {
 public:
  using Part::Part;
  HRESULT STDMETHODCALLTYPE GetClassInfo(ITypeInfo** information) override;
};

class ErrorSupport final : public Part<ISupportErrorInfo> {
 public:
  using Part::Part;
  HRESULT STDMETHODCALLTYPE InterfaceSupportsErrorInfo(REFIID asked) override;
};

class ConnectionPoints final : public Part<IConnectionPointContainer> {
 public:
  using Part::Part;
  HRESULT STDMETHODCALLTYPE EnumConnectionPoints(IEnumConnectionPoints** points) override;
  HRESULT STDMETHODCALLTYPE FindConnectionPoint(REFIID wanted, IConnectionPoint** point) override;
};

class Wrapper final : public com::CountedObject<com::CountOfAnyThread, com::ObjectLock, IDispatch, IWrapper> {
 public:
  ~Wrapper() override;

  // Returns the wrapper of a terminal's object, AddRef'ed for the caller; creates the wrapper if the object has no
  // wrapper yet. Returns `real` itself if `real` is null, if `real` is a wrapper, or if QueryInterface of `real` for
  // IUnknown fails.
  static com::Reference<IDispatch> Of(IDispatch* real, Kind kind);
  // Returns the wrapper of an object if the object has a wrapper, else the object itself. The returned object is
  // AddRef'ed for the caller. Returns an empty reference for null.
  static com::Reference<IDispatch> Living(IDispatch* real);

  IDispatch* Real() const { return real_.Get(); }
  Kind WhatItIs() const { return kind_; }
  Known& Knowledge() { return known_; }

  // What the member with this DISPID does, as far as the recorder must know this; Act::None for any other member.
  Act ActOf(DISPID id);

  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override;
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT index, LCID locale, ITypeInfo** information) override;
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID reserved, LPOLESTR* names, UINT count, LCID locale,
                                          DISPID* ids) override;
  HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID reserved, LCID locale, WORD flags, DISPPARAMS* arguments,
                                   VARIANT* result, EXCEPINFO* exception, UINT* argument) override;

  Wrapper& Itself() override { return *this; }

 protected:
  void* FindFurther(REFIID wanted) override;

 private:
  Wrapper(com::Reference<IDispatch> real, IUnknown* identity, Kind kind);

  // Replaces the object in the result of the member with this DISPID by the object's wrapper. The object that the
  // property Value of a PNR returns is replaced only if that object has a wrapper already.
  void WrapOwnResult(DISPID id, Act act, VARIANT& result) const;

  com::Reference<IDispatch> real_;
  IUnknown* identity_;  // the IUnknown of real_, not AddRef'ed; real_ keeps it valid
  Kind kind_;
  Known known_;
  std::optional<std::vector<std::pair<DISPID, Act>>> acts_;  // the known members by DISPID; nullopt until first needed
  ClassInformation classInformation_{*this};
  ErrorSupport errorSupport_{*this};
  ConnectionPoints connectionPoints_{*this};
};

// Returns the wrapper if `object` is a wrapper, else null. The wrapper is not AddRef'ed: the caller's reference to
// `object` keeps the wrapper alive.
Wrapper* WrapperIn(IUnknown* object);

// The object's IUnknown, AddRef'ed. All interfaces of an object return the same IUnknown from QueryInterface, so the
// IUnknown identifies the object.
com::Reference<IUnknown> IdentityOf(IUnknown* object);

// Replaces the object in a result by a wrapper of `kind`, or the enumerator in a result by an enumerator that returns
// such wrappers. An object with neither IDispatch nor IEnumVARIANT remains in the result. When this function raises for
// lack of memory, the result contains Nothing.
void WrapResult(VARIANT& result, Kind kind);

}  // namespace wendrill::recorder
