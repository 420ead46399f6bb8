#include "support/reference_page_collector.h"

namespace wendrill::testing {
namespace {

using Text = std::u16string;

// Positions are counted from 1. InStr returns 0 when the needle is not found.

std::size_t InStr(const Text& text, const Text& sought) {
  for (std::size_t at = 1; at + sought.size() <= text.size() + 1; ++at) {
    bool matches = true;
    for (std::size_t i = 0; i < sought.size() && matches; ++i) {
      matches = text[at - 1 + i] == sought[i];
    }
    if (matches) {
      return at;
    }
  }
  return 0;
}

Text Mid(const Text& text, std::size_t from, std::size_t count = Text::npos) {
  Text part;
  for (std::size_t at = from; at <= text.size() && part.size() < count; ++at) {
    part += text[at - 1];
  }
  return part;
}

Text Trim(const Text& text) {
  std::size_t first = 1;
  std::size_t last = text.size();
  while (first <= last && text[first - 1] == u' ') {
    ++first;
  }
  while (last >= first && text[last - 1] == u' ') {
    --last;
  }
  return Mid(text, first, last + 1 - first);
}

bool HasBreak(const Text& text) {
  return InStr(text, u"\r") > 0 || InStr(text, u"\n") > 0;
}

// The lines of the text, each with its line break, so that joining the lines restores the text. A text without line
// breaks is cut into rows of 80 columns.
std::vector<Text> WholeLines(const Text& text) {
  const bool broken = HasBreak(text);
  std::vector<Text> lines;
  Text line;
  for (std::size_t at = 1; at <= text.size(); ++at) {
    line += text[at - 1];
    const bool isCrBeforeLf = text[at - 1] == u'\r' && at < text.size() && text[at] == u'\n';
    const bool ends = broken ? (text[at - 1] == u'\r' || text[at - 1] == u'\n') && !isCrBeforeLf : line.size() == 80;
    if (ends) {
      lines.push_back(line);
      line.clear();
    }
  }
  if (!line.empty()) {
    lines.push_back(line);
  }
  return lines;
}

Text WithoutEnd(Text line) {
  while (!line.empty() && (line.back() == u'\r' || line.back() == u'\n')) {
    line.pop_back();
  }
  return line;
}

// The length, in `text`, of the leading lines that are equal in both texts. Line breaks are not compared, but count.
std::size_t RepeatedLength(const Text& text, const Text& previous) {
  const auto lines = WholeLines(text);
  const auto previousLines = WholeLines(previous);
  std::size_t length = 0;
  for (std::size_t k = 0; k < lines.size() && k < previousLines.size(); ++k) {
    if (WithoutEnd(lines[k]) != WithoutEnd(previousLines[k])) {
      break;
    }
    length += lines[k].size();
  }
  return length;
}

Text Join(Text text, const Text& page, bool broken) {
  if (text.empty() || page.empty()) {
    return text + page;
  }
  if (broken) {
    const bool ended = text.back() == u'\r' || text.back() == u'\n';
    return text + (ended ? u"" : u"\r\n") + page;
  }
  while (text.size() % 80 != 0) {
    text += u' ';
  }
  return text + page;
}

}  // namespace

ReferenceCollection CollectByReference(const Text& entry, int responseType, const std::vector<Text>& pages) {
  bool continuationStyle = responseType == 23;
  const bool pnrStyle = responseType == 22;
  bool firstLineRemembered = false;
  bool broken = false;
  ReferenceCollection collection;

  for (std::size_t n = 0; n < pages.size(); ++n) {
    Text page = pages[n];

    // Drop the first 80 characters when they are blank, or when the entry contains 4505 or PF24.
    if (Trim(Mid(page, 1, 80)).empty() || InStr(entry, u"4505") > 0 || InStr(entry, u"PF24") > 0) {
      page = Mid(page, 81);
    }
    collection.pages.push_back(page);

    // Find the mark before the page number. `p` is the position of the mark; 0 when there is no mark, when the page is
    // the last one, or when the text after the mark has no slash.
    Text mark = u")>";
    std::size_t p = InStr(page, mark);
    if (p == 0) {
      mark = u">" + Text(49, u' ') + u"PAGE";
      p = InStr(page, mark);
    }
    bool isNumberedLast = false;
    if (p > 0) {
      const Text behind = Trim(Mid(page, p + mark.size(), 10));
      const std::size_t slash = InStr(behind, u"/");
      const Text x = Trim(slash == 0 ? behind : Mid(behind, 1, slash - 1));
      Text y = slash == 0 ? Text() : Mid(behind, slash + 1);
      const std::size_t secondSlash = InStr(y, u"/");
      y = Trim(secondSlash == 0 ? y : Mid(y, 1, secondSlash - 1));
      if (x == y) {
        isNumberedLast = true;
        p = 0;
      } else if (slash == 0) {
        p = 0;
      }
    }

    // Without a page number, find the continuation mark and set `p` to its position.
    if (p == 0 && !isNumberedLast) {
      const Text more = u"MORE     ";
      bool counts = page.size() < 161;
      if (!counts) {
        std::size_t lastRow = 1;
        while (lastRow + 80 <= page.size()) {
          lastRow += 80;
        }
        for (const std::size_t start :
             {lastRow, lastRow - 80, page.size() - 79, page.size() - 159, page.size() - 80, page.size() - 160}) {
          counts = counts || Mid(page, start, 9) == more;
        }
      }
      if (counts) {
        p = InStr(page, more);
      }
      if (p > 0) {
        continuationStyle = true;
        firstLineRemembered = true;
      }
    }

    // Append the part of the page that belongs to the joined text.
    std::size_t from = 1;
    std::size_t behindLast = page.size() + 1;
    if (p > 0) {
      behindLast = p;
      const std::size_t header = InStr(Mid(page, 1, p - 1), u"RP/");
      if (pnrStyle && header > 0) {
        from = header;
        if (firstLineRemembered && from < 81) {
          from = 81;
        }
      }
    } else if (n == 0 && !isNumberedLast && pnrStyle &&
               (InStr(page, u"--- TST TC-BIZ RLP ---") > 0 || InStr(page, u"--- TC-BIZ RLP ---") > 0)) {
      from = 81;
    }
    if (n > 0 && !continuationStyle) {
      const std::size_t behindRepeated = RepeatedLength(page, collection.pages[n - 1]) + 1;
      from = behindRepeated > from ? behindRepeated : from;
    }
    const Text part = from < behindLast ? Mid(page, from, behindLast - from) : Text();
    broken = broken || HasBreak(part);
    collection.text = Join(collection.text, part, broken);

    if (p == 0) {
      return collection;
    }
  }
  collection.wantsMore = true;
  return collection;
}

}  // namespace wendrill::testing
