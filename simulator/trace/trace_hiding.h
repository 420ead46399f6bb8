// Hides personal data in the texts of a trace.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "redaction/redactor.h"
#include "trace/lines.h"

namespace wendrill::trace {

class TraceHiding {
 public:
  explicit TraceHiding(std::set<redaction::Kind> kept) : redactor_(std::move(kept)) {}

  void Learn(std::u16string_view text) { redactor_.Learn(text); }

  // Returns `text` with personal data hidden. `text` is an entry, an element, or any text that may begin with an entry
  // or an element.
  std::u16string Entry(std::u16string_view text) { return redactor_.Hide(text); }

  // Returns the rows of a screen with personal data hidden. Each row keeps its length.
  std::vector<std::u16string> Screen(Rows rows);

  // Returns a text that is neither an entry nor a screen, such as an error message or the name of an expectation, with
  // personal data hidden. The text as a whole is not treated as an entry, even if it begins like an entry. Only these
  // parts of the text are treated as entries or rows of a display:
  //   - each part that follows a quotation mark, up to the next quotation mark or to the end of the text;
  //   - the part after a first word Sent, NotSent or Screen, with which names of expectations begin;
  //   - after a first word InOrder, each entry of the list that follows, in which ", " separates the entries.
  std::u16string Message(std::u16string_view text);

 private:
  redaction::Redactor redactor_;
};

}  // namespace wendrill::trace
