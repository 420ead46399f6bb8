#include "scenario_check.h"

#include <windows.h>
#include <wrl/client.h>

#include "command_line.h"

namespace wendrill::script_host {

using Microsoft::WRL::ComPtr;

void RequireGoodScenario(const std::wstring& path) {
  CLSID identity;
  ComPtr<IDispatch> control;
  if (FAILED(CLSIDFromProgID(L"QuilletSimulator.Control", &identity)) ||
      FAILED(CoCreateInstance(identity, nullptr, CLSCTX_INPROC_SERVER, IID_PPV_ARGS(&control)))) {
    throw UsageError{L"a scenario needs the simulator beside this program"};
  }
  auto* load = const_cast<LPOLESTR>(L"Load");
  DISPID id = DISPID_UNKNOWN;
  HRESULT status = control->GetIDsOfNames(IID_NULL, &load, 1, LOCALE_USER_DEFAULT, &id);
  VARIANT argument;
  V_VT(&argument) = VT_BSTR;
  V_BSTR(&argument) = SysAllocStringLen(path.data(), static_cast<UINT>(path.size()));
  DISPPARAMS arguments{&argument, nullptr, 1, 0};
  EXCEPINFO exception{};
  if (SUCCEEDED(status)) {
    status =
        control->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &arguments, nullptr, &exception, nullptr);
  }
  SysFreeString(V_BSTR(&argument));
  if (FAILED(status)) {
    const std::wstring description = exception.bstrDescription == nullptr ? L"scenario file cannot be loaded: " + path
                                                                          : std::wstring(exception.bstrDescription);
    SysFreeString(exception.bstrDescription);
    SysFreeString(exception.bstrSource);
    SysFreeString(exception.bstrHelpFile);
    throw UsageError{description};
  }
}

}  // namespace wendrill::script_host
