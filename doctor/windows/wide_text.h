// Windows speaks UTF-16, the doctor's core UTF-8.
#pragma once

#include <string>
#include <string_view>

namespace wendrill::doctor {

std::wstring Wide(std::string_view utf8);
std::string Narrow(std::wstring_view text);

}  // namespace wendrill::doctor
