#include "support/scan_comparison.h"

#include <algorithm>
#include <sstream>

#include "common/error.h"
#include "support/describe.h"
#include "support/kind_references.h"

namespace wendrill::testing {
namespace {

ObjectRef CollectionOf(const CallLogRef& calls, const std::vector<ReferenceElement>& elements) {
  std::vector<ObjectRef> objects;
  for (const auto& [text, number] : elements) {
    const auto object = FakeObject::Make(calls, "element");
    object->With(u"Text", text).With(u"ElementNo", number);
    objects.push_back(object);
  }
  return FakeCollection(calls, "elements", std::move(objects));
}

// The n-th reading, counted from 0; the last one when there are fewer.
const std::u16string& Reading(const std::vector<std::u16string>& readings, std::size_t n) {
  return readings[std::min(n, readings.size() - 1)];
}

// The number of elements in the arrays. The element at index 0 does not count when it is empty: the arrays of some
// kinds begin at index 1.
std::size_t StoredElements(const ReferenceScan& scan) {
  const auto& entries = scan.arrays.begin()->second.entries;
  return entries.size() - (entries.front().empty() ? 1 : 0);
}

// Collects descriptions of differences, one line for each.
class Differences {
 public:
  template <typename Left, typename Right>
  void Compare(const std::string& what, const Left& scanned, const Right& expected) {
    if (!(scanned == expected)) {
      text_ << what << ": " << scanned << " instead of " << expected << "\n";
    }
  }

  std::string Text() const { return text_.str(); }

 private:
  std::ostringstream text_;
};

}  // namespace

std::string ArrayDifferences(const ElementArrays& scanned, const ReferenceScan& expected) {
  Differences differences;
  differences.Compare("keys", scanned.Keys().size(), expected.arrays.size());
  for (std::size_t key = 0; key < scanned.Keys().size(); ++key) {
    const std::u16string name(scanned.Keys()[key].name);
    const auto& [entries, initial, isFlag] = expected.arrays.at(name);
    differences.Compare("upper bound of " + ToUtf8(name), scanned.UpperBound(), std::ssize(entries) - 1);
    for (std::int32_t i = 0; i <= std::min<std::ptrdiff_t>(scanned.UpperBound(), std::ssize(entries) - 1); ++i) {
      const std::u16string& entry = entries[static_cast<std::size_t>(i)];
      differences.Compare(ToUtf8(name) + "(" + std::to_string(i) + ")", Describe(scanned.At(key, i)),
                          Describe(isFlag ? Value(entry == u"True") : Value(entry)));
    }
  }
  return differences.Text();
}

DisplayedPnr::DisplayedPnr() : pnr_(FakeObject::Make(desk_.calls, "PNR")) {
  desk_.module.gobjPNR = pnr_;
  pnr_->Answering(75, [this](auto) { return Value(Reading(readings_, reads_++)); });
  pnr_->Answering(3, [this](auto) { return Value(CollectionOf(desk_.calls, ElementsIn(Reading(readings_, 0)))); });
}

void DisplayedPnr::Show(std::vector<std::u16string> readings) {
  readings_ = std::move(readings);
  reads_ = 0;
  desk_.calls->Clear();
}

ScanComparison::Outcome ScanComparison::Run(const DisplayKind& kind, const std::vector<std::u16string>& readings) {
  pnr_.Show(readings);
  DisplayScans scans(pnr_.Module());
  std::int16_t count = 0;
  std::int32_t error = 0;
  try {
    count = scans.Count(kind);
  } catch (const Error& raised) {
    error = raised.Number();
  }
  std::size_t reads = 0;
  const ReferenceScan expected = ReferenceOf(kind).scan([&] { return Reading(readings, reads++); });

  Differences differences;
  differences.Compare("count", count, expected.count);
  differences.Compare("error", error, expected.error);
  if (&kind != &kSURElements) {
    differences.Compare("reads of the display", pnr_.Reads(), reads);
  }
  return {.difference = differences.Text() + ArrayDifferences(scans.Arrays(kind), expected),
          .stored = StoredElements(expected)};
}

}  // namespace wendrill::testing
