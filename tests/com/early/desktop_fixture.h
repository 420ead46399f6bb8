// A test's desktop: an apartment, the simulator, and the check that nothing is left at the end.
#pragma once

#include <gtest/gtest.h>
#include <ocidl.h>
#include <ole2.h>
#include <windows.h>

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "com/server/automation_types.h"
#include "platform.h"
#include "wendrill23.h"

namespace wendrill::com::testing {

// Text in and out of automation strings, for tests' eyes.
class Text {
 public:
  Text() = default;
  Text(const wchar_t* text) : string_(TextOf(std::wstring_view(text))) {}  // a literal, wherever a BSTR is wanted
  operator BSTR() const { return string_.Get(); }
  BSTR* Receive() { return string_.Receive(); }
  std::wstring Wide() const { return std::wstring(WideOf(string_.Text())); }

 private:
  OwnedString string_;
};

// What a failed call left on the thread.
struct ErrorOnThread {
  std::wstring source;
  std::wstring description;
};
ErrorOnThread TakeError();

// A row of the terminal.
std::wstring Row(std::wstring_view text);

// Whether the DLL of that name could unload; also when the test never loaded it.
bool CanUnloadDll(const wchar_t* name);

class Desktop : public ::testing::Test {
 protected:
  Desktop();
  ~Desktop() override;

  // Nothing of the desktop lives any more and both DLLs may unload. Objects must be local to the test.
  void TearDown() override;

  template <typename Interface>
  Reference<Interface> Create(const CLSID& id) {
    Reference<Interface> object;
    EXPECT_EQ(S_OK, CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, __uuidof(Interface), object.ReceiveVoid()));
    return object;
  }
  Reference<_CQuillet> CreateQuillet() { return Create<_CQuillet>(CLSID_CQuillet); }

  void Load(const wchar_t* scenario);
  void LoadFile(const std::filesystem::path& scenario);
  std::wstring Journal();  // since the last time
  void FailNext(const wchar_t* operation, HRESULT status, LONG nth);
  LONG LiveObjects();
  LONG Calls();  // of simulated members, so far

 private:
  Reference<_Control> control_;
};

// The call failed with one of the library's own numbers.
#define EXPECT_OWN_ERROR(number, call)                                             \
  do {                                                                             \
    EXPECT_EQ(static_cast<HRESULT>(0x800A0000 + (number)), (call));                \
    const auto error = ::wendrill::com::testing::TakeError();                      \
    EXPECT_EQ(L"Wendrill23", error.source);                                        \
    EXPECT_EQ(::wendrill::com::testing::WideMessageOf(number), error.description); \
  } while (false)

std::wstring WideMessageOf(int number);

}  // namespace wendrill::com::testing
