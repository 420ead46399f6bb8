#include "junit.h"

#include <algorithm>
#include <cwchar>

namespace wendrill::script_host {

namespace {

constexpr std::wstring_view kStart = L"<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<testsuites>\n";
constexpr std::wstring_view kEnd = L"</testsuites>\n";
constexpr wchar_t kReplacement = 0xFFFD;

bool IsHighSurrogate(wchar_t unit) {
  return unit >= 0xD800 && unit <= 0xDBFF;
}
bool IsLowSurrogate(wchar_t unit) {
  return unit >= 0xDC00 && unit <= 0xDFFF;
}

bool IsForbidden(wchar_t unit) {
  return (unit < 0x20 && unit != L'\t' && unit != L'\n' && unit != L'\r') || unit == 0xFFFE || unit == 0xFFFF;
}

std::wstring Escaped(wchar_t unit) {
  switch (unit) {
    case L'<':
      return L"&lt;";
    case L'>':
      return L"&gt;";
    case L'&':
      return L"&amp;";
    case L'"':
      return L"&quot;";
    case L'\t':
    case L'\n':
    case L'\r':  // an XML reader turns these characters into blanks unless they are escaped
      return L"&#" + std::to_wstring(static_cast<unsigned>(unit)) + L";";
    default:
      return std::wstring(1, IsForbidden(unit) ? kReplacement : unit);
  }
}

std::wstring Xml(const std::wstring& text) {
  std::wstring xml;
  for (std::size_t index = 0; index < text.size(); ++index) {
    const wchar_t unit = text[index];
    if (IsHighSurrogate(unit) && index + 1 < text.size() && IsLowSurrogate(text[index + 1])) {
      xml += unit;
      xml += text[++index];
    } else if (IsHighSurrogate(unit) || IsLowSurrogate(unit)) {
      xml += kReplacement;
    } else {
      xml += Escaped(unit);
    }
  }
  return xml;
}

std::wstring CaseXml(const std::wstring& script, const Case& one) {
  std::wstring xml = L"    <testcase classname=\"" + Xml(script) + L"\" name=\"" + Xml(one.name) + L"\" time=\"0\"";
  if (one.skipped) {
    return xml + L"><skipped/></testcase>\n";
  }
  if (one.failure.empty()) {
    return xml + L"/>\n";
  }
  return xml + L">\n      <failure type=\"failure\" message=\"" + Xml(one.failure) + L"\">" +
         Xml(script + L": " + one.name + L": " + one.failure) + L"</failure>\n    </testcase>\n";
}

}  // namespace

std::wstring JUnitSuite(const std::wstring& script, const std::vector<Case>& cases, double seconds) {
  const auto failed = std::count_if(cases.begin(), cases.end(), [](const Case& one) { return !one.failure.empty(); });
  const auto skipped = std::count_if(cases.begin(), cases.end(), [](const Case& one) { return one.skipped; });
  wchar_t time[32];
  std::swprintf(time, std::size(time), L"%.3f", seconds);
  std::wstring xml = L"  <testsuite name=\"" + Xml(script) + L"\" tests=\"" + std::to_wstring(cases.size()) +
                     L"\" failures=\"" + std::to_wstring(failed) + L"\" errors=\"0\" skipped=\"" +
                     std::to_wstring(skipped) + L"\" time=\"" + time + L"\">\n";
  for (const Case& one : cases) {
    xml += CaseXml(script, one);
  }
  return xml + L"  </testsuite>\n";
}

std::wstring JUnitFile(const std::wstring& suites) {
  return std::wstring(kStart) + suites + std::wstring(kEnd);
}

std::wstring SuitesOf(const std::wstring& file) {
  if (!file.starts_with(kStart) || !file.ends_with(kEnd)) {
    return {};
  }
  return file.substr(kStart.size(), file.size() - kStart.size() - kEnd.size());
}

}  // namespace wendrill::script_host
