#include "input_stream.h"

#include <algorithm>

namespace wendrill::script_host {

namespace {

constexpr HRESULT kInputPastEnd = static_cast<HRESULT>(0x800A003E);
constexpr HRESULT kInvalidCall = static_cast<HRESULT>(0x800A0005);
constexpr DWORD kBytesAtOnce = 4096;

enum InputMember : DISPID {
  kRead = 1,
  kReadLine,
  kReadAll,
  kSkip,
  kSkipLine,
  kAtEndOfLine,
  kAtEndOfStream,
  kLine,
  kColumn,
  kClose,
};
constexpr MemberName kInputMembers[] = {{L"Read", kRead},
                                        {L"ReadLine", kReadLine},
                                        {L"ReadAll", kReadAll},
                                        {L"Skip", kSkip},
                                        {L"SkipLine", kSkipLine},
                                        {L"AtEndOfLine", kAtEndOfLine},
                                        {L"AtEndOfStream", kAtEndOfStream},
                                        {L"Line", kLine},
                                        {L"Column", kColumn},
                                        {L"Close", kClose}};

// Returns the number of bytes at the end that begin a UTF-8 character without completing it; 0 when the last character
// is complete.
std::size_t BytesOfCutCharacter(const std::string& bytes) {
  for (std::size_t back = 1; back <= std::min<std::size_t>(3, bytes.size()); ++back) {
    const auto byte = static_cast<unsigned char>(bytes[bytes.size() - back]);
    if ((byte & 0xC0) == 0xC0) {
      const std::size_t length = byte >= 0xF0 ? 4 : byte >= 0xE0 ? 3 : 2;
      return length > back ? back : 0;
    }
    if ((byte & 0x80) == 0) {
      return 0;
    }
  }
  return 0;
}

std::wstring FromUtf8(const std::string& bytes) {
  const int size = static_cast<int>(bytes.size());
  std::wstring text(static_cast<std::size_t>(MultiByteToWideChar(CP_UTF8, 0, bytes.data(), size, nullptr, 0)), L'\0');
  MultiByteToWideChar(CP_UTF8, 0, bytes.data(), size, text.data(), static_cast<int>(text.size()));
  return text;
}

std::size_t CountFrom(const CallArguments& arguments) {
  const long count = arguments.Number(0);
  if (count < 0) {
    throw Failure{kInvalidCall, L"WScript.StdIn", L"a number of characters cannot be less than 0"};
  }
  return static_cast<std::size_t>(count);
}

}  // namespace

InputStream::InputStream(TimeLimit& limit) : ScriptObject(L"WScript.StdIn", kInputMembers, limit) {}

void InputStream::Call(DISPID member, const CallArguments& arguments, VARIANT& result) {
  switch (member) {
    case kRead:
      return SetText(result, Take(CountFrom(arguments)));
    case kReadLine:
      return SetText(result, TakeLine());
    case kReadAll:
      return SetText(result, TakeAll());
    case kSkip:
      Take(CountFrom(arguments));
      return;
    case kSkipLine:
      TakeLine();
      return;
    case kAtEndOfLine:
      return SetTruth(result, AtEndOfLine());
    case kAtEndOfStream:
      return SetTruth(result, waiting_.empty() && !Fill());
    case kLine:
      return SetNumber(result, line_);
    case kColumn:
      return SetNumber(result, column_);
    case kClose:
      return;  // does nothing: the stream belongs to the process
    default:
      throw Failure{DISP_E_MEMBERNOTFOUND, {}, {}};
  }
}

bool InputStream::Fill() {
  HANDLE handle = GetStdHandle(STD_INPUT_HANDLE);
  DWORD mode = 0;
  const std::size_t before = waiting_.size();
  while (!ended_ && waiting_.size() == before) {
    DWORD count = 0;
    if (GetConsoleMode(handle, &mode) != 0) {
      wchar_t typed[kBytesAtOnce];
      ended_ = ReadConsoleW(handle, typed, kBytesAtOnce, &count, nullptr) == 0 || count == 0;
      waiting_.append(typed, count);
      continue;
    }
    char bytes[kBytesAtOnce];
    ended_ = ReadFile(handle, bytes, kBytesAtOnce, &count, nullptr) == 0 || count == 0;
    rest_.append(bytes, count);
    const std::size_t cut = ended_ ? 0 : BytesOfCutCharacter(rest_);
    waiting_ += FromUtf8(rest_.substr(0, rest_.size() - cut));
    rest_.erase(0, rest_.size() - cut);
  }
  return waiting_.size() > before;
}

void InputStream::RequireMore() {
  if (waiting_.empty() && !Fill()) {
    throw Failure{kInputPastEnd, L"WScript.StdIn", L"the input has ended"};
  }
}

std::wstring InputStream::Take(std::size_t count) {
  if (count == 0) {
    return {};
  }
  RequireMore();
  while (waiting_.size() < count && Fill()) {
  }
  std::wstring taken = waiting_.substr(0, count);
  waiting_.erase(0, taken.size());
  for (const wchar_t character : taken) {
    line_ += character == L'\n' ? 1 : 0;
    column_ = character == L'\n' ? 1 : column_ + 1;
  }
  return taken;
}

std::wstring InputStream::TakeLine() {
  RequireMore();
  std::size_t end = waiting_.find(L'\n');
  while (end == std::wstring::npos && Fill()) {
    end = waiting_.find(L'\n');
  }
  std::wstring line = Take(end == std::wstring::npos ? waiting_.size() : end + 1);
  for (const wchar_t last : {L'\n', L'\r'}) {
    if (line.ends_with(last)) {
      line.pop_back();
    }
  }
  return line;
}

std::wstring InputStream::TakeAll() {
  while (Fill()) {
  }
  return Take(waiting_.size());
}

bool InputStream::AtEndOfLine() {
  if (waiting_.empty() && !Fill()) {
    return true;
  }
  if (waiting_.front() == L'\r' && waiting_.size() == 1) {
    Fill();
  }
  return waiting_.front() == L'\n' || waiting_.starts_with(L"\r\n");
}

}  // namespace wendrill::script_host
