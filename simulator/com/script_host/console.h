// Standard output and standard error. A file or a pipe receives UTF-8, with LF for each CR LF of the text. A console
// receives the text as UTF-16, with CR LF unchanged. A failure to write is ignored.
#pragma once

#include <string_view>

namespace wendrill::script_host {

// WriteOut writes the text to standard output, and WriteError to standard error, without adding a line break.
// Unbuffered: the text is written when the call returns.
void WriteOut(std::wstring_view text);
void WriteError(std::wstring_view text);

}  // namespace wendrill::script_host
