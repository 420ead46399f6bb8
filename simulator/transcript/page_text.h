// The texts of page.html, page.css and page.js, compiled in.
#pragma once

#include <string_view>

namespace wendrill::transcript {

extern const std::string_view kPageHtml;
extern const std::string_view kPageStyle;
extern const std::string_view kPageScript;

// What the page's content security policy names them by: the SHA-256 of each in Base64.
extern const std::string_view kPageStyleHash;
extern const std::string_view kPageScriptHash;

}  // namespace wendrill::transcript
