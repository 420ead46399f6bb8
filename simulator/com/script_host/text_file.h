// Whole text files.
#pragma once

#include <string>

namespace wendrill::script_host {

// A file of UTF-8; empty when it cannot be read.
std::wstring ReadText(const std::wstring& path);

// Replaces a file by a text, as UTF-8. Throws UsageError when it cannot be written.
void WriteText(const std::wstring& path, const std::wstring& text);

}  // namespace wendrill::script_host
