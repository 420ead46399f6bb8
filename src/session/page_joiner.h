// PageJoiner joins the texts of consecutive pages. Only PageJoiner decides what separates two pages.
#pragma once

#include <cstddef>
#include <string>
#include <utility>

#include "common/text.h"

namespace wendrill {

// Joins pages into one text. An empty page adds nothing. Adding all pages takes time linear in the length of their
// text. The separator before a page depends on the line breaks in the pages:
//   - While no page has contained a line break, blanks pad the joined text to a multiple of 80 characters. So each page
//     begins at the start of a row, and the rows of a page are also rows of the joined text.
//   - From the first page with line breaks on, that page included, a CR LF precedes each page. When the joined text
//     already ends with a line break, no CR LF is added.
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
