// Joins the texts of neighbouring pages. The only place that defines how pages are separated, for the library and for
// the simulated text helper.
#pragma once

#include <cstddef>
#include <string>
#include <utility>

#include "common/text.h"

namespace wendrill {

// Each page begins at the start of a row, so that the rows of a page stay rows of the joined text: the text before the
// page is padded with blanks to a multiple of 80. From the first page with line breaks on, pages are separated by CR LF
// instead. An empty page adds nothing. Linear in the length of the text.
class PageJoiner {
 public:
  void Add(TextView page);

  const std::u16string& Joined() const { return joined_; }
  std::u16string Take() { return std::move(joined_); }

 private:
  void MakeRoomFor(std::size_t length);
  void BeginPage();

  std::u16string joined_;
  bool broken_ = false;  // whether a page with line breaks has been added
};

}  // namespace wendrill
