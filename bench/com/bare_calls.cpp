#include "bare_calls.h"

#include <stdexcept>

namespace wendrill::com::bench {

void Must(HRESULT status) {
  if (FAILED(status)) {
    throw std::runtime_error("a call failed with status " + std::to_string(status));
  }
}

Reference<IDispatch> Create(const wchar_t* programmaticId) {
  CLSID id;
  Must(CLSIDFromProgID(programmaticId, &id));
  Reference<IDispatch> object;
  Must(CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, IID_IDispatch, object.ReceiveVoid()));
  return object;
}

DISPID IdOf(IDispatch* object, const wchar_t* name) {
  auto* asked = const_cast<LPOLESTR>(name);
  DISPID id = DISPID_UNKNOWN;
  Must(object->GetIDsOfNames(IID_NULL, &asked, 1, LOCALE_USER_DEFAULT, &id));
  return id;
}

}  // namespace wendrill::com::bench
