// The texts of page.html, page.css and page.js, compiled into the program.
#pragma once

#include <string_view>

namespace wendrill::transcript {

extern const std::string_view kPageHtml;
extern const std::string_view kPageStyle;
extern const std::string_view kPageScript;

// The SHA-256 hashes, in Base64, of the style sheet and of the script. The content security policy of the page allows
// only the style sheet and the script with these hashes.
extern const std::string_view kPageStyleHash;
extern const std::string_view kPageScriptHash;

}  // namespace wendrill::transcript
