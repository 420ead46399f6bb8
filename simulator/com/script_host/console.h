// Standard output and standard error. A file or a pipe receives UTF-8 with LF as line break. A console receives the
// text as UTF-16, with CR LF unchanged.
#pragma once

#include <string_view>

namespace wendrill::script_host {

// Write the text to standard output or to standard error, without adding a line break. Unbuffered: the text is written
// when the call returns.
void WriteOut(std::wstring_view text);
void WriteError(std::wstring_view text);

}  // namespace wendrill::script_host
