// Escapes text for elements and attributes of HTML, and JSON for script elements.
#pragma once

#include <span>
#include <string>
#include <string_view>

namespace wendrill::transcript {

// Appends UTF-8 text, escaped for an element or a quoted attribute. Each control character becomes the Unicode symbol
// for it (U+2400 to U+241F, U+2421), because a browser would drop or change control characters.
void AppendText(std::string& html, std::string_view text);

// Appends JSON, escaped for a script element. Three characters become \uXXXX: <, which could end the element, and the
// line separators U+2028 and U+2029, which could end a line of a script. The JSON keeps its meaning, because these
// characters appear only inside its strings.
void AppendData(std::string& html, std::string_view json);

// The JSON with \ufffd in place of each \uXXXX that is a lone surrogate: a high surrogate without a low surrogate after
// it, or a low surrogate without a high surrogate before it. JSON allows such an escape, but UTF-8 cannot express the
// character.
std::string WithoutLoneSurrogates(std::string_view json);

// The text that Filled writes in place of the placeholder @name@ of a page.
struct Part {
  std::string_view name;
  std::string_view text;
};

// The page with each placeholder @NAME@ replaced by the text of the part with the name NAME. Placeholders inside the
// text of a part are not replaced. Throws std::logic_error when no part has the name of a placeholder.
std::string Filled(std::string_view page, std::span<const Part> parts);

}  // namespace wendrill::transcript
