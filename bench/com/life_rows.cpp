#include <stdexcept>

#include "bare_calls.h"
#include "rows.h"
#include "wendrill23.h"

namespace wendrill::com::bench {
namespace {

constexpr const wchar_t* kDictionary = L"Scripting.Dictionary";

void LoadAndUnload(const wchar_t* library) {
  const HMODULE loaded = LoadLibraryW(library);
  if (loaded == nullptr) {
    throw std::runtime_error("a library cannot be loaded");
  }
  FreeLibrary(loaded);
}

void RequireUnloaded(const wchar_t* library) {
  if (GetModuleHandleW(library) != nullptr) {
    throw std::runtime_error("a library stays loaded: its loading cannot be measured");
  }
}

// The class is looked up by its name once, as a client does that makes many.
Repeated MakeAndRelease(const wchar_t* programmaticId) {
  CLSID id;
  Must(CLSIDFromProgID(programmaticId, &id));
  return Repeat([id] {
    Reference<IUnknown> object;
    Must(CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, IID_IUnknown, object.ReceiveVoid()));
  });
}

// What the first CQuillet of a process sets up: the list and the names in it, a PNR object, a session.
void SetUpToolkit() {
  const auto list = Create(L"kzuHostToolKit.HostSessionList");
  Read(list.Get(), IdOf(list.Get(), L"Count"));
  OwnedVariant walk;
  Call(list.Get(), DISPID_NEWENUM, {}, &walk);
  Reference<IEnumVARIANT> sessions;
  Must(V_UNKNOWN(&walk)->QueryInterface(IID_IEnumVARIANT, sessions.ReceiveVoid()));
  for (OwnedVariant session; sessions->Next(1, &session, nullptr) == S_OK; VariantClear(&session)) {
    Read(V_DISPATCH(&session), IdOf(V_DISPATCH(&session), L"SessionName"));
  }
  const auto pnr = Create(L"szuPNR.PNR");
  const auto session = Create(L"kzuHostToolKit.HostSession");
}

}  // namespace

std::vector<Row> LoadRows(const Stopwatch& stopwatch) {
  constexpr const wchar_t* kOurs = L"Wendrill23.dll";
  constexpr const wchar_t* kTheirs = L"scrrun.dll";
  const auto load = [](const wchar_t* library) { return Repeat([library] { LoadAndUnload(library); }); };
  LoadAndUnload(kOurs);
  LoadAndUnload(kTheirs);
  RequireUnloaded(kOurs);
  RequireUnloaded(kTheirs);
  return {{"load and unload of Wendrill23.dll", "the Scripting.Dictionary's DLL",
           stopwatch.Compare(load(kOurs), load(kTheirs))}};
}

std::vector<Row> LifeRows(const Stopwatch& stopwatch) {
  const auto dictionary = MakeAndRelease(kDictionary);
  const auto dictionaryStays = Create(kDictionary);
  std::vector<Row> rows;
  {
    // The library comes and goes with its only object; the toolkit's DLL stays.
    const auto toolkitStays = Create(L"Pellorin.TextHelper");
    rows.push_back({"creation and release of the only CQuillet", "the toolkit calls that this takes",
                    stopwatch.Compare(MakeAndRelease(L"Wendrill23.CQuillet"), Repeat(SetUpToolkit))});
  }
  const auto quilletStays = Create(L"Wendrill23.CQuillet");
  for (const char* name : {"CQuillet", "CPNR", "CQueue", "CBatch", "CEncodeUtils", "IGet", "IGetPNR"}) {
    const std::string shortName(name);
    const std::wstring programmaticId = L"Wendrill23." + std::wstring(shortName.begin(), shortName.end());
    rows.push_back({"creation and release of a " + shortName, "a Scripting.Dictionary",
                    stopwatch.Compare(MakeAndRelease(programmaticId.c_str()), dictionary)});
  }
  return rows;
}

}  // namespace wendrill::com::bench
