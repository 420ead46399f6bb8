#include "batch/remark.h"

#include <cstdint>
#include <utility>

#include "common/numeric.h"

namespace wendrill {
namespace {

constexpr TextView kRemark = u"RM";
constexpr TextView kConfidential = u"*";
constexpr std::size_t kPartLimit = 123;

// Removes `head` from the beginning of the text. Returns false when the text does not begin with `head`.
bool TakeHead(TextView& text, TextView head) {
  const bool isThere = StartsWith(text, head);
  if (isThere) {
    text.remove_prefix(head.size());
  }
  return isThere;
}

bool IsAssociation(TextView field) {
  return (StartsWith(field, u"P") || StartsWith(field, u"S")) && IsNumeric(FromColumn(field, 2));
}

// Removes the associations from the end of the text and returns them, including the "/" before each association.
TextView TakeAssociations(TextView& text) {
  const TextView whole = text;
  auto slash = text.rfind(u'/');
  while (slash != TextView::npos && IsAssociation(text.substr(slash + 1))) {
    text = text.substr(0, slash);
    slash = text.rfind(u'/');
  }
  return whole.substr(text.size());
}

// Removes the next part of the text and returns the part. A text of at most kPartLimit characters is one part. A longer
// text is split at the last blank that leaves at most kPartLimit characters before it, and the blank is dropped.
// Without such a blank, or when the only such blank is the first character of the text, the part is the first
// kPartLimit characters.
TextView TakePart(TextView& text) {
  if (text.size() <= kPartLimit) {
    return std::exchange(text, {});
  }
  const auto blank = text.rfind(kBlank, kPartLimit);
  const bool cutsWord = blank == TextView::npos || blank == 0;
  const TextView part = text.substr(0, cutsWord ? kPartLimit : blank);
  text.remove_prefix(cutsWord ? part.size() : part.size() + 1);
  return part;
}

}  // namespace

std::vector<std::u16string> RemarkElements(TextView text) {
  if (TakeHead(text, kRemark)) {
    TakeHead(text, u" ");
  }
  const TextView mark = TakeHead(text, kConfidential) ? kConfidential : TextView();
  const TextView associations = TakeAssociations(text);
  std::vector<std::u16string> elements;
  std::int16_t count = 0;
  do {
    count = Add16(count, 1);
    std::u16string element(kRemark);
    element.append(mark).append(TakePart(text)).append(associations);
    elements.push_back(std::move(element));
  } while (!text.empty());
  return elements;
}

}  // namespace wendrill
