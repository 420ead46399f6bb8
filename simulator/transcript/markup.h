// Text that stays text, whatever is in it: in an element of HTML, and in the data of the page.
#pragma once

#include <span>
#include <string>
#include <string_view>

namespace wendrill::transcript {

// Appends UTF-8 as text of an element or of a quoted attribute. Control characters, which a browser would drop or
// change, become their pictures (U+2400 and on).
void AppendText(std::string& html, std::string_view text);

// Appends JSON as content of a script element: what could end the element or a line of a script becomes \uXXXX. Such
// characters appear only inside the strings of JSON.
void AppendData(std::string& html, std::string_view json);

// JSON in which half a surrogate pair, which JSON allows and UTF-8 cannot express, is \ufffd.
std::string WithoutLoneSurrogates(std::string_view json);

struct Part {
  std::string_view name;
  std::string_view text;
};

// The page with each @NAME@ replaced by the part of that name. What a part contains is not replaced again.
std::string Filled(std::string_view page, std::span<const Part> parts);

}  // namespace wendrill::transcript
