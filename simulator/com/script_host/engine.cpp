#include "engine.h"

#include "command_line.h"
#include "script_object.h"

namespace wendrill::script_host {

using Microsoft::WRL::ComPtr;

ComPtr<IActiveScript> CreateEngine(Language language) {
  const wchar_t* name = language == Language::VBScript ? L"VBScript" : L"JScript";
  CLSID identity;
  ComPtr<IActiveScript> engine;
  HRESULT status = CLSIDFromProgID(name, &identity);
  if (SUCCEEDED(status)) {
    status = CoCreateInstance(identity, nullptr, CLSCTX_INPROC_SERVER, IID_PPV_ARGS(&engine));
  }
  if (FAILED(status)) {
    throw UsageError{L"this system has no script engine for " + std::wstring(name) + L": " + SystemMessage(status)};
  }
  return engine;
}

HRESULT Parse(IActiveScript& engine, IActiveScriptSite& site, const wchar_t* text) {
  ComPtr<IActiveScriptParse> parser;
  HRESULT status = engine.QueryInterface(IID_PPV_ARGS(&parser));
  const auto step = [&status](auto call) {
    if (SUCCEEDED(status)) {
      status = call();
    }
  };
  step([&] { return parser->InitNew(); });
  step([&] { return engine.SetScriptSite(&site); });
  step([&] { return engine.AddNamedItem(L"WScript", SCRIPTITEM_ISVISIBLE); });
  step([&] { return engine.AddNamedItem(L"WSH", SCRIPTITEM_ISVISIBLE); });
  step([&] {
    return parser->ParseScriptText(text, nullptr, nullptr, nullptr, 0, 0, SCRIPTTEXT_ISVISIBLE, nullptr, nullptr);
  });
  return status;
}

}  // namespace wendrill::script_host
