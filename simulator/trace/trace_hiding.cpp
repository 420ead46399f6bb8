#include "trace/trace_hiding.h"

#include <algorithm>

#include "common/text.h"

namespace wendrill::trace {
namespace {

constexpr char16_t kRowEnd = u'\n';
constexpr char16_t kQuote = u'"';

// The words with which the names of expectations about entries and screens begin. An entry follows "Sent " and
// "NotSent ", the text of a screen follows "Screen ", and a list of entries follows "InOrder ".
constexpr std::u16string_view kBeforeAnEntry[] = {u"Sent ", u"NotSent ", u"Screen "};
constexpr std::u16string_view kBeforeEntries = u"InOrder ";
constexpr std::u16string_view kBetweenEntries = u", ";

// The prefix that Message puts before a message, so that the redactor does not treat the message as an entry. No entry
// and no row of a display begins with this prefix.
constexpr std::u16string_view kNoEntry = u"= ";

}  // namespace

std::vector<std::u16string> TraceHiding::Screen(Rows rows) {
  std::u16string text;
  for (const std::u16string& row : rows) {
    text.append(row).push_back(kRowEnd);
  }
  const std::u16string hidden = redactor_.Hide(text);
  std::vector<std::u16string> result;
  result.reserve(rows.size());
  std::size_t start = 0;
  for (const std::u16string& row : rows) {
    result.push_back(hidden.substr(start, row.size()));
    start += row.size() + 1;
  }
  return result;
}

std::u16string TraceHiding::Message(std::u16string_view text) {
  std::u16string message(text);
  const auto hidePart = [&](std::size_t start, std::size_t end) {
    message.replace(start, end - start, Entry(std::u16string_view(message).substr(start, end - start)));
  };
  for (const std::u16string_view head : kBeforeAnEntry) {
    if (StartsWith(message, head)) {
      hidePart(head.size(), message.size());
    }
  }
  if (StartsWith(message, kBeforeEntries)) {
    std::size_t start = kBeforeEntries.size();
    while (start < message.size()) {
      const std::size_t end = std::min(message.find(kBetweenEntries, start), message.size());
      hidePart(start, end);
      start = end + kBetweenEntries.size();
    }
  }
  for (std::size_t open = message.find(kQuote); open != std::u16string::npos;) {
    const std::size_t close = std::min(message.find(kQuote, open + 1), message.size());
    hidePart(open + 1, close);
    open = close == message.size() ? std::u16string::npos : close;
  }
  return Entry(std::u16string(kNoEntry) + message).substr(kNoEntry.size());
}

}  // namespace wendrill::trace
