// The derivation on any display: the library counts over the derived PNR what was derived, and every record can be read
// and written.
#include <algorithm>
#include <string>

#include "fuzz_input.h"
#include "output.h"
#include "support/derived_counts.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  constexpr std::size_t kMost = 20000;  // beyond 32,767 elements the library's counts overflow
  const std::u16string display = wendrill::fuzz::TextOf(bytes, std::min(size, kMost));
  const std::string different = wendrill::testing::DifferentCount(display);
  if (!different.empty()) {
    wendrill::fuzz::Report(different);
  }
  // As in the program, a reader reads many displays. Each display is read in one of the two forms.
  using wendrill::tool::Keys;
  static wendrill::tool::RecordReader readers[] = {wendrill::tool::RecordReader(Keys::Plain),
                                                   wendrill::tool::RecordReader(Keys::Bag)};
  const bool isBag = display.size() % 2 == 1;
  wendrill::tool::RecordReader& reader = readers[isBag ? 1 : 0];
  if (!reader.Read(display)) {
    std::string object;
    wendrill::tool::AppendObject(object, "1", reader, isBag ? Keys::Bag : Keys::Plain, {});
    if (object.find('\n') != std::string::npos) {
      wendrill::fuzz::Report("an object of several lines");
    }
  }
  return 0;
}
