#include "every_object.h"

#include "common/text.h"

namespace wendrill::com::testing {
namespace {

constexpr wchar_t kScenario[] =
    LR"toml(
session = [{ name = "A" }]

[[pnr]]
RecordLocator = "ABC123"
on_display = true
display = '''
RP/PARXX0100/PARXX0100
 10 SSR VGML AF HK1/S5/P1
'''

[[pnr.Names]]
Text = "1.SMITH/JOHN MR(ADT)"
ElementNo = "1"
)toml";

// A pointer to an interface that derives from IDispatch, as that very pointer: asking the object would give its default
// interface.
Reference<IDispatch> Adopted(IDispatch* pointer) {
  return Reference<IDispatch>::Adopt(pointer);
}

}  // namespace

void EveryObject::SetUp() {
  Load(kScenario);
  quillet_ = CreateQuillet();
  VARIANT_BOOL found = VARIANT_FALSE;
  ASSERT_EQ(S_OK, quillet_->RetrieveRecLoc(Text(L"ABC123"), &found));
  bag_ = Create<_ParamBag>(CLSID_ParamBag);
  const auto pnr = Create<_CPNR>(CLSID_CPNR);
  objects_ = {quillet_.As<IDispatch>(),
              Adopted(pnr.As<_CPNR>().Release()),
              Adopted(pnr.As<_IGet>().Release()),
              Adopted(pnr.As<_IGetPNR>().Release()),
              Create<IDispatch>(CLSID_CQueue),
              Create<IDispatch>(CLSID_CBatch),
              Create<IDispatch>(CLSID_CEncodeUtils),
              Create<IDispatch>(CLSID_IGet),
              Create<IDispatch>(CLSID_IGetPNR)};
}

void EveryObject::TearDown() {
  objects_.clear();
  bag_ = {};
  quillet_ = {};
  Desktop::TearDown();
}

void EveryObject::Reconnect() {
  EXPECT_EQ(S_OK, quillet_->ConnectSession(Text(L"A")));
  Journal();
}

std::string Narrow(const std::wstring& text) {
  return ToUtf8(TextOf(std::wstring_view(text)));
}

}  // namespace wendrill::com::testing
