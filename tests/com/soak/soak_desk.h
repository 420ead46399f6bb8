// The objects of a long run, and what its calls are made with.
#pragma once

#include <ole2.h>
#include <windows.h>

#include <cstdint>
#include <functional>
#include <random>
#include <string>
#include <utility>

#include "com/server/automation_types.h"
#include "platform.h"
#include "wendrill23.h"

namespace wendrill::soak {

using com::OwnedVariant;
using com::Reference;

// Text in and out of automation strings.
class Text {
 public:
  Text() = default;
  Text(const wchar_t* text) : string_(com::TextOf(std::wstring_view(text))) {}
  operator BSTR() const { return string_.Get(); }
  BSTR* Receive() { return string_.Receive(); }
  std::wstring Wide() const { return std::wstring(com::WideOf(string_.Text())); }

 private:
  com::OwnedString string_;
};

// One client's objects. They are made when a call needs them and go when a call says so.
class Desk {
 public:
  // As CoCreateInstance, for the classes below.
  using Creation = std::function<HRESULT(const CLSID& id, const IID& wanted, void** object)>;

  explicit Desk(_Control* control, Creation create = CreateByCom) : create_(std::move(create)), control_(control) {}

  _Control* Control() const { return control_.Get(); }
  _CQuillet* Quillet() { return Object(quillet_, CLSID_CQuillet); }
  _CPNR* Pnr() { return Object(pnr_, CLSID_CPNR); }
  _CQueue* Queue() { return Object(queue_, CLSID_CQueue); }
  _CBatch* Batch() { return Object(batch_, CLSID_CBatch); }
  _CEncodeUtils* EncodeUtils() { return Object(encodeUtils_, CLSID_CEncodeUtils); }
  _ParamBag* Bag() { return Object(bag_, CLSID_ParamBag); }

  void Put(const wchar_t* key, const wchar_t* text);
  void Put(const wchar_t* key, SHORT number);
  void Put(const wchar_t* key, bool truth);
  std::wstring TextUnder(const wchar_t* key);  // empty when the bag has no text there

  void ReleaseAll();

  // The run is the same every time.
  std::uint32_t Below(std::uint32_t bound) { return static_cast<std::uint32_t>(random_()) % bound; }

  // Calls of published members and creations so far, those that failed included.
  std::int64_t calls = 0;
  std::int64_t failures = 0;

  // Counts a call. A failure leaves its error on the thread, which is taken as a caller's run time takes it.
  HRESULT Called(HRESULT status);

 private:
  template <typename Interface>
  Interface* Object(Reference<Interface>& object, const CLSID& id) {
    if (!object) {
      const HRESULT status = Called(create_(id, __uuidof(Interface), object.ReceiveVoid()));
      if (FAILED(status)) {
        ThrowBroken(status);
      }
    }
    return object.Get();
  }
  [[noreturn]] static void ThrowBroken(HRESULT status);
  static HRESULT CreateByCom(const CLSID& id, const IID& wanted, void** object) {
    return CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, wanted, object);
  }

  Creation create_;
  Reference<_Control> control_;
  Reference<_CQuillet> quillet_;
  Reference<_CPNR> pnr_;
  Reference<_CQueue> queue_;
  Reference<_CBatch> batch_;
  Reference<_CEncodeUtils> encodeUtils_;
  Reference<_ParamBag> bag_;
  std::minstd_rand random_{20081115};
};

// Calls a member by name, as a script does, with a variable for the argument; an empty one is none.
HRESULT CallByName(IDispatch* object, const wchar_t* member, const wchar_t* argument);

}  // namespace wendrill::soak
