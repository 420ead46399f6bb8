// What the host prints: UTF-8 to a file or a pipe, the console's own characters to a console.
#pragma once

#include <string_view>

namespace wendrill::script_host {

// As given, without a line break of its own. Nothing is kept back: what was written is out when the call returns.
void WriteOut(std::wstring_view text);
void WriteError(std::wstring_view text);

}  // namespace wendrill::script_host
