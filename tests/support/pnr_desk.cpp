#include "support/pnr_desk.h"

#include <utility>

#include "common/text.h"

namespace wendrill::testing {
namespace {

constexpr std::int32_t kCollections[] = {2,  7,  9,  13, 14, 15, 17, 20, 21, 23, 24,
                                         26, 30, 37, 38, 39, 62, 63, 64, 65, 78, 93};

}  // namespace

std::u16string Rows(const std::vector<std::u16string>& lines) {
  std::u16string rows;
  for (const auto& line : lines) {
    rows += line;
    rows.append(kRowWidth - line.size(), kBlank);
  }
  return rows;
}

PnrDesk::PnrDesk() : pnr(FakeObject::Make(desk.calls, "PNR")) {
  module.gobjPNR = pnr;
  Display(u"");
}

void PnrDesk::Hold(Collection collection, std::vector<ObjectRef> elements) const {
  const auto id = static_cast<std::int32_t>(collection);
  pnr->With(id, ObjectRef(FakeCollection(calls, "collection " + std::to_string(id), std::move(elements))));
}

void PnrDesk::HoldNothing() const {
  for (const auto id : kCollections) {
    Hold(static_cast<Collection>(id), {});
  }
}

FakeBagRef PnrDesk::Bag(Value index) const {
  auto bag = std::make_shared<FakeBag>(calls);
  bag->Given(u"intKeyIndex", std::move(index));
  return bag;
}

FakeObjectRef TextElement(const PnrDesk& desk, std::u16string text, Value elementNo) {
  auto element = desk.Object("element");
  element->With(u"Text", Value(std::move(text))).With(u"ElementNo", std::move(elementNo));
  return element;
}

}  // namespace wendrill::testing
