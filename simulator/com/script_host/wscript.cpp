#include "wscript.h"

#include <algorithm>
#include <filesystem>

#include "console.h"
#include "word_enumeration.h"

namespace wendrill::script_host {

namespace {

using Microsoft::WRL::ComPtr;

constexpr HRESULT kSubscriptOutOfRange = static_cast<HRESULT>(0x800A0009);
constexpr HRESULT kInvalidCall = static_cast<HRESULT>(0x800A0005);
constexpr HRESULT kCannotCreateObject = static_cast<HRESULT>(0x800A01AD);

enum ArgumentsMember : DISPID { kItem = DISPID_VALUE, kNewEnum = DISPID_NEWENUM, kCount = 1, kLength };
constexpr MemberName kArgumentsMembers[] = {
    {L"Item", kItem}, {L"Count", kCount}, {L"Length", kLength}, {L"_NewEnum", kNewEnum}};

enum StreamMember : DISPID { kWrite = 1, kWriteLine, kWriteBlankLines, kCloseStream };
constexpr MemberName kStreamMembers[] = {
    {L"Write", kWrite}, {L"WriteLine", kWriteLine}, {L"WriteBlankLines", kWriteBlankLines}, {L"Close", kCloseStream}};

enum WScriptMember : DISPID {
  kName = DISPID_VALUE,
  kEcho = 1,
  kQuit,
  kCreateObject,
  kArguments,
  kSleep,
  kStdOut,
  kStdErr,
  kScriptName,
  kScriptFullName,
  kFullName,
  kPath,
  kVersion,
  kBuildVersion,
  kInteractive,
  kTimeout,
  kApplication,
};
constexpr MemberName kWScriptMembers[] = {{L"Name", kName},
                                          {L"Echo", kEcho},
                                          {L"Quit", kQuit},
                                          {L"CreateObject", kCreateObject},
                                          {L"Arguments", kArguments},
                                          {L"Sleep", kSleep},
                                          {L"StdOut", kStdOut},
                                          {L"StdErr", kStdErr},
                                          {L"ScriptName", kScriptName},
                                          {L"ScriptFullName", kScriptFullName},
                                          {L"FullName", kFullName},
                                          {L"Path", kPath},
                                          {L"Version", kVersion},
                                          {L"BuildVersion", kBuildVersion},
                                          {L"Interactive", kInteractive},
                                          {L"Timeout", kTimeout},
                                          {L"Application", kApplication}};

std::filesystem::path HostPath() {
  std::wstring path(MAX_PATH * 4, L'\0');
  path.resize(GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size())));
  return path;
}

void Echo(const CallArguments& arguments) {
  std::wstring line;
  for (UINT index = 0; index < arguments.Count(); ++index) {
    line += (index == 0 ? L"" : L" ") + (arguments.IsNull(index) ? L"null" : arguments.Text(index));
  }
  WriteOut(line + L"\r\n");
}

// Events and calls from other apartments arrive while the script sleeps.
void SleepAndPump(long milliseconds) {
  if (milliseconds < 0) {
    throw Failure{kInvalidCall, L"WScript.Sleep", L"a sleep cannot be shorter than 0 milliseconds"};
  }
  const ULONGLONG end = GetTickCount64() + static_cast<ULONGLONG>(milliseconds);
  for (ULONGLONG now = GetTickCount64(); now < end; now = GetTickCount64()) {
    MsgWaitForMultipleObjects(0, nullptr, FALSE, static_cast<DWORD>(end - now), QS_ALLINPUT);
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != 0) {
      TranslateMessage(&message);
      DispatchMessageW(&message);
    }
  }
}

// The error information that the class set when it refused to be created; the status alone when it set none.
Failure RefusalOf(HRESULT status, const std::wstring& className) {
  ComPtr<IErrorInfo> told;
  if (GetErrorInfo(0, &told) != S_OK) {
    return {status, L"WScript.CreateObject",
            L"an object of class \"" + className + L"\" could not be created: " + SystemMessage(status)};
  }
  BSTR source = nullptr;
  BSTR description = nullptr;
  told->GetSource(&source);
  told->GetDescription(&description);
  Failure failure{status, {source, SysStringLen(source)}, {description, SysStringLen(description)}};
  SysFreeString(source);
  SysFreeString(description);
  return failure;
}

void CreateObject(const std::wstring& className, VARIANT& result) {
  CLSID identity;
  if (FAILED(CLSIDFromProgID(className.c_str(), &identity))) {
    throw Failure{kCannotCreateObject, L"WScript.CreateObject", L"there is no class \"" + className + L"\""};
  }
  SetErrorInfo(0, nullptr);
  IDispatch* object = nullptr;
  const HRESULT status =
      CoCreateInstance(identity, nullptr, CLSCTX_SERVER, IID_IDispatch, reinterpret_cast<void**>(&object));
  if (FAILED(status)) {
    throw RefusalOf(status, className);
  }
  V_VT(&result) = VT_DISPATCH;
  V_DISPATCH(&result) = object;
}

}  // namespace

Arguments::Arguments(std::vector<std::wstring> words) : ScriptObject(kArgumentsMembers), words_(std::move(words)) {}

void Arguments::Call(DISPID member, const CallArguments& arguments, VARIANT& result) {
  switch (member) {
    case kItem: {
      const long index = arguments.Number(0);
      if (index < 0 || static_cast<std::size_t>(index) >= words_.size()) {
        throw Failure{kSubscriptOutOfRange, L"WScript.Arguments",
                      L"there is no argument " + std::to_wstring(index) + L"; the script was called with " +
                          std::to_wstring(words_.size())};
      }
      return SetText(result, words_[static_cast<std::size_t>(index)]);
    }
    case kCount:
    case kLength:
      return SetNumber(result, static_cast<long>(words_.size()));
    case kNewEnum:
      V_VT(&result) = VT_UNKNOWN;
      V_UNKNOWN(&result) = new WordEnumeration(words_);
      return;
    default:
      throw Failure{DISP_E_MEMBERNOTFOUND, {}, {}};
  }
}

OutputStream::OutputStream(void (*write)(std::wstring_view)) : ScriptObject(kStreamMembers), write_(write) {}

void OutputStream::Call(DISPID member, const CallArguments& arguments, VARIANT&) {
  switch (member) {
    case kWrite:
      return write_(arguments.Text(0));
    case kWriteLine:
      return write_(arguments.Count() == 0 ? L"\r\n" : arguments.Text(0) + L"\r\n");
    case kWriteBlankLines:
      for (long left = arguments.Number(0); left > 0; --left) {
        write_(L"\r\n");
      }
      return;
    case kCloseStream:
      return;  // output is unbuffered, and the stream belongs to the process
    default:
      throw Failure{DISP_E_MEMBERNOTFOUND, {}, {}};
  }
}

WScript::WScript(std::wstring scriptPath, std::vector<std::wstring> arguments, std::function<void(int)> quit)
    : ScriptObject(kWScriptMembers), scriptPath_(std::move(scriptPath)), quit_(std::move(quit)) {
  arguments_.Attach(new Arguments(std::move(arguments)));
  standardOutput_.Attach(new OutputStream(WriteOut));
  standardError_.Attach(new OutputStream(WriteError));
}

void WScript::Call(DISPID member, const CallArguments& arguments, VARIANT& result) {
  switch (member) {
    case kEcho:
      return Echo(arguments);
    case kQuit:
      return quit_(arguments.Count() == 0 ? 0 : arguments.Number(0));
    case kCreateObject:
      return CreateObject(arguments.Text(0), result);
    case kArguments:  // WScript.Arguments(0) arrives as one call with an argument
      return arguments.Count() == 0 ? SetObject(result, arguments_.Get()) : arguments_->Call(kItem, arguments, result);
    case kSleep:
      return SleepAndPump(arguments.Number(0));
    case kStdOut:
      return SetObject(result, standardOutput_.Get());
    case kStdErr:
      return SetObject(result, standardError_.Get());
    case kScriptName:
      return SetText(result, std::filesystem::path(scriptPath_).filename().wstring());
    case kScriptFullName:
      return SetText(result, scriptPath_);
    case kName:
      return SetText(result, L"Wendrill23 script host");
    case kFullName:
      return SetText(result, HostPath().wstring());
    case kPath:
      return SetText(result, HostPath().parent_path().wstring());
    case kVersion:
      return SetText(result, L"1.0");
    case kBuildVersion:
    case kTimeout:  // a script has no time limit
      return SetNumber(result, 0);
    case kInteractive:
      V_VT(&result) = VT_BOOL;
      V_BOOL(&result) = VARIANT_FALSE;
      return;
    case kApplication:
      return SetObject(result, this);
    default:
      throw Failure{DISP_E_MEMBERNOTFOUND, {}, {}};
  }
}

}  // namespace wendrill::script_host
