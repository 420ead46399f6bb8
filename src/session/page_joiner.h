// PageJoiner joins the texts of consecutive pages. The rules that decide how pages are separated are only in
// PageJoiner.
#pragma once

#include <cstddef>
#include <string>
#include <utility>

#include "common/text.h"

namespace wendrill {

// Joins pages into one text. Each page begins at the start of a row, so that the rows of a page are also rows of the
// joined text: the text before the page is padded with blanks to a multiple of 80 characters. From the first page with
// line breaks on, a CR LF separates the pages instead of blanks; no CR LF is added when the text before the page
// already ends with a line break. An empty page adds nothing. Adding all pages takes time linear in the length of their
// text.
class PageJoiner {
 public:
  void Add(TextView page);

  const std::u16string& Joined() const { return joined_; }
  std::u16string Take() { return std::move(joined_); }

 private:
  void MakeRoomFor(std::size_t length);
  void BeginPage();

  std::u16string joined_;
  bool broken_ = false;  // true once a page with line breaks has been added
};

}  // namespace wendrill
