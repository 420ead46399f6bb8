// The type library only describes: what it says must be what the dispatch tables and the manifests do.
#include <algorithm>
#include <map>
#include <set>

#include "com/server/dispatch_table.h"
#include "common/text.h"
#include "desktop_fixture.h"
#include "manifests.h"

namespace wendrill::com::testing {
namespace {

Reference<ITypeLib> LibraryOf(const wchar_t* dll) {
  Reference<ITypeLib> library;
  EXPECT_EQ(S_OK, LoadTypeLibEx((FolderOfProgram() + dll).c_str(), REGKIND_NONE, library.Receive()));
  return library;
}

std::string Narrow(std::wstring_view text) {
  return ToUtf8(TextOf(text));
}

// Everything a description says about one type.
struct Description {
  std::wstring name;
  std::wstring help;
  TYPEATTR attributes{};
  Reference<ITypeInfo> information;
};

std::vector<Description> DescriptionsIn(const Reference<ITypeLib>& library) {
  std::vector<Description> all;
  for (UINT index = 0; index < library->GetTypeInfoCount(); ++index) {
    Description description;
    Text name;
    Text help;
    library->GetDocumentation(static_cast<INT>(index), name.Receive(), help.Receive(), nullptr, nullptr);
    description.name = name.Wide();
    description.help = help.Wide();
    library->GetTypeInfo(index, description.information.Receive());
    TYPEATTR* attributes = nullptr;
    description.information->GetTypeAttr(&attributes);
    description.attributes = *attributes;
    description.information->ReleaseTypeAttr(attributes);
    all.push_back(std::move(description));
  }
  return all;
}

struct MemberDescription {
  std::wstring name;
  std::wstring help;
  DISPID id = 0;
  INVOKEKIND kind = INVOKE_FUNC;
  SHORT parameters = 0;
  SHORT optional = 0;
  std::vector<std::wstring> parameterNames;
  bool isHidden = false;

  // A parameter that the caller may leave out.
  struct OptionalParameter {
    std::wstring name;
    std::wstring form;  // its type and its default
  };
  std::vector<OptionalParameter> optionalParameters;
};

std::wstring FormOf(const ELEMDESC& parameter) {
  const bool isReference = parameter.tdesc.vt == VT_PTR;
  const VARTYPE type = isReference ? parameter.tdesc.lptdesc->vt : parameter.tdesc.vt;
  std::wstring form = type == VT_BSTR ? L"string" : type == VT_I2 ? L"16-bit" : L"type " + std::to_wstring(type);
  form += isReference ? L" by reference" : L"";
  if ((parameter.paramdesc.wParamFlags & PARAMFLAG_FHASDEFAULT) != 0) {
    OwnedVariant text;
    EXPECT_EQ(type, V_VT(&parameter.paramdesc.pparamdescex->varDefaultValue));
    EXPECT_EQ(S_OK, VariantChangeType(&text, &parameter.paramdesc.pparamdescex->varDefaultValue, 0, VT_BSTR));
    form += L", else " + std::wstring(WideOf(TextOf(V_BSTR(&text))));
  }
  return form;
}

std::vector<MemberDescription> MembersOf(const Description& type) {
  std::vector<MemberDescription> members;
  for (UINT index = 0; index < type.attributes.cFuncs; ++index) {
    FUNCDESC* function = nullptr;
    EXPECT_EQ(S_OK, type.information->GetFuncDesc(index, &function));
    MemberDescription member;
    member.id = function->memid;
    member.kind = function->invkind;
    member.parameters = function->cParams;
    member.optional = function->cParamsOpt;
    const bool inherited = (function->wFuncFlags & FUNCFLAG_FRESTRICTED) != 0 && function->memid >= 0x60000000 &&
                           function->memid < 0x60030000;
    Text name;
    Text help;
    type.information->GetDocumentation(function->memid, name.Receive(), help.Receive(), nullptr, nullptr);
    member.name = name.Wide();
    member.help = help.Wide();
    BSTR names[1 + kMaximumParameters]{};
    UINT count = 0;
    type.information->GetNames(function->memid, names, static_cast<UINT>(std::size(names)), &count);
    for (UINT place = 0; place < count; ++place) {
      if (place > 0) {
        member.parameterNames.emplace_back(names[place]);
      }
      SysFreeString(names[place]);
    }
    member.isHidden = (function->wFuncFlags & FUNCFLAG_FHIDDEN) != 0;
    for (SHORT place = 0; place < function->cParams; ++place) {
      const ELEMDESC& element = function->lprgelemdescParam[place];
      if ((element.paramdesc.wParamFlags & PARAMFLAG_FOPT) != 0) {
        member.optionalParameters.push_back(
            {member.parameterNames.at(static_cast<std::size_t>(place)), FormOf(element)});
      }
    }
    type.information->ReleaseFuncDesc(function);
    if (!inherited) {
      members.push_back(std::move(member));
    }
  }
  return members;
}

// The objects whose tables are compared with their descriptions.
class TypeLibrary : public Desktop {
 protected:
  Reference<IDispatch> ObjectWith(const std::wstring& interfaceName, const IID& identity) {
    static const std::map<std::wstring, CLSID> classes{{L"_CQuillet", CLSID_CQuillet},
                                                       {L"_CPNR", CLSID_CPNR},
                                                       {L"_CQueue", CLSID_CQueue},
                                                       {L"_CBatch", CLSID_CBatch},
                                                       {L"_IGet", CLSID_CPNR},
                                                       {L"_IGetPNR", CLSID_CPNR},
                                                       {L"_CEncodeUtils", CLSID_CEncodeUtils}};
    Reference<IDispatch> object;
    const auto found = classes.find(interfaceName);
    if (found == classes.end()) {
      ADD_FAILURE() << "no class for " << Narrow(interfaceName);
      return object;
    }
    Reference<IUnknown> unknown;
    EXPECT_EQ(S_OK,
              CoCreateInstance(found->second, nullptr, CLSCTX_INPROC_SERVER, IID_IUnknown, unknown.ReceiveVoid()));
    EXPECT_EQ(S_OK, unknown->QueryInterface(identity, object.ReceiveVoid()));
    return object;
  }
};

TEST_F(TypeLibrary, HoldsSevenClassesSevenInterfacesAndTheKeys) {
  std::multiset<TYPEKIND> kinds;
  std::set<std::wstring> classes;
  for (const Description& type : DescriptionsIn(LibraryOf(L"Wendrill23.dll"))) {
    kinds.insert(type.attributes.typekind);
    if (type.attributes.typekind == TKIND_COCLASS) {
      classes.insert(type.name);
    }
  }
  EXPECT_EQ(7U, kinds.count(TKIND_COCLASS));
  EXPECT_EQ(7U, kinds.count(TKIND_DISPATCH));
  EXPECT_EQ(1U, kinds.count(TKIND_ENUM));
  EXPECT_EQ((std::set<std::wstring>{L"CQuillet", L"CPNR", L"CQueue", L"CBatch", L"CEncodeUtils", L"IGet", L"IGetPNR"}),
            classes);
}

TEST_F(TypeLibrary, EveryTypeAndEveryMemberHasAHelpString) {
  for (const Description& type : DescriptionsIn(LibraryOf(L"Wendrill23.dll"))) {
    EXPECT_FALSE(type.help.empty()) << Narrow(type.name);
    if (type.attributes.typekind == TKIND_DISPATCH) {
      for (const MemberDescription& member : MembersOf(type)) {
        EXPECT_FALSE(member.help.empty()) << Narrow(type.name + L"." + member.name);
      }
    }
  }
}

TEST_F(TypeLibrary, DispatchTablesAnswerEveryDescribedMemberUnderItsIdentifier) {
  const auto keepSession = CreateQuillet();
  int compared = 0;
  for (const Description& type : DescriptionsIn(LibraryOf(L"Wendrill23.dll"))) {
    if (type.attributes.typekind != TKIND_DISPATCH) {
      continue;
    }
    const auto object = ObjectWith(type.name, type.attributes.guid);
    ASSERT_TRUE(object);
    for (const MemberDescription& member : MembersOf(type)) {
      SCOPED_TRACE(Narrow(type.name + L"." + member.name));
      std::vector<LPOLESTR> names{const_cast<LPOLESTR>(member.name.c_str())};
      // The value of a put has no name of the caller's.
      if (member.kind == INVOKE_FUNC) {
        for (const std::wstring& parameter : member.parameterNames) {
          names.push_back(const_cast<LPOLESTR>(parameter.c_str()));
        }
      }
      std::vector<DISPID> ids(names.size(), DISPID_UNKNOWN);
      EXPECT_EQ(S_OK, object->GetIDsOfNames(IID_NULL, names.data(), static_cast<UINT>(names.size()),
                                            LOCALE_USER_DEFAULT, ids.data()));
      EXPECT_EQ(member.id, ids[0]);
      for (std::size_t place = 1; place < ids.size(); ++place) {
        EXPECT_EQ(static_cast<DISPID>(place - 1), ids[place]);
      }
      ++compared;
    }
  }
  EXPECT_EQ(33 + 2 * 20 + 5 + 7 + 1 + 1 + 43 - 20, compared);
}

TEST_F(TypeLibrary, TablesTakeAsManyArgumentsAsDescribed) {
  const auto keepSession = CreateQuillet();
  for (const Description& type : DescriptionsIn(LibraryOf(L"Wendrill23.dll"))) {
    if (type.attributes.typekind != TKIND_DISPATCH) {
      continue;
    }
    const auto object = ObjectWith(type.name, type.attributes.guid);
    for (const MemberDescription& member : MembersOf(type)) {
      if (member.kind != INVOKE_FUNC || member.parameters >= static_cast<SHORT>(kMaximumParameters)) {
        continue;
      }
      // One argument too many must be refused before anything is called.
      std::vector<VARIANT> arguments(static_cast<std::size_t>(member.parameters) + 1);
      DISPPARAMS parameters{arguments.data(), nullptr, static_cast<UINT>(arguments.size()), 0};
      EXPECT_EQ(DISP_E_BADPARAMCOUNT, object->Invoke(member.id, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD,
                                                     &parameters, nullptr, nullptr, nullptr))
          << Narrow(type.name + L"." + member.name);
    }
  }
}

// Compiled callers pass the default in the place of what is left out; only a VARIANT can say itself that it is not
// there. For a string by reference the IDL compiler writes no default: such callers pass null, which Add takes.
TEST_F(TypeLibrary, EveryOptionalParameterIsOneThatCompiledCallersCanLeaveOut) {
  std::map<std::wstring, std::wstring> optional;
  for (const Description& type : DescriptionsIn(LibraryOf(L"Wendrill23.dll"))) {
    if (type.attributes.typekind != TKIND_DISPATCH) {
      continue;
    }
    for (const MemberDescription& member : MembersOf(type)) {
      for (const auto& parameter : member.optionalParameters) {
        optional[type.name + L"." + member.name + L" " + parameter.name] = parameter.form;
      }
    }
  }
  const std::map<std::wstring, std::wstring> expected{{L"_CQuillet.ChangeSMOD intFORM", L"16-bit, else 0"},
                                                      {L"_CQueue.Add sKey", L"string by reference"}};
  EXPECT_EQ(expected, optional);
}

TEST_F(TypeLibrary, WhatOnlyTheTerminalCallsIsHidden) {
  std::vector<std::wstring> hidden;
  for (const Description& type : DescriptionsIn(LibraryOf(L"Wendrill23.dll"))) {
    if (type.attributes.typekind == TKIND_DISPATCH) {
      for (const MemberDescription& member : MembersOf(type)) {
        if (member.isHidden) {
          hidden.push_back(type.name + L"." + member.name);
        }
      }
    }
  }
  EXPECT_EQ(std::vector<std::wstring>{L"_CQuillet.mTmpSession_ReceivedResponse"}, hidden);
}

TEST_F(TypeLibrary, KeysAre130WithTheirValues) {
  std::map<std::wstring, LONG> keys;
  for (const Description& type : DescriptionsIn(LibraryOf(L"Wendrill23.dll"))) {
    if (type.attributes.typekind != TKIND_ENUM) {
      continue;
    }
    EXPECT_EQ(L"QuilletKeyValues", type.name);
    for (UINT index = 0; index < type.attributes.cVars; ++index) {
      VARDESC* variable = nullptr;
      ASSERT_EQ(S_OK, type.information->GetVarDesc(index, &variable));
      Text name;
      type.information->GetDocumentation(variable->memid, name.Receive(), nullptr, nullptr, nullptr);
      keys[name.Wide()] = V_I4(variable->lpvarValue);
      type.information->ReleaseVarDesc(variable);
    }
  }
  EXPECT_EQ(130U, keys.size());
  EXPECT_EQ(32, keys[L"kbSpace"]);
  EXPECT_EQ(322, keys[L"kbClear"]);
  EXPECT_EQ(353, keys[L"kbPA2"]);
  EXPECT_EQ(keys[L"kbClean"], keys[L"kbEraseInput"]);
  EXPECT_EQ(400, keys[L"kbACUTE"]);
  EXPECT_EQ(2048, keys[L"kbALT"]);
  // The shifted keys are the plain ones and the shift bit.
  for (int number = 1; number <= 12; ++number) {
    EXPECT_EQ(256 + number, keys[L"kbPF" + std::to_wstring(number)]);
    EXPECT_EQ(keys[L"kbSHIFT"] + 256 + number, keys[L"kbPF" + std::to_wstring(number + 12)]);
  }
  EXPECT_EQ(keys[L"kbSHIFT"] + keys[L"kbTab"], keys[L"kbBackTab"]);
}

// The manifests let the tests find the classes at all, so a class that they miss would be missed by every test.
class Manifest : public ::testing::TestWithParam<const wchar_t*> {};

TEST_P(Manifest, NamesEveryClassOfTheTypeLibrary) {
  const std::wstring name = GetParam();
  const std::string manifest = ManifestIn(name + L".dll", 1);
  int classes = 0;
  for (const Description& type : DescriptionsIn(LibraryOf((name + L".dll").c_str()))) {
    if (type.attributes.typekind == TKIND_COCLASS) {
      wchar_t identity[40];
      StringFromGUID2(type.attributes.guid, identity, 40);
      EXPECT_NE(std::string::npos, manifest.find("clsid=\"" + Narrow(identity) + "\"")) << Narrow(type.name);
      ++classes;
    }
  }
  EXPECT_EQ(7, classes);
}

INSTANTIATE_TEST_SUITE_P(Both, Manifest, ::testing::Values(L"Wendrill23", L"QuilletSimulator"),
                         [](const auto& parameter) { return Narrow(parameter.param); });

}  // namespace
}  // namespace wendrill::com::testing
