// Reads and writes whole text files.
#pragma once

#include <string>

namespace wendrill::script_host {

// Returns the text of a file, in one of the encodings of TextOfScript; empty when the file cannot be read.
std::wstring ReadText(const std::wstring& path);

// Replaces the content of a file by a text, as UTF-8. Throws UsageError when the file cannot be written.
void WriteText(const std::wstring& path, const std::wstring& text);

}  // namespace wendrill::script_host
