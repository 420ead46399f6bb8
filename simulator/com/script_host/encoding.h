// Converts between the bytes of files and pipes and the UTF-16 of scripts.
#pragma once

#include <string>
#include <string_view>

namespace wendrill::script_host {

std::string Utf8Of(std::wstring_view text);

// Decodes the bytes of a script file. The first of these encodings that fits is used:
// - UTF-16, when the bytes begin with the byte order mark of UTF-16;
// - UTF-8, with or without a byte order mark, when the bytes are valid UTF-8;
// - Windows-1252, the encoding of many older scripts, for all other bytes.
std::wstring TextOfScript(std::string_view bytes);

}  // namespace wendrill::script_host
