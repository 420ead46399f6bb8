// Reads and writes whole text files.
#pragma once

#include <string>

namespace wendrill::script_host {

// Returns the text of a file, decoded by TextOfScript (encoding.h); empty when the file cannot be read.
std::wstring ReadText(const std::wstring& path);

// Replaces the content of a file by `text`, encoded as UTF-8; creates a missing file. Throws UsageError when the file
// cannot be written.
void WriteText(const std::wstring& path, const std::wstring& text);

}  // namespace wendrill::script_host
