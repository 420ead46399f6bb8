// Converts between the bytes of files and pipes and the UTF-16 of scripts.
#pragma once

#include <string>
#include <string_view>

namespace wendrill::script_host {

std::string Utf8Of(std::wstring_view text);

// Decodes a script: UTF-16 when the bytes begin with its byte order mark; else UTF-8, with or without a byte order
// mark; else, when the bytes are not valid UTF-8, Windows-1252, in which older scripts are saved.
std::wstring TextOfScript(std::string_view bytes);

}  // namespace wendrill::script_host
