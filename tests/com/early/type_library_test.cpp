// The type library only describes: what it says must be what the dispatch tables and the manifests do.
#include <algorithm>
#include <map>
#include <set>

#include "com/server/dispatch_table.h"
#include "common/text.h"
#include "desktop_fixture.h"
#include "manifests.h"
#include "support/published_members.h"

namespace wendrill::com::testing {
namespace {

using wendrill::testing::PublishedInterface;
using wendrill::testing::PublishedInterfaces;
using wendrill::testing::PublishedMember;
using wendrill::testing::PublishedMemberCount;

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

// The type library's own type that a description refers to.
struct NamedType {
  std::string name;
  TYPEKIND kind = TKIND_MAX;
};

NamedType NamedTypeOf(const Reference<ITypeInfo>& information, const TYPEDESC& type) {
  Reference<ITypeInfo> named;
  EXPECT_EQ(S_OK, information->GetRefTypeInfo(type.hreftype, named.Receive()));
  Text name;
  EXPECT_EQ(S_OK, named->GetDocumentation(MEMBERID_NIL, name.Receive(), nullptr, nullptr, nullptr));
  TYPEATTR* attributes = nullptr;
  EXPECT_EQ(S_OK, named->GetTypeAttr(&attributes));
  const TYPEKIND kind = attributes->typekind;
  named->ReleaseTypeAttr(attributes);
  return {Narrow(name.Wide()), kind};
}

// A type as the table of published members spells it. A pointer to an interface is the object itself.
std::string TypeOf(const Reference<ITypeInfo>& information, const TYPEDESC& type) {
  static const std::map<VARTYPE, std::string> names{
      {VT_VOID, ""},       {VT_I2, "16-bit"},       {VT_I4, "32-bit"},       {VT_BOOL, "Boolean"},
      {VT_BSTR, "string"}, {VT_VARIANT, "Variant"}, {VT_DISPATCH, "object"}, {VT_UNKNOWN, "IUnknown"},
  };
  if (const auto found = names.find(type.vt); found != names.end()) {
    return found->second;
  }
  switch (type.vt) {
    case VT_SAFEARRAY:
      return "array of " + TypeOf(information, *type.lptdesc);
    case VT_USERDEFINED:
      return NamedTypeOf(information, type).name;
    case VT_PTR: {
      const TYPEDESC& pointee = *type.lptdesc;
      const bool isObject = pointee.vt == VT_USERDEFINED && NamedTypeOf(information, pointee).kind == TKIND_DISPATCH;
      return TypeOf(information, pointee) + (isObject ? "" : " by reference");
    }
    default:
      return "type " + std::to_string(type.vt);
  }
}

struct MemberDescription {
  std::wstring name;
  std::wstring help;
  DISPID id = 0;
  INVOKEKIND kind = INVOKE_FUNC;
  SHORT parameters = 0;
  std::vector<std::wstring> parameterNames;
  std::string types;   // of the parameters, as the table of published members spells them
  std::string result;  // the same; empty: none
  std::string flags;
};

std::string ParameterOf(const Reference<ITypeInfo>& information, const ELEMDESC& parameter, std::wstring_view name) {
  const USHORT flags = parameter.paramdesc.wParamFlags;
  std::string text = (flags & PARAMFLAG_FOPT) != 0 ? "optional " : "";
  text += (name.empty() ? "" : Narrow(name) + " ") + TypeOf(information, parameter.tdesc);
  if ((flags & PARAMFLAG_FHASDEFAULT) != 0) {
    VARIANT& value = parameter.paramdesc.pparamdescex->varDefaultValue;
    EXPECT_EQ(parameter.tdesc.vt, V_VT(&value));
    OwnedVariant shown;
    EXPECT_EQ(S_OK, VariantChangeType(&shown, &value, 0, VT_BSTR));
    text += " = " + ToUtf8(TextOf(V_BSTR(&shown)));
  }
  return text;
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
    member.flags += (function->wFuncFlags & FUNCFLAG_FHIDDEN) != 0 ? "hidden " : "";
    member.flags += (function->wFuncFlags & FUNCFLAG_FRESTRICTED) != 0 ? "restricted " : "";
    for (SHORT place = 0; !inherited && place < function->cParams; ++place) {
      // The value of a put has no name of the caller's.
      const bool isNamed = member.kind == INVOKE_FUNC;
      member.types += (place > 0 ? ", " : "") +
                      ParameterOf(type.information, function->lprgelemdescParam[place],
                                  isNamed ? member.parameterNames.at(static_cast<std::size_t>(place)) : L"");
    }
    member.result = TypeOf(type.information, function->elemdescFunc.tdesc);
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
  std::size_t compared = 0;
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
  EXPECT_EQ(PublishedMemberCount(), compared);
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

std::string KindOf(const MemberDescription& member) {
  static const std::map<INVOKEKIND, std::string> kinds{{INVOKE_FUNC, "method"},
                                                       {INVOKE_PROPERTYGET, "get"},
                                                       {INVOKE_PROPERTYPUT, "put"},
                                                       {INVOKE_PROPERTYPUTREF, "set"}};
  return member.flags + kinds.at(member.kind);
}

// Compiled callers pass the default in the place of what is left out; only a VARIANT can say itself that it is not
// there. For a string by reference the IDL compiler writes no default: such callers pass null, which Add takes.
TEST_F(TypeLibrary, EveryMemberHasTheSlotTheParametersAndTheResultThatCallersRelyOn) {
  std::map<std::string, std::vector<MemberDescription>> described;
  for (const Description& type : DescriptionsIn(LibraryOf(L"Wendrill23.dll"))) {
    if (type.attributes.typekind == TKIND_DISPATCH) {
      described[Narrow(type.name)] = MembersOf(type);
    }
  }
  EXPECT_EQ(PublishedInterfaces().size(), described.size());
  for (const PublishedInterface& published : PublishedInterfaces()) {
    const std::vector<MemberDescription>& members = described[published.name];
    ASSERT_EQ(published.members.size(), members.size()) << published.name;
    for (std::size_t place = 0; place < members.size(); ++place) {
      const PublishedMember& expected = published.members[place];
      const MemberDescription& member = members[place];
      SCOPED_TRACE(published.name + "." + expected.name);
      EXPECT_EQ(expected.name, Narrow(member.name));
      EXPECT_EQ(expected.kind, KindOf(member));
      EXPECT_EQ(expected.parameters, member.types);
      EXPECT_EQ(expected.result, member.result);
      EXPECT_EQ(expected.id.value_or(member.id), member.id);
    }
  }
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
struct ClassesOf {
  const wchar_t* library;
  int count;
};
class Manifest : public ::testing::TestWithParam<ClassesOf> {};

TEST_P(Manifest, NamesEveryClassOfTheTypeLibrary) {
  const std::wstring name = GetParam().library;
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
  EXPECT_EQ(GetParam().count, classes);
}

INSTANTIATE_TEST_SUITE_P(Both, Manifest,
                         ::testing::Values(ClassesOf{L"Wendrill23", 7}, ClassesOf{L"QuilletSimulator", 8}),
                         [](const auto& parameter) { return Narrow(parameter.param.library); });

}  // namespace
}  // namespace wendrill::com::testing
