// What the host prints: UTF-8 with line feeds to a file or a pipe, the console's own characters and CR LF to a console.
#pragma once

#include <string_view>

namespace wendrill::script_host {

// Writes the text without adding a line break. Unbuffered: the text is written when the call returns.
void WriteOut(std::wstring_view text);
void WriteError(std::wstring_view text);

}  // namespace wendrill::script_host
