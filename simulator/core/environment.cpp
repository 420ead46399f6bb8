#include "core/environment.h"

#include <cstdlib>

#include "common/text.h"

namespace wendrill::simulator {

std::u16string EnvironmentText(std::u16string_view name) {
#ifdef _WIN32
  static_assert(sizeof(wchar_t) == sizeof(char16_t));
  const wchar_t* value = _wgetenv(std::wstring(name.begin(), name.end()).c_str());
  const std::wstring_view text = value == nullptr ? std::wstring_view() : value;
  return {text.begin(), text.end()};
#else
  const char* value = std::getenv(ToUtf8(name).c_str());
  return value == nullptr ? std::u16string() : FromUtf8(value);
#endif
}

}  // namespace wendrill::simulator
