// The recorder before a terminal of another make than the simulator: enumerators that can be cloned, members that
// replace the object in a variable, objects that live in another apartment. The recorder's objects are linked into this
// program.
#include <gmock/gmock.h>

#include <filesystem>
#include <fstream>
#include <iterator>

#include "com/recorder/run.h"
#include "com/recorder/wrapper.h"
#include "com/server/object_enumerator.h"
#include "com/support/apartment_thread.h"
#include "hand_made.h"
#include "late_calls.h"
#include "memory_sweep.h"
#include "recorder.h"

namespace wendrill::com::testing {
namespace {

using recorder::Kind;
using recorder::Wrapper;
using ::testing::AllOf;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

class ForeignTerminal : public ::testing::Test {
 protected:
  ForeignTerminal() { CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED); }
  ~ForeignTerminal() override {
    EXPECT_EQ(0, HandMade::living);
    EXPECT_TRUE(CanUnload());
    CoUninitialize();
  }

  // The program's object for one of the terminal's.
  static Reference<IDispatch> Wrapped(const Reference<IDispatch>& real) { return Wrapper::Of(real.Get(), Kind::Other); }

  // One of the terminal's whose members store an object, a number or nothing in the variable that they are given.
  static Reference<IDispatch> Replacing(const Reference<IDispatch>& object) {
    return HandMade::New([object](DISPID id, const DISPPARAMS& arguments, VARIANT*) {
      VARIANT& argument = arguments.rgvarg[0];
      if (V_VT(&argument) == (VT_BYREF | VT_DISPATCH)) {
        const auto before = Reference<IDispatch>::Adopt(*V_DISPATCHREF(&argument));
        *V_DISPATCHREF(&argument) = id == kStoresTheObject ? Reference<IDispatch>(object).Release() : nullptr;
        return S_OK;
      }
      VariantClear(V_VARIANTREF(&argument));
      if (id == kStoresTheObject) {
        V_VT(V_VARIANTREF(&argument)) = VT_DISPATCH;
        V_DISPATCH(V_VARIANTREF(&argument)) = Reference<IDispatch>(object).Release();
      } else if (id == kStoresANumber) {
        V_VT(V_VARIANTREF(&argument)) = VT_I4;
        V_I4(V_VARIANTREF(&argument)) = 7;
      }
      return S_OK;
    });
  }
  static constexpr DISPID kStoresTheObject = 1;
  static constexpr DISPID kStoresNothing = 2;
  static constexpr DISPID kStoresANumber = 3;
};

VARIANT ByReference(IDispatch** object) {
  VARIANT variant = OfType(VT_BYREF | VT_DISPATCH);
  V_DISPATCHREF(&variant) = object;
  return variant;
}

VARIANT OwningObject(const Reference<IDispatch>& object) {
  return Object(Reference<IDispatch>(object).Release());
}

TEST_F(ForeignTerminal, ACloneOfAnEnumeratorGivesTheSameWrappers) {
  const auto list = Wrapped(HandMade::New([](DISPID, const DISPPARAMS&, VARIANT* result) {
    V_VT(result) = VT_UNKNOWN;
    V_UNKNOWN(result) = NewEnumerator({HandMade::New(), HandMade::New(), HandMade::New()});
    return S_OK;
  }));
  OwnedVariant result;
  ASSERT_EQ(S_OK, Invoke(list.Get(), DISPID_NEWENUM, DISPATCH_PROPERTYGET, {}, &result));
  Reference<IEnumVARIANT> elements;
  ASSERT_EQ(S_OK, V_UNKNOWN(&result)->QueryInterface(IID_IEnumVARIANT, elements.ReceiveVoid()));
  EXPECT_EQ(E_POINTER, elements->Clone(nullptr));
  ASSERT_EQ(S_OK, elements->Skip(1));
  Reference<IEnumVARIANT> clone;
  ASSERT_EQ(S_OK, elements->Clone(clone.Receive()));
  ASSERT_TRUE(clone);
  for (const HRESULT expected : {S_OK, S_OK, S_FALSE}) {
    OwnedVariant ofTheFirst;
    OwnedVariant ofTheClone;
    EXPECT_EQ(expected, elements->Next(1, &ofTheFirst, nullptr));
    EXPECT_EQ(expected, clone->Next(1, &ofTheClone, nullptr));
    if (expected == S_OK) {
      ASSERT_EQ(VT_DISPATCH, V_VT(&ofTheClone));
      EXPECT_EQ(V_DISPATCH(&ofTheFirst), V_DISPATCH(&ofTheClone));
      EXPECT_TRUE(Reference<IDispatch>(V_DISPATCH(&ofTheClone)).As<recorder::IWrapper>());
    }
  }
  Reference<IEnumVARIANT> ofTheClone;
  EXPECT_EQ(S_OK, clone->Clone(ofTheClone.Receive()));
}

// --- Variables ------------------------------------------------------------------------------------------------------

TEST_F(ForeignTerminal, AnObjectThatReplacesOneInAVariableIsWrapped) {
  const auto other = HandMade::New();
  const auto terminal = Wrapped(Replacing(other));
  const auto expected = Wrapped(other);
  {
    IDispatch* variable = Wrapped(HandMade::New()).Release();
    EXPECT_EQ(S_OK, Invoke(terminal.Get(), kStoresTheObject, DISPATCH_METHOD, {ByReference(&variable)}, nullptr));
    EXPECT_EQ(expected.Get(), variable);
    EXPECT_EQ(S_OK, Invoke(terminal.Get(), kStoresNothing, DISPATCH_METHOD, {ByReference(&variable)}, nullptr));
    EXPECT_EQ(nullptr, variable);
  }
  OwnedVariant variable;
  static_cast<VARIANT&>(variable) = OwningObject(Wrapped(HandMade::New()));
  EXPECT_EQ(S_OK,
            Invoke(terminal.Get(), kStoresTheObject, DISPATCH_METHOD, {testing::ByReference(&variable)}, nullptr));
  ASSERT_EQ(VT_DISPATCH, V_VT(&variable));
  EXPECT_EQ(expected.Get(), V_DISPATCH(&variable));
  EXPECT_EQ(S_OK, Invoke(terminal.Get(), kStoresANumber, DISPATCH_METHOD, {testing::ByReference(&variable)}, nullptr));
  ASSERT_EQ(VT_I4, V_VT(&variable));
  EXPECT_EQ(7, V_I4(&variable));
}

TEST_F(ForeignTerminal, AnObjectThatComesIntoAnEmptyVariableIsWrapped) {
  const auto other = HandMade::New();
  const auto terminal = Wrapped(Replacing(other));
  const auto expected = Wrapped(other);
  IDispatch* nothing = nullptr;
  EXPECT_EQ(S_OK, Invoke(terminal.Get(), kStoresTheObject, DISPATCH_METHOD, {ByReference(&nothing)}, nullptr));
  EXPECT_EQ(expected.Get(), nothing);
  Reference<IDispatch>::Adopt(nothing);
  for (const VARIANT& before : {OfType(VT_EMPTY), Number(5), Object(nullptr)}) {
    OwnedVariant variable;
    static_cast<VARIANT&>(variable) = before;
    EXPECT_EQ(S_OK,
              Invoke(terminal.Get(), kStoresTheObject, DISPATCH_METHOD, {testing::ByReference(&variable)}, nullptr));
    ASSERT_EQ(VT_DISPATCH, V_VT(&variable));
    EXPECT_EQ(expected.Get(), V_DISPATCH(&variable));
  }
}

TEST_F(ForeignTerminal, TheProgramsOwnObjectInAVariableStaysItsOwn) {
  const auto programs = HandMade::New();
  const auto passing = Wrapped(HandMade::New([&](DISPID, const DISPPARAMS& arguments, VARIANT*) {
    EXPECT_EQ(programs.Get(), *V_DISPATCHREF(&arguments.rgvarg[0]));
    return S_OK;
  }));
  IDispatch* variable = programs.Get();
  EXPECT_EQ(S_OK, Invoke(passing.Get(), 1, DISPATCH_METHOD, {ByReference(&variable)}, nullptr));
  EXPECT_EQ(programs.Get(), variable);
  const auto replacing = Wrapped(Replacing(programs));
  OwnedVariant held;
  static_cast<VARIANT&>(held) = OwningObject(programs);
  EXPECT_EQ(S_OK, Invoke(replacing.Get(), kStoresTheObject, DISPATCH_METHOD, {testing::ByReference(&held)}, nullptr));
  EXPECT_EQ(programs.Get(), V_DISPATCH(&held));
}

// --- Another apartment ----------------------------------------------------------------------------------------------

constexpr wchar_t kScenario[] =
    LR"toml(
session = [{ name = "A" }, { name = "B" }]
reply = [{ entry = "JI", screen = "DONE" }]
terminal = { silent = [353] }

[[pnr]]
RecordLocator = "ABC123"
on_display = true
display = '''
RP/PARXX0100/PARXX0100            AM/SU  12JUN08/0930Z   ABC123
  1.TREMBLAY/ODETTE MRS
  2 RM CALL
'''
)toml";

class OtherApartment : public Desktop {
 protected:
  OtherApartment() { Load(kScenario); }
  // The system keeps a class of the terminal's for the other apartment, so its DLL cannot unload, with or without the
  // recorder.
  void TearDown() override {
    EXPECT_EQ(0, LiveObjects());
    EXPECT_TRUE(CanUnload());
  }
};

template <typename Interface = IDispatch>
Reference<Interface> New(const CLSID& id) {
  Reference<Interface> object;
  EXPECT_EQ(S_OK, CreateInto(id, object));
  return object;
}

Reference<IDispatch> Get(const Reference<IDispatch>& object, const wchar_t* name,
                         std::initializer_list<VARIANT> arguments = {}) {
  OwnedVariant result;
  EXPECT_EQ(S_OK, Invoke(object.Get(), name, arguments, &result)) << std::string(name, name + wcslen(name));
  EXPECT_EQ(VT_DISPATCH, V_VT(&result));
  return V_VT(&result) == VT_DISPATCH ? Reference<IDispatch>(V_DISPATCH(&result)) : Reference<IDispatch>();
}

std::u16string TextAt(const Reference<IDispatch>& object, const wchar_t* name) {
  OwnedVariant result;
  EXPECT_EQ(S_OK, Invoke(object.Get(), name, {}, &result)) << std::string(name, name + wcslen(name));
  return V_VT(&result) == VT_BSTR ? std::u16string(TextOf(V_BSTR(&result))) : u"no text";
}

void UseTheTerminal() {
  const auto list = New(CLSID_RecordedSessionList);
  Reference<IUnknown> proxy;
  const auto ours = list.As<recorder::IWrapper>();
  ASSERT_TRUE(ours);
  ASSERT_EQ(S_OK, ours->Itself().Real()->QueryInterface(IID_IMultiQI, proxy.ReceiveVoid())) << "behind it is no proxy";

  const auto session = Get(list, L"Item", {String(Text(L"A"))});
  const auto connection = Get(session, L"HostConnection");
  EXPECT_EQ(connection.Get(), Get(session, L"HostConnection").Get());
  EXCEPINFO exception{};
  EXPECT_EQ(DISP_E_EXCEPTION, Invoke(list.Get(), L"Item", {String(Text(L"Z"))}, nullptr, &exception));
  const Exception error = Taken(exception);
  EXPECT_EQ(static_cast<SCODE>(0x800A0009), error.code);
  EXPECT_EQ(L"No session of the name \"Z\" runs.", error.description);

  VARIANT transmit = OfType(VT_BOOL);
  V_BOOL(&transmit) = VARIANT_TRUE;
  const auto response = Get(session, L"Send", {String(Text(L"JI")), transmit});
  EXPECT_EQ(0U, TextAt(response, L"Buffer").find(u"DONE"));
  EXPECT_EQ(u"JI", TextAt(Get(session, L"LastResponse"), L"HostCommand"));

  const auto pnr = New(CLSID_RecordedPNR);
  VARIANT variable = Object(connection.Get());
  OwnedVariant status;
  EXPECT_EQ(S_OK, Invoke(pnr.Get(), 80, DISPATCH_METHOD, {testing::ByReference(&variable)}, &status));
  EXPECT_EQ(connection.Get(), V_DISPATCH(&variable));
  EXPECT_EQ(0U, TextAt(pnr, L"Text").find(u"RP/PARXX0100"));

  OwnedVariant result;
  ASSERT_EQ(S_OK, Invoke(list.Get(), DISPID_NEWENUM, DISPATCH_PROPERTYGET, {}, &result));
  Reference<IEnumVARIANT> sessions;
  ASSERT_EQ(S_OK, V_UNKNOWN(&result)->QueryInterface(IID_IEnumVARIANT, sessions.ReceiveVoid()));
  OwnedVariant elements[2];
  ULONG fetched = 0;
  EXPECT_EQ(S_OK, sessions->Next(2, elements, &fetched));
  ASSERT_EQ(2U, fetched);
  EXPECT_EQ(u"B", TextAt(Reference<IDispatch>(V_DISPATCH(&elements[1])), L"SessionName"));
}

TEST_F(OtherApartment, ATerminalIsRecordedThroughItsProxies) {
  const std::filesystem::path file = std::filesystem::temp_directory_path() / L"recorded_through_proxies.toml";
  std::filesystem::remove(file);
  recorder::TheRun().Start({.file = file, .kept = {}}, recorder::EndedBy::Program);
  ApartmentThread(COINIT_APARTMENTTHREADED, UseTheTerminal).PumpUntilEnded();
  const recording::Outcome outcome = *recorder::TheRun().End();
  EXPECT_TRUE(outcome.isWritten);
  EXPECT_THAT(outcome.notReproduced, IsEmpty());
  std::ifstream stream(file, std::ios::binary);
  const std::string text{std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
  EXPECT_THAT(text, AllOf(HasSubstr("[[session]]\nname = \"A\"\n\n[[session]]\nname = \"B\"\n"),
                          HasSubstr("entry = \"JI\"\nsession = \"A\"\nscreen = \"DONE\"\n"),
                          HasSubstr("  1.QBBBBBBB/QBBBBB MRS\n  2 RM XXXX\n")))
      << text;
  stream.close();
  std::filesystem::remove(file);
}

}  // namespace
}  // namespace wendrill::com::testing
