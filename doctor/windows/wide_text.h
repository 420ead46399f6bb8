// Conversions between the UTF-16 of Windows and the UTF-8 of the doctor's core.
#pragma once

#include <string>
#include <string_view>

namespace wendrill::doctor {

std::wstring Wide(std::string_view utf8);
std::string Narrow(std::wstring_view text);

}  // namespace wendrill::doctor
