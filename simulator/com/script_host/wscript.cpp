#include "wscript.h"

#include <algorithm>
#include <filesystem>
#include <iterator>

#include "console.h"
#include "late_bound.h"
#include "program_path.h"
#include "word_enumeration.h"

namespace wendrill::script_host {

namespace {

constexpr HRESULT kSubscriptOutOfRange = static_cast<HRESULT>(0x800A0009);
constexpr HRESULT kInvalidCall = static_cast<HRESULT>(0x800A0005);

enum ArgumentsMember : DISPID {
  kItem = DISPID_VALUE,
  kNewEnum = DISPID_NEWENUM,
  kCount = 1,
  kLength,
  kNamed,
  kUnnamed,
  kExists,
};
constexpr MemberName kArgumentsMembers[] = {{L"Item", kItem},        {L"Count", kCount}, {L"Length", kLength},
                                            {L"_NewEnum", kNewEnum}, {L"Named", kNamed}, {L"Unnamed", kUnnamed}};
constexpr MemberName kUnnamedMembers[] = {
    {L"Item", kItem}, {L"Count", kCount}, {L"Length", kLength}, {L"_NewEnum", kNewEnum}};
constexpr MemberName kNamedMembers[] = {
    {L"Item", kItem}, {L"Count", kCount}, {L"Length", kLength}, {L"_NewEnum", kNewEnum}, {L"Exists", kExists}};

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
  kStdIn,
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
                                          {L"StdIn", kStdIn},
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

// Whether a word is a named argument, such as "/name:value" or "/name": true for every word that begins with "/".
bool IsNamed(const std::wstring& word) {
  return word.starts_with(L"/");
}

void Echo(const CallArguments& arguments) {
  std::wstring line;
  for (UINT index = 0; index < arguments.Count(); ++index) {
    line += (index == 0 ? L"" : L" ") + (arguments.IsNull(index) ? L"null" : arguments.Text(index));
  }
  WriteOut(line + L"\r\n");
}

// Sleeps and pumps the thread's messages, so that events and calls from other apartments arrive during the sleep.
// Throws Failure: 5 (invalid argument) for a negative time, the time limit's error when the limit ends the sleep.
void SleepAndPump(long milliseconds, TimeLimit& limit) {
  if (milliseconds < 0) {
    throw Failure{kInvalidCall, L"WScript.Sleep", L"a sleep cannot be shorter than 0 milliseconds"};
  }
  const ULONGLONG end = GetTickCount64() + static_cast<ULONGLONG>(milliseconds);
  for (ULONGLONG now = GetTickCount64(); now < end; now = GetTickCount64()) {
    const HANDLE over = limit.Over();
    if (MsgWaitForMultipleObjects(1, &over, FALSE, static_cast<DWORD>(end - now), QS_ALLINPUT) == WAIT_OBJECT_0) {
      const wchar_t* why = limit.Enter(L"WScript.Sleep");
      throw Failure{TimeLimit::kStatus, L"WScript.Sleep", why == nullptr ? L"" : why};
    }
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != 0) {
      TranslateMessage(&message);
      DispatchMessageW(&message);
    }
  }
}

}  // namespace

Words::Words(std::wstring_view name, std::span<const MemberName> members, TimeLimit& limit,
             std::vector<std::wstring> words)
    : ScriptObject(name, members, limit), name_(name), words_(std::move(words)) {}

void Words::Call(DISPID member, const CallArguments& arguments, VARIANT& result) {
  switch (member) {
    case kItem: {
      const long index = arguments.Number(0);
      if (index < 0 || static_cast<std::size_t>(index) >= words_.size()) {
        throw Failure{kSubscriptOutOfRange, std::wstring(name_),
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

Arguments::Arguments(TimeLimit& limit, std::vector<std::wstring> words)
    : Words(L"WScript.Arguments", kArgumentsMembers, limit, words) {
  std::vector<std::wstring> unnamed;
  std::copy_if(words.begin(), words.end(), std::back_inserter(unnamed),
               [](const std::wstring& word) { return !IsNamed(word); });
  named_.Attach(new NamedArguments(limit, words));
  unnamed_.Attach(new Words(L"WScript.Arguments.Unnamed", kUnnamedMembers, limit, std::move(unnamed)));
}

void Arguments::Call(DISPID member, const CallArguments& arguments, VARIANT& result) {
  switch (member) {
    case kNamed:  // Named("x") arrives as a call of Named with the argument "x"
      return arguments.Count() == 0 ? SetObject(result, named_.Get()) : named_->Call(kItem, arguments, result);
    case kUnnamed:  // Unnamed(0) arrives as a call of Unnamed with the argument 0
      return arguments.Count() == 0 ? SetObject(result, unnamed_.Get()) : unnamed_->Call(kItem, arguments, result);
    default:
      return Words::Call(member, arguments, result);
  }
}

NamedArguments::NamedArguments(TimeLimit& limit, const std::vector<std::wstring>& words)
    : ScriptObject(L"WScript.Arguments.Named", kNamedMembers, limit) {
  for (const std::wstring& word : words) {
    if (IsNamed(word)) {
      const std::size_t colon = std::min(word.find(L':'), word.size());
      names_.push_back(word.substr(1, colon - 1));
      values_.push_back(colon < word.size() ? word.substr(colon + 1) : std::wstring());
      hasValue_.push_back(colon < word.size());
    }
  }
}

std::size_t NamedArguments::PlaceOf(const std::wstring& name) const {
  return static_cast<std::size_t>(
      std::find_if(names_.begin(), names_.end(),
                   [&name](const std::wstring& candidate) { return _wcsicmp(candidate.c_str(), name.c_str()) == 0; }) -
      names_.begin());
}

void NamedArguments::Call(DISPID member, const CallArguments& arguments, VARIANT& result) {
  switch (member) {
    case kItem: {  // Empty for an unknown name and for a name without a value
      const std::size_t place = PlaceOf(arguments.Text(0));
      if (place < names_.size() && hasValue_[place]) {
        SetText(result, values_[place]);
      }
      return;
    }
    case kExists:
      return SetTruth(result, PlaceOf(arguments.Text(0)) < names_.size());
    case kCount:
    case kLength:
      return SetNumber(result, static_cast<long>(names_.size()));
    case kNewEnum:
      V_VT(&result) = VT_UNKNOWN;
      V_UNKNOWN(&result) = new WordEnumeration(names_);
      return;
    default:
      throw Failure{DISP_E_MEMBERNOTFOUND, {}, {}};
  }
}

OutputStream::OutputStream(std::wstring_view name, TimeLimit& limit, void (*write)(std::wstring_view))
    : ScriptObject(name, kStreamMembers, limit), write_(write) {}

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
      return;  // does nothing: output is unbuffered, and the stream belongs to the process
    default:
      throw Failure{DISP_E_MEMBERNOTFOUND, {}, {}};
  }
}

WScript::WScript(std::wstring scriptPath, std::vector<std::wstring> arguments, TimeLimit& limit,
                 std::function<void(int)> quit)
    : ScriptObject(L"WScript", kWScriptMembers, limit), scriptPath_(std::move(scriptPath)), quit_(std::move(quit)) {
  arguments_.Attach(new Arguments(limit, std::move(arguments)));
  standardInput_.Attach(new InputStream(limit));
  standardOutput_.Attach(new OutputStream(L"WScript.StdOut", limit, WriteOut));
  standardError_.Attach(new OutputStream(L"WScript.StdErr", limit, WriteError));
}

std::vector<std::wstring_view> WScript::MemberNames() {
  std::vector<std::wstring_view> names;
  for (const MemberName& member : kWScriptMembers) {
    names.push_back(member.name);
  }
  return names;
}

void WScript::Call(DISPID member, const CallArguments& arguments, VARIANT& result) {
  switch (member) {
    case kEcho:
      return Echo(arguments);
    case kQuit:
      return quit_(arguments.Count() == 0 ? 0 : arguments.Number(0));
    case kCreateObject:
      V_DISPATCH(&result) = CreateByName(arguments.Text(0));
      V_VT(&result) = VT_DISPATCH;
      return;
    case kArguments:  // WScript.Arguments(0) arrives as a call of Arguments with the argument 0
      return arguments.Count() == 0 ? SetObject(result, arguments_.Get()) : arguments_->Call(kItem, arguments, result);
    case kSleep:
      return SleepAndPump(arguments.Number(0), Limit());
    case kStdIn:
      return SetObject(result, standardInput_.Get());
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
      return SetText(result, ProgramPath().wstring());
    case kPath:
      return SetText(result, ProgramPath().parent_path().wstring());
    case kVersion:
      return SetText(result, L"1.0");
    case kBuildVersion:
    case kTimeout:  // WScript.Timeout is always 0 (no limit), although --timeout limits the run
      return SetNumber(result, 0);
    case kInteractive:
      return SetTruth(result, false);
    case kApplication:
      return SetObject(result, this);
    default:
      throw Failure{DISP_E_MEMBERNOTFOUND, {}, {}};
  }
}

}  // namespace wendrill::script_host
