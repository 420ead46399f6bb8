#include "redaction/host_words.h"

namespace wendrill::redaction {

bool IsElementKeyword(TextView word) {
  const auto isKeyword = [word](const simulator::Keyword& keyword) { return keyword.word == word; };
  return std::ranges::any_of(simulator::kRequiredKeywords, isKeyword) ||
         std::ranges::any_of(simulator::kOwnKeywords, isKeyword);
}

bool IsHostWord(TextView word) {
  return IsElementKeyword(word) || IsIn(simulator::kPassengerWords, word) || word == simulator::kOpenMark ||
         word == simulator::kFlownMark || word == kService || IsIn(kNoNames, word) || IsIn(kMonths, word) ||
         IsIn(kContactServices, word) || IsIn(kPayments, word) || word == kPageWord || word == kMoreWord ||
         word == u"END" || word == u"DISPLAY";
}

}  // namespace wendrill::redaction
