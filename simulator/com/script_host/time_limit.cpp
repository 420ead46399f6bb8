#include "time_limit.h"

#include <cwchar>
#include <utility>

#include "console.h"

namespace wendrill::script_host {

namespace {

constexpr DWORD kMillisecondsAfterTheLimit = 2000;
constexpr std::wstring_view kSend = L"Send";

std::wstring Decimal(double number) {
  wchar_t text[32];
  std::swprintf(text, std::size(text), L"%g", number);
  return text;
}

std::wstring OnOneLine(std::wstring_view text) {
  std::wstring result;
  for (const wchar_t character : text) {
    result += character == L'\r' ? L"\\r" : character == L'\n' ? L"\\n" : std::wstring(1, character);
  }
  return result;
}

// Returns a call as messages show it: Send("JI"), SendKey(353), Buffer.
std::wstring CallText(const std::wstring& operation, const std::wstring& argument) {
  if (operation == kSend) {
    return operation + L"(\"" + OnOneLine(argument) + L"\")";
  }
  return argument.empty() ? operation : operation + L"(" + argument + L")";
}

}  // namespace

TimeLimit::TimeLimit(std::wstring script, double seconds, std::function<void(const std::wstring&)> beforeTheEnd)
    : script_(std::move(script)),
      seconds_(seconds),
      beforeTheEnd_(std::move(beforeTheEnd)),
      over_(CreateEventW(nullptr, TRUE, FALSE, nullptr)),
      stopped_(CreateEventW(nullptr, TRUE, FALSE, nullptr)),
      thread_(CreateThread(nullptr, 0, Watch, this, 0, nullptr)) {}

TimeLimit::~TimeLimit() {
  Stop();
  CloseHandle(thread_);
  CloseHandle(stopped_);
  CloseHandle(over_);
}

const wchar_t* TimeLimit::Enter(std::wstring_view operation, std::wstring_view argument) {
  const std::lock_guard guard(mutex_);
  operation_ = operation;
  argument_ = argument;
  if (operation == kSend) {
    entry_ = argument;
  }
  if (WaitForSingleObject(over_, 0) != WAIT_OBJECT_0 || WaitForSingleObject(stopped_, 0) == WAIT_OBJECT_0) {
    return nullptr;
  }
  if (failed_.empty()) {
    failed_ = CallText(operation_, argument_);
    because_ = L"no end after " + Decimal(seconds_) + L" s";
  }
  return because_.c_str();
}

void TimeLimit::Stop() {
  SetEvent(stopped_);
  WaitForSingleObject(thread_, INFINITE);
}

bool TimeLimit::Struck() {
  const std::lock_guard guard(mutex_);
  return !failed_.empty();
}

std::wstring TimeLimit::ReportAt(ULONG line) {
  const std::lock_guard guard(mutex_);
  if (line == 0) {
    return Report(L"", L", in " + failed_ + L"; the line is not known");
  }
  return Report(L"line " + std::to_wstring(line) + L": ", L", in " + failed_);
}

std::wstring TimeLimit::Report(const std::wstring& start, const std::wstring& where) const {
  return script_ + L": " + start + L"no end after " + Decimal(seconds_) + L" s" + where +
         (entry_.empty() ? L"" : L"; last entry \"" + OnOneLine(entry_) + L"\"");
}

DWORD WINAPI TimeLimit::Watch(void* limit) {
  static_cast<TimeLimit*>(limit)->WaitForTheEnd();
  return 0;
}

void TimeLimit::WaitForTheEnd() {
  if (WaitForSingleObject(stopped_, static_cast<DWORD>(seconds_ * 1000)) == WAIT_OBJECT_0) {
    return;
  }
  SetEvent(over_);
  if (WaitForSingleObject(stopped_, kMillisecondsAfterTheLimit) == WAIT_OBJECT_0) {
    return;
  }
  const std::lock_guard guard(mutex_);
  const std::wstring last =
      operation_.empty() ? L"; no call was made" : L"; last call " + CallText(operation_, argument_);
  const std::wstring message =
      failed_.empty()
          ? Report(L"", L", in a loop without calls: the line is not known" + last)
          : Report(L"", L", in " + failed_ + L"; the script went on after the error: the line is not known");
  WriteError(message + L"\r\n");
  beforeTheEnd_(message);
  TerminateProcess(GetCurrentProcess(), kTimeIsOver);
}

}  // namespace wendrill::script_host
