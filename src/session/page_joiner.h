// How the texts of neighbouring pages become one text. What the closed text helper does is modelled on this; the one
// place where it is settled.
#pragma once

#include <cstddef>
#include <string>
#include <utility>

#include "common/text.h"

namespace wendrill {

// Each page begins on a row of its own, so that line k of a page keeps its place in the whole: the text before it is
// filled with blanks to a whole row of 80. Once a page carries line breaks, a CR LF stands between the pages instead. A
// page without text adds nothing. Linear in the text.
class PageJoiner {
 public:
  void Add(TextView page);

  const std::u16string& Joined() const { return joined_; }
  std::u16string Take() { return std::move(joined_); }

 private:
  void MakeRoomFor(std::size_t length);
  void BeginPage();

  std::u16string joined_;
  bool broken_ = false;  // a page with line breaks has been added
};

}  // namespace wendrill
