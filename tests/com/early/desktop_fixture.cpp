#include "desktop_fixture.h"

#include "common/error.h"
#include "common/text.h"

namespace wendrill::com::testing {
ErrorOnThread TakeError() {
  ErrorOnThread taken;
  Reference<IErrorInfo> information;
  if (GetErrorInfo(0, information.Receive()) == S_OK) {
    Text source;
    Text description;
    information->GetSource(source.Receive());
    information->GetDescription(description.Receive());
    taken = {source.Wide(), description.Wide()};
  }
  return taken;
}

std::wstring Row(std::wstring_view text) {
  std::wstring row(text);
  row.resize(80, L' ');
  return row;
}

std::wstring WideMessageOf(int number) {
  const std::u16string_view own = MessageOf(number);
  return std::wstring(WideOf(own.empty() ? DescriptionOf(static_cast<RunTimeError>(number)) : own));
}

bool CanUnloadDll(const wchar_t* name) {
  const HMODULE library = GetModuleHandleW(name);
  if (library == nullptr) {
    return true;  // the test never loaded it
  }
  using CanUnload = HRESULT(WINAPI*)();
  const auto canUnload =
      reinterpret_cast<CanUnload>(reinterpret_cast<void*>(GetProcAddress(library, "DllCanUnloadNow")));
  return canUnload() == S_OK;
}

Desktop::Desktop() {
  CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
  control_ = Create<_Control>(CLSID_Control);
}

Desktop::~Desktop() {
  CoUninitialize();
}

void Desktop::TearDown() {
  EXPECT_EQ(0, LiveObjects());
  control_ = {};
  EXPECT_TRUE(CanUnloadDll(L"Wendrill23.dll"));
  EXPECT_TRUE(CanUnloadDll(L"QuilletSimulator.dll"));
}

void Desktop::Load(const wchar_t* scenario) {
  const HRESULT status = control_->LoadText(Text(scenario));
  ASSERT_EQ(S_OK, status) << std::string(ToUtf8(TextOf(std::wstring_view(TakeError().description))));
  control_->ClearJournal();
}

void Desktop::LoadFile(const std::filesystem::path& scenario) {
  const HRESULT status = control_->Load(Text(scenario.c_str()));
  ASSERT_EQ(S_OK, status) << std::string(ToUtf8(TextOf(std::wstring_view(TakeError().description))));
  control_->ClearJournal();
}

std::wstring Desktop::Journal() {
  Text journal;
  EXPECT_EQ(S_OK, control_->get_Journal(journal.Receive()));
  control_->ClearJournal();
  return journal.Wide();
}

void Desktop::FailNext(const wchar_t* operation, HRESULT status, LONG nth) {
  ASSERT_EQ(S_OK, control_->FailNext(Text(operation), status, nth));
}

LONG Desktop::LiveObjects() {
  LONG count = -1;
  EXPECT_EQ(S_OK, control_->get_LiveObjects(&count));
  return count;
}

LONG Desktop::Calls() {
  LONG count = 0;
  EXPECT_EQ(S_OK, control_->get_Calls(&count));
  return count;
}

}  // namespace wendrill::com::testing
