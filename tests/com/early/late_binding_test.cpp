// IDispatch as C++ clients use it: names, by-reference arguments, counts and types of arguments, errors.
#include <array>
#include <map>

#include "desktop_fixture.h"
#include "late_calls.h"
#include "support/published_members.h"

namespace wendrill::com::testing {
namespace {

using LateBinding = Desktop;

TEST_F(LateBinding, NamesAreFoundWhateverTheirCase) {
  const auto quillet = CreateQuillet();
  const DISPID id = IdOf(quillet.Get(), L"SendCommand");
  EXPECT_EQ(id, IdOf(quillet.Get(), L"sendcommand"));
  EXPECT_EQ(id, IdOf(quillet.Get(), L"SENDCOMMAND"));
  auto* unknown = const_cast<LPOLESTR>(L"SendCommandX");
  DISPID none = 0;
  EXPECT_EQ(DISP_E_UNKNOWNNAME, quillet->GetIDsOfNames(IID_NULL, &unknown, 1, LOCALE_USER_DEFAULT, &none));
  EXPECT_EQ(DISPID_UNKNOWN, none);
}

TEST_F(LateBinding, ArgumentsCanBeNamed) {
  const auto quillet = CreateQuillet();
  std::array<LPOLESTR, 3> names{const_cast<LPOLESTR>(L"ChangeSMOD"), const_cast<LPOLESTR>(L"intform"),
                                const_cast<LPOLESTR>(L"intSMOD")};
  std::array<DISPID, 3> ids{};
  ASSERT_EQ(S_OK, quillet->GetIDsOfNames(IID_NULL, names.data(), 3, LOCALE_USER_DEFAULT, ids.data()));
  Journal();
  std::array<VARIANT, 2> values{Number(12), Number(5)};
  DISPPARAMS parameters{values.data(), &ids[1], 2, 2};
  EXPECT_EQ(S_OK, quillet->Invoke(ids[0], IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &parameters, nullptr, nullptr,
                                  nullptr));
  EXPECT_NE(std::wstring::npos, Journal().find(L"send 0512"));
}

TEST_F(LateBinding, ACallMayDropItsResult) {
  const auto quillet = CreateQuillet();
  const Text entry(L"ET");
  EXPECT_EQ(S_OK, Invoke(quillet.Get(), L"SendCommand", {String(entry)}, nullptr));
}

TEST_F(LateBinding, WrongCountsOfArgumentsAreRejected) {
  const auto quillet = CreateQuillet();
  OwnedVariant result;
  EXPECT_EQ(DISP_E_BADPARAMCOUNT, Invoke(quillet.Get(), L"SendCommand", {}, &result));
  EXPECT_EQ(DISP_E_BADPARAMCOUNT, Invoke(quillet.Get(), L"SendCommand", {Number(1), Number(2)}, &result));
  EXPECT_EQ(DISP_E_BADPARAMCOUNT,
            Invoke(quillet.Get(), L"SendCommand", {Number(1), Number(2), Number(3), Number(4), Number(5)}, &result));
  EXPECT_EQ(DISP_E_BADPARAMCOUNT, Invoke(quillet.Get(), L"LastBuffer", {Number(1)}, &result));
}

TEST_F(LateBinding, AMisfitTellsWhichArgument) {
  const auto quillet = CreateQuillet();
  OwnedVariant result;
  UINT argument = 99;
  const Text words(L"words");
  EXPECT_EQ(DISP_E_TYPEMISMATCH,
            Invoke(quillet.Get(), L"ChangeSMOD", {Number(1), String(words)}, &result, nullptr, &argument));
  EXPECT_EQ(0U, argument);
  EXPECT_EQ(DISP_E_OVERFLOW,
            Invoke(quillet.Get(), L"ChangeSMOD", {Number(70000), Number(1)}, &result, nullptr, &argument));
  EXPECT_EQ(1U, argument);
}

TEST_F(LateBinding, ErrorsComeInTheExceptionInformation) {
  const auto quillet = CreateQuillet();
  const Text name(L"NOBODY");
  EXCEPINFO exception{};
  EXPECT_EQ(DISP_E_EXCEPTION, Invoke(quillet.Get(), L"ConnectSession", {String(name)}, nullptr, &exception));
  EXPECT_EQ(static_cast<SCODE>(0x800A09E7), exception.scode);
  EXPECT_STREQ(L"Wendrill23", exception.bstrSource);
  EXPECT_STREQ(L"Could not connect to Quillet Session.", exception.bstrDescription);
  SysFreeString(exception.bstrSource);
  SysFreeString(exception.bstrDescription);
}

TEST_F(LateBinding, APlainVariableServesAByReferenceParameter) {
  const auto quillet = CreateQuillet();
  OwnedVariant variable;
  V_VT(&variable) = VT_BSTR;
  V_BSTR(&variable) = SysAllocString(L"272");
  Journal();
  EXPECT_EQ(S_OK, Invoke(quillet.Get(), L"SendKey", {ByReference(&variable)}, nullptr));
  EXPECT_EQ(L"key 272\r\n", Journal());
  EXPECT_EQ(VT_BSTR, V_VT(&variable));                                         // what did not change keeps its type
  EXPECT_EQ(S_OK, Invoke(quillet.Get(), L"SendKey", {Number(272)}, nullptr));  // by value too
}

TEST_F(LateBinding, AReadOnlyPropertyCannotBePut) {
  const auto quillet = CreateQuillet();
  VARIANT value = Number(1);
  DISPID put = DISPID_PROPERTYPUT;
  DISPPARAMS parameters{&value, &put, 1, 1};
  EXPECT_EQ(DISP_E_MEMBERNOTFOUND, quillet->Invoke(IdOf(quillet.Get(), L"LastBuffer"), IID_NULL, LOCALE_USER_DEFAULT,
                                                   DISPATCH_PROPERTYPUT, &parameters, nullptr, nullptr, nullptr));
  EXPECT_EQ(S_OK, quillet->Invoke(IdOf(quillet.Get(), L"Command"), IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_PROPERTYPUT,
                                  &parameters, nullptr, nullptr, nullptr));
}

TEST_F(LateBinding, UnknownMembersAreRejected) {
  const auto quillet = CreateQuillet();
  DISPPARAMS none{};
  for (const DISPID id : {DISPID{12345}, DISPID{-4}, DISPID{-1}, DISPID{0}, DISPID{0x7FFFFFFF}}) {
    EXPECT_EQ(DISP_E_MEMBERNOTFOUND,
              quillet->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &none, nullptr, nullptr, nullptr))
        << id;
  }
}

TEST_F(LateBinding, CpnrAnswersTheNamesOfIGetAndIGetPNR) {
  const auto pnr = Create<IDispatch>(CLSID_CPNR);
  EXPECT_EQ(static_cast<DISPID>(0x60030000), IdOf(pnr.Get(), L"ActiveAirSegments"));
  EXPECT_EQ(static_cast<DISPID>(0x60030013), IdOf(pnr.Get(), L"OptionElements"));
  EXPECT_NE(DISPID_UNKNOWN, IdOf(pnr.Get(), L"Elements"));
  EXPECT_NE(DISPID_UNKNOWN, IdOf(pnr.Get(), L"NameElementsCount"));
}

// Its three interfaces use the same identifiers: one that two names share would call the wrong member.
TEST_F(LateBinding, CpnrHasAnIdentifierOfItsOwnForEachName) {
  const auto pnr = Create<IDispatch>(CLSID_CPNR);
  std::map<DISPID, std::string> nameOf;
  for (const auto& published : wendrill::testing::PublishedInterfaces()) {
    if (published.name != "_CPNR" && published.name != "_IGet" && published.name != "_IGetPNR") {
      continue;
    }
    for (const auto& member : published.members) {
      const DISPID id = IdOf(pnr.Get(), std::wstring(member.name.begin(), member.name.end()).c_str());
      EXPECT_EQ(member.name, nameOf.try_emplace(id, member.name).first->second);
    }
  }
  EXPECT_LT(60U, nameOf.size());
}

TEST_F(LateBinding, ClassInformationDescribesTheClass) {
  const auto quillet = CreateQuillet();
  const auto described = quillet.As<IProvideClassInfo>();
  ASSERT_TRUE(described);
  Reference<ITypeInfo> information;
  ASSERT_EQ(S_OK, described->GetClassInfo(information.Receive()));
  TYPEATTR* attributes = nullptr;
  ASSERT_EQ(S_OK, information->GetTypeAttr(&attributes));
  EXPECT_EQ(CLSID_CQuillet, attributes->guid);
  information->ReleaseTypeAttr(attributes);
}

}  // namespace
}  // namespace wendrill::com::testing
