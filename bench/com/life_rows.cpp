#include "bare_calls.h"
#include "call_count.h"
#include "first_load.h"
#include "platform.h"
#include "rows.h"
#include "wendrill23.h"

namespace wendrill::com::bench {
namespace {

constexpr const wchar_t* kDictionary = L"Scripting.Dictionary";

// Creates an object with the class factory and releases it. The factory is looked up only once. The cost of the look-up
// depends on whether the class is in a manifest or in the registry, and would hide the cost of the object.
Repeated MakeAndRelease(const wchar_t* programmaticId) {
  CLSID id;
  Must(CLSIDFromProgID(programmaticId, &id));
  Reference<IClassFactory> factory;
  Must(CoGetClassObject(id, CLSCTX_INPROC_SERVER, nullptr, IID_IClassFactory, factory.ReceiveVoid()));
  return Repeat([factory] {
    Reference<IUnknown> object;
    Must(factory->CreateInstance(nullptr, IID_IUnknown, object.ReceiveVoid()));
  });
}

// The toolkit calls that creating a CEncodeUtils makes: counts the sessions and creates a session object.
void ConnectAlone() {
  const auto list = Create(L"kzuHostToolKit.HostSessionList");
  Read(list.Get(), IdOf(list.Get(), L"Count"));
  const auto session = Create(L"kzuHostToolKit.HostSession");
}

// The toolkit calls that creating the first CQuillet of a process makes: creates the session list and reads the names
// in the list, then creates a PNR object and a session object.
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
  return {{"first load of Wendrill23.dll in a fresh process", "the Scripting.Dictionary's DLL",
           stopwatch.CompareTimed([] { return FirstLoadInAFreshProcess("Wendrill23.dll"); },
                                  [] { return FirstLoadInAFreshProcess("scrrun.dll"); })}};
}

std::vector<Row> LifeRows(const Stopwatch& stopwatch) {
  const auto dictionary = MakeAndRelease(kDictionary);
  std::vector<Row> rows;
  const auto besideToolkit = [&](const char* what, const Repeated& ours, void (*reference)()) {
    const auto control = CreateAs<_Control>(L"QuilletSimulator.Control");
    RequireSameCalls(
        control.Get(), what, [&] { ours(1); }, reference);
    rows.push_back({what, "the toolkit calls that this takes", stopwatch.Compare(ours, Repeat(reference))});
  };
  // The module-wide state that the library's objects share is created with the first object and released with the last.
  // With no other object alive, each round of this row therefore includes creation and release of that state.
  besideToolkit("creation and release of the only CQuillet", MakeAndRelease(L"Wendrill23.CQuillet"), SetUpToolkit);
  const auto quilletStays = Create(L"Wendrill23.CQuillet");
  besideToolkit("creation and release of a CEncodeUtils", MakeAndRelease(L"Wendrill23.CEncodeUtils"), ConnectAlone);
  for (const char* name : {"CQuillet", "CPNR", "CQueue", "CBatch", "IGet", "IGetPNR"}) {
    const std::string shortName(name);
    const std::wstring programmaticId = L"Wendrill23." + std::wstring(shortName.begin(), shortName.end());
    rows.push_back({"creation and release of a " + shortName, "a Scripting.Dictionary",
                    stopwatch.Compare(MakeAndRelease(programmaticId.c_str()), dictionary)});
  }
  return rows;
}

}  // namespace wendrill::com::bench
