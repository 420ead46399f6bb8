// The texts of page.html, page.css and page.js, compiled into the program.
#pragma once

#include <string_view>

namespace wendrill::transcript {

extern const std::string_view kPageHtml;
extern const std::string_view kPageStyle;
extern const std::string_view kPageScript;

// The SHA-256 hashes, in Base64, with which the page's content security policy allows its style sheet and its script.
extern const std::string_view kPageStyleHash;
extern const std::string_view kPageScriptHash;

}  // namespace wendrill::transcript
