// The object that the program has in place of one of the terminal's: it passes every call on unchanged, and returns
// wrapped objects where the terminal returns its own.
//
// Identity: while an object of the terminal has a wrapper, the program meets that wrapper everywhere, so it can
// compare objects as it could without the recorder. A wrapper that is handed back to the terminal, as the connection is
// to the PNR, is replaced by the terminal's object.
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

// Private interface by which the recorder recognises its own objects. It has no marshalling: a proxy does not support
// it.
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

// What the recording knows of a wrapped object.
struct Known {
  std::u16string session;                           // of a session and of a connection: the name
  std::optional<recording::SendId> answer;          // of a response
  std::optional<recording::RetrievalId> retrieval;  // of a PNR: the last one that did not fail
  std::set<std::int32_t> collections;               // of a PNR: those that were read since
};

// An interface of a wrapper that it has when the terminal's object has it. The wrapper counts its references.
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

  // The wrapper of an object, AddRef'ed for the caller. An object of the recorder itself is returned as it is.
  static com::Reference<IDispatch> Of(IDispatch* real, Kind kind);
  // The same where only an object that has a wrapper now is replaced.
  static com::Reference<IDispatch> Living(IDispatch* real);

  IDispatch* Real() const { return real_.Get(); }
  Kind WhatItIs() const { return kind_; }
  Known& Knowledge() { return known_; }

  // What the member of this identifier does, as far as a recording has to know.
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

  // Replaces the objects in the result of the member with this identifier.
  void WrapOwnResult(DISPID id, Act act, VARIANT& result) const;

  com::Reference<IDispatch> real_;
  IUnknown* identity_;  // the real object's; valid as long as real_ is
  Kind kind_;
  Known known_;
  std::optional<std::vector<std::pair<DISPID, Act>>> acts_;  // asked for once
  ClassInformation classInformation_{*this};
  ErrorSupport errorSupport_{*this};
  ConnectionPoints connectionPoints_{*this};
};

// The wrapper that an object is; null for an object of anybody else. The caller's reference keeps it.
Wrapper* WrapperIn(IUnknown* object);

// The object's IUnknown, which is one for all of its interfaces.
com::Reference<IUnknown> IdentityOf(IUnknown* object);

// Replaces the objects in a result of a member of `kind` by their wrappers. Where that fails, the result holds Nothing.
void WrapResult(VARIANT& result, Kind kind);

}  // namespace wendrill::recorder
