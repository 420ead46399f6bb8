// The accessor of MIS elements.
#include "common/text.h"
#include "pnr/accessor_tables.h"

namespace wendrill {
namespace {

// The text of the element as one line. The host breaks a long text after column 80 and fills the first row with blanks.
// A text of more than 80 characters is returned as its first 80 columns and the rest, each trimmed, joined without a
// blank. A text of at most 80 characters is returned unchanged.
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
