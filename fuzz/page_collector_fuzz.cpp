// Compares the page collector with its slow reference. The first byte of the input is the response type. The rest is
// the entry and the pages that the host sends, separated by form feeds.
#include <string>
#include <vector>

#include "fuzz_input.h"
#include "session/page_collector.h"
#include "support/reference_page_collector.h"

namespace {

using wendrill::fuzz::Report;
using wendrill::testing::ReferenceCollection;

ReferenceCollection Collect(const std::u16string& entry, std::int16_t responseType,
                            const std::vector<std::u16string>& pages) {
  wendrill::PageCollector collector(entry, responseType);
  ReferenceCollection collection;
  collection.wantsMore = true;
  for (auto page = pages.begin(); page != pages.end() && collection.wantsMore; ++page) {
    collection.wantsMore = collector.Take(*page);
    collection.pages.push_back(collector.Page());
  }
  collection.text = collector.TakeText();
  return collection;
}

void Compare(const ReferenceCollection& collected, const ReferenceCollection& expected) {
  if (collected.wantsMore != expected.wantsMore) {
    Report("the two disagree on whether the host has a further page");
  }
  if (collected.pages != expected.pages) {
    Report("the two disagree on the pages");
  }
  if (collected.text != expected.text) {
    Report("the two disagree on the joined text");
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  constexpr std::size_t kLongest = 10000;  // limits the time: the reference copies its texts at every step
  if (size == 0 || size > kLongest) {
    return 0;
  }
  std::vector<std::u16string> pages = wendrill::fuzz::TextsOf(bytes + 1, size - 1);
  const std::u16string entry = pages.front();
  pages.erase(pages.begin());
  if (!pages.empty()) {
    const auto responseType = static_cast<std::int16_t>(bytes[0]);
    Compare(Collect(entry, responseType, pages), wendrill::testing::CollectByReference(entry, responseType, pages));
  }
  return 0;
}
