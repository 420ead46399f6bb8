// Every member that reads an element against its slow reference on random and mutilated elements. WENDRILL_COMPARISONS
// sets how many cases each member is tried on, WENDRILL_SEED where chance begins.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <string>

#include "common/text.h"
#include "support/describe.h"
#include "support/from_environment.h"
#include "support/random_elements.h"
#include "unit/pnr/members.h"

namespace wendrill::testing {
namespace {

// Twenty-one members: more than 20,000 cases.
constexpr std::uint32_t kCasesOfAMember = 1000;

ScriptedMember MemberOf(const std::u16string& property) {
  return IsDigit(property.front()) ? ScriptedMember(std::stoi(ToUtf8(property))) : ScriptedMember(property.c_str());
}

ObjectRef Association(const PnrDesk& desk, const ToolkitElement& element) {
  std::vector<ObjectRef> passengers;
  for (const Value& number : element.passengers) {
    const auto passenger = desk.Object("passenger");
    passenger->With(u"ElementNo", number);
    passengers.push_back(passenger);
  }
  const auto association = desk.Object("association");
  association->With(u"Passengers", ObjectRef(FakeCollection(desk.calls, "passengers", std::move(passengers))));
  return association;
}

ObjectRef Scripted(const PnrDesk& desk, const ToolkitElement& element) {
  const auto object = desk.Object("element");
  for (const auto& [property, value] : element.properties) {
    if (value) {
      object->With(MemberOf(property), *value);
    } else {
      object->Failing(MemberOf(property));
    }
  }
  if (element.properties.contains(u"8")) {
    object->With(44, Association(desk, element));
  }
  if (element.type) {
    object->OfType(*element.type);
  }
  return object;
}

// What the product makes of a case, in the reference's form.
class Product {
 public:
  Product() {
    desk_.desk.platform.hostDateText = BracketedDate;
    // All collections but flown and open segments, which differ.
    for (const std::int32_t id : {2, 7, 14, 15, 17, 20, 21, 23, 24, 26, 30, 37, 38, 39, 62, 63, 64, 65, 78, 93}) {
      desk_.pnr->Answering(id, [this](auto) { return Value(Collection(given_->count)); });
    }
    desk_.pnr->Answering(9, [this](auto) { return Value(Collection(given_->flown)); });
    desk_.pnr->Answering(13, [this](auto) { return Value(Collection(given_->open)); });
    desk_.pnr->Answering(76, [this](auto) { return Value(Scripted(desk_, given_->header)); });
    desk_.pnr->Answering(75, [this](auto) { return Value(Display()); });
  }

  ReferenceRecord Call(const MemberRow& member, const AccessorCase& given) {
    ReferenceRecord record;
    given_ = &given;
    displayReads_ = 0;
    elements_.clear();
    for (const ToolkitElement& element : given.elements) {
      elements_.push_back(Scripted(desk_, element));
    }
    const auto bag = std::make_shared<FakeBag>(desk_.calls);
    bag->Answering(u"intKeyIndex", [&] { return InTurn(given.indexes, record.indexReads++); });
    if (const auto error = ErrorOf([&] { record.returnsBag = member.call(desk_.module, bag) != nullptr; })) {
      record.error = error->Number();
    }
    record.settings = bag->Settings();
    record.displayReads = displayReads_;
    desk_.calls->Clear();
    return record;
  }

 private:
  template <typename Item>
  static const Item& InTurn(const std::vector<Item>& answers, std::size_t read) {
    return answers[std::min(read, answers.size() - 1)];
  }

  ObjectRef Collection(std::int32_t count) {
    const auto collection = FakeCollection(desk_.calls, "collection", elements_);
    collection->With(u"Count", count);
    return collection;
  }

  std::u16string Display() {
    if (given_->displays.empty()) {
      return {};  // not of this member: the names' count alone looks at it
    }
    const std::size_t read = displayReads_++;
    if (given_->failingRead == read) {
      throw Error(ForeignError());
    }
    return InTurn(given_->displays, read);
  }

  PnrDesk desk_;
  const AccessorCase* given_ = nullptr;
  std::vector<ObjectRef> elements_;
  std::size_t displayReads_ = 0;
};

std::string Shown(const ReferenceRecord& record) {
  std::string text;
  for (const auto& [key, value] : record.settings) {
    text += ToUtf8(key) + " = " + Describe(value) + "\n";
  }
  return text + "error " + std::to_string(record.error) + (record.returnsBag ? ", returns the bag, " : ", ") +
         std::to_string(record.indexReads) + " reads of the index, " + std::to_string(record.displayReads) +
         " of the display\n";
}

std::string Shown(const ToolkitElement& element) {
  std::string text = "element";
  for (const auto& [property, value] : element.properties) {
    text += " " + ToUtf8(property) + "=" + (value ? Describe(*value) : "fails");
  }
  return text + "\n";
}

std::string Shown(const AccessorCase& given) {
  std::string text = "indexes";
  for (const Value& index : given.indexes) {
    text += " " + Describe(index);
  }
  text += "\ncounts " + std::to_string(given.count) + ", flown " + std::to_string(given.flown) + ", open " +
          std::to_string(given.open) + "\n";
  for (const ToolkitElement& element : given.elements) {
    text += Shown(element);
  }
  text += "header: " + Shown(given.header);
  for (const auto& display : given.displays) {
    text += "display " + Describe(Value(display)) + "\n";
  }
  return text;
}

bool Same(const ReferenceRecord& left, const ReferenceRecord& right) {
  return left.settings == right.settings && left.error == right.error && left.returnsBag == right.returnsBag &&
         left.indexReads == right.indexReads && left.displayReads == right.displayReads;
}

class AccessorComparison : public ::testing::TestWithParam<MemberRow> {};

TEST_P(AccessorComparison, MemberAndReferenceAgree) {
  const std::uint32_t comparisons = NumberFromEnvironment("WENDRILL_COMPARISONS", kCasesOfAMember);
  const std::uint32_t seed = NumberFromEnvironment("WENDRILL_SEED", 20080612);
  RandomElements elements(seed);
  Product product;
  std::uint32_t records = 0;
  for (std::uint32_t n = 1; n <= comparisons; ++n) {
    const AccessorCase given = elements.Next(GetParam().name);
    const ReferenceRecord expected = ReferenceAccessor(GetParam().name, given);
    const ReferenceRecord actual = product.Call(GetParam(), given);
    ASSERT_TRUE(Same(actual, expected)) << "case " << n << " of seed " << seed << "\n"
                                        << Shown(given) << "--- the member\n"
                                        << Shown(actual) << "--- instead of\n"
                                        << Shown(expected);
    records += expected.error == 0 && !expected.settings.empty() ? 1 : 0;
  }
  // Cases that all fail or store nothing would agree on little.
  EXPECT_GE(records, comparisons / 5) << "the random cases seldom reach an element";
}

INSTANTIATE_TEST_SUITE_P(Members, AccessorComparison, ::testing::ValuesIn(Members()),
                         [](const auto& row) { return row.param.name; });

}  // namespace
}  // namespace wendrill::testing
