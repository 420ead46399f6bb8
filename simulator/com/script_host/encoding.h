// Between the bytes of files and pipes and the UTF-16 that scripts are made of.
#pragma once

#include <string>
#include <string_view>

namespace wendrill::script_host {

std::string Utf8Of(std::wstring_view text);

// A script's text: UTF-16 where the bytes begin with its mark, UTF-8 with or without a mark, and where the bytes are no
// UTF-8, Windows-1252, in which older scripts are saved.
std::wstring TextOfScript(std::string_view bytes);

}  // namespace wendrill::script_host
