// Fuzzes the derivation with arbitrary displays. The library's counts over the derived PNR must equal the numbers of
// derived elements, and every record must be readable and writable.
#include <algorithm>
#include <string>

#include "fuzz_input.h"
#include "output.h"
#include "support/derived_counts.h"

namespace {

using wendrill::tool::Keys;
using wendrill::tool::RecordReader;

// Reads and writes one display; reports a finding when the written object has several lines. As in the program, a
// reader is used for many displays.
void ExpectOneLine(const std::u16string& display, RecordReader& reader, Keys keys) {
  if (!reader.Read(display)) {
    std::string object;
    wendrill::tool::AppendObject(object, "1", reader, keys, {});
    if (object.find('\n') != std::string::npos) {
      wendrill::fuzz::Report("an object of several lines");
    }
  }
}

}  // namespace

// Each input tests one of the three properties; the size of the input selects the property.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  constexpr std::size_t kMost = 20000;  // limits the number of elements: above 32,767 the library's counts overflow
  const std::u16string display = wendrill::fuzz::TextOf(bytes, std::min(size, kMost));
  static RecordReader plain(Keys::Plain);
  static RecordReader bag(Keys::Bag);
  switch (size % 3) {
    case 0:
      ExpectOneLine(display, plain, Keys::Plain);
      break;
    case 1:
      ExpectOneLine(display, bag, Keys::Bag);
      break;
    default:
      if (const std::string different = wendrill::testing::DifferentCount(display); !different.empty()) {
        wendrill::fuzz::Report(different);
      }
  }
  return 0;
}
