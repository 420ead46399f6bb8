// What a trace hides in its texts.
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

  // An entry, an element or any text that begins as one of them.
  std::u16string Entry(std::u16string_view text) { return redactor_.Hide(text); }

  // Rows of the same lengths.
  std::vector<std::u16string> Screen(Rows rows);

  // Any other text, such as a message or a name: it is no entry, even if it begins as one does. What it quotes is
  // hidden as the entry or the row that it may be, and so is what follows the word that begins the name of an
  // expectation about entries.
  std::u16string Message(std::u16string_view text);

 private:
  redaction::Redactor redactor_;
};

}  // namespace wendrill::trace
