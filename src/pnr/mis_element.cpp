// MIS elements.
#include "common/text.h"
#include "pnr/accessor_tables.h"

namespace wendrill {
namespace {

// The text without the padding that the host inserts where it wraps the text at the end of a row.
std::optional<Value> Unwrapped(Element& element) {
  const TextView text = element.Text();
  if (text.size() <= kRowWidth) {
    return text;
  }
  const TextView row = FirstColumns(text, kRowWidth);
  return std::u16string(Trimmed(row)) += Trimmed(FromColumn(text, kRowWidth + 1));
}

constexpr Key kKeys[] = {
    {u"strKeySegment", Unwrapped},
    {u"strKeySegmentNr", AsReturned(u"ElementNo")},
};

constexpr Accessor kMis = {
    .collection = Collection::MISElements,
    .bound = CountOf::MISElements,
    .error = 2206,
    .keys = kKeys,
    .indexForm = IndexForm::ComparedFirst,
    .result = Result::CallersBag,
};

}  // namespace

const Accessor& MisAccessor() {
  return kMis;
}

}  // namespace wendrill
