#include "scan/elements.h"

#include <algorithm>
#include <array>
#include <variant>

#include "common/error.h"
#include "common/failures.h"
#include "pnr/index.h"
#include "pnr/pnr.h"
#include "scan/display_scans.h"
#include "scan/toolkit_elements.h"
#include "toolkit/platform.h"

namespace wendrill {
namespace {

constexpr TextView kKindKey = u"strKeyPNRElement";
constexpr TextView kPrefixesKey = u"strKeyFind()";
constexpr TextView kTextsKey = u"strKeyResult()";
constexpr TextView kNumbersKey = u"strKeyElementNbrs()";

// The source of a kind's elements: a scan of the display, a toolkit collection, or a reader of its own.
struct PrefixSearch {};
struct MISElement {};
using Source = std::variant<PrefixSearch, ScannedKind, const Accessor*, MISElement>;

struct KindRow {
  TextView kind;  // compared exactly; the first match wins
  Source source;
  std::int32_t number;  // raised for every failure of the getter
};

constexpr std::int32_t kSearchFailed = 2252;

constexpr std::array kKinds = {
    KindRow{u"ALL", PrefixSearch{}, kSearchFailed},
    KindRow{u"ATX", ScannedKind::ATXSegments, kNoNumber},
    KindRow{u"* SP", ScannedKind::SPElements, 2259},
    KindRow{u"SUR", ScannedKind::SURElements, 2258},
    KindRow{u"FH", ScannedKind::ManualTktElements, 2245},
    KindRow{u"FA", &kAutoTicket, 2255},
    KindRow{u"FE", &kEndorsement, 2256},
    KindRow{u"FS", ScannedKind::MiscTktInfoElements, 2251},
    KindRow{u"OSI", ScannedKind::OtherServiceElements, 2249},
    KindRow{u"SSR", ScannedKind::SpecialServiceElements, 2247},
    KindRow{u"ES", ScannedKind::SecurityElements, 2253},
    KindRow{u"MIS", MISElement{}, kNoNumber},  // its reader raises its own number
    KindRow{u"MCO", ScannedKind::MCOElements, 2260},
    KindRow{u"INS", &kInsurance, 2261},
    KindRow{u"HTL", &kHotelLine, 2261},
};

const KindRow* RowAskedFor(const ParamBagRef& objParams, const TextForms& forms) {
  const std::u16string kind = TextKey(BagOf(objParams), kKindKey, forms);
  const auto* row = std::ranges::find(kKinds, TextView(kind), &KindRow::kind);
  return row == kKinds.end() ? nullptr : row;
}

std::u16string_view TextOf(const std::u16string& item, const TextForms& /*forms*/) {
  return item;
}
std::u16string TextOf(const Value& item, const TextForms& forms) {
  return ToText(item, forms);
}

// The entries from index 1 on. Intentional: the entry at index 0 is ignored.
template <typename Array>
TextArray EntriesFromOne(const Array& array, const TextForms& forms) {
  if (array.lowerBound > 1) {
    Raise(RunTimeError::SubscriptOutOfRange);
  }
  TextArray entries{.lowerBound = 1, .items = {}};
  std::int32_t index = array.lowerBound;
  for (const auto& item : array.items) {
    if (index++ >= 1) {
      entries.items.emplace_back(TextOf(item, forms));
    }
  }
  return entries;
}

TextArray PrefixesIn(const Value& list, const TextForms& forms) {
  if (const auto* texts = list.As<TextArray>()) {
    return EntriesFromOne(*texts, forms);
  }
  if (const auto* values = list.As<ValueArray>()) {
    return EntriesFromOne(*values, forms);
  }
  Raise(RunTimeError::TypeMismatch);
}

// Reads one element: one overload for each alternative of a kind's source.
class Getter {
 public:
  Getter(ModuleState& state, CPNR& pnr, DisplayScans& scans, const KindRow& row, const ParamBagRef& objParams)
      : state_(state), pnr_(pnr), scans_(scans), row_(row), objParams_(objParams) {}

  // For a kind without a number, an index out of range stores nothing.
  ParamBagRef operator()(ScannedKind kind) const {
    ParamBag& bag = BagOf(objParams_);
    const Index index(bag, IndexForm::ComparedFirstConvertedAsText);
    if (!index.IsBelow(scans_.Count(kind))) {
      return OutOfRange();
    }
    const std::int16_t position = index.Position();
    const ElementArrays& arrays = scans_.Arrays(kind);
    if (position < 0 || position > arrays.UpperBound()) {
      return OutOfRange();
    }
    for (std::size_t i = 0; i < arrays.Keys().size(); ++i) {
      bag.Set(arrays.Keys()[i].name, arrays.At(i, position));
    }
    return nullptr;
  }

  ParamBagRef operator()(const Accessor* accessor) const {
    ReadElement(state_, *accessor, objParams_);
    return nullptr;
  }

  ParamBagRef operator()(MISElement /*kind*/) const {
    pnr_.GetMISElement(objParams_);
    return nullptr;
  }

  ParamBagRef operator()(PrefixSearch /*kind*/) const {
    TextArray texts;
    TextArray numbers;
    pnr_.CollectElementLines(PrefixesIn(BagOf(objParams_).Get(kPrefixesKey), state_.texts), texts, numbers);
    ParamBagRef result = state_.platform.CreateParamBag();
    ParamBag& bag = BagOf(result);
    bag.Set(kTextsKey, Value(std::move(texts)));
    bag.Set(kNumbersKey, Value(std::move(numbers)));
    return result;
  }

 private:
  ParamBagRef OutOfRange() const {
    if (row_.number != kNoNumber) {
      RaiseOwn(row_.number);
    }
    return nullptr;
  }

  ModuleState& state_;
  CPNR& pnr_;
  DisplayScans& scans_;
  const KindRow& row_;
  const ParamBagRef& objParams_;
};

}  // namespace

ParamBagRef PnrElements::Elements(const ParamBagRef& objParams) {
  const KindRow* row = WithNumber(kSearchFailed, [&] { return RowAskedFor(objParams, state_.texts); });
  if (row == nullptr) {
    return nullptr;
  }
  const Getter getter(state_, pnr_, scans_, *row, objParams);
  return WithNumber(row->number, [&] { return std::visit(getter, row->source); });
}

}  // namespace wendrill
