#include "scan/elements_by_kind.h"

#include <algorithm>
#include <array>
#include <optional>
#include <variant>

#include "common/error.h"
#include "common/failures.h"
#include "pnr/pnr.h"
#include "scan/display_kinds.h"
#include "scan/display_scans.h"
#include "scan/toolkit_elements.h"
#include "toolkit/platform.h"

namespace wendrill {
namespace {

constexpr TextView kKindKey = u"strKeyPNRElement";
constexpr TextView kPrefixesKey = u"strKeyFind()";
constexpr TextView kTextsKey = u"strKeyResult()";
constexpr TextView kNumbersKey = u"strKeyElementNbrs()";

// The way in which the elements of a kind are read: as display lines with given prefixes (PrefixSearch), by a scan
// (DisplayKind), from a toolkit collection (Accessor), or by CPNR::GetMISElement (MISElement).
struct PrefixSearch {};
struct MISElement {};
using Source = std::variant<PrefixSearch, const DisplayKind*, const Accessor*, MISElement>;

constexpr std::int32_t kSearchFailed = 2252;

// The kinds of IGetPNR::Elements that are not in kDisplayKinds.
struct OtherKind {
  TextView askedAs;
  Source source;
};
constexpr std::array kOtherKinds = {
    OtherKind{u"ALL", PrefixSearch{}}, OtherKind{u"FA", &kAutoTicket}, OtherKind{u"FE", &kEndorsement},
    OtherKind{u"MIS", MISElement{}},   OtherKind{u"INS", &kInsurance}, OtherKind{u"HTL", &kHotelLine},
};

// Visitor for Source: returns the error number that replaces every failure of the kind's getter except lack of memory;
// kNoNumber when failures propagate unchanged.
struct GetterNumber {
  std::int32_t operator()(PrefixSearch /*kind*/) const { return kSearchFailed; }
  std::int32_t operator()(const DisplayKind* kind) const { return kind->getterNumber; }
  std::int32_t operator()(const Accessor* accessor) const { return accessor->error; }
  std::int32_t operator()(MISElement /*kind*/) const { return kNoNumber; }  // GetMISElement raises 2206 itself
};

// The source of the kind whose name is exactly `askedAs`; nullopt for an unknown or empty name.
std::optional<Source> SourceNamed(TextView askedAs) {
  if (const DisplayKind* kind = KindWith(&DisplayKind::askedAs, askedAs)) {
    return kind;
  }
  const auto other = std::ranges::find(kOtherKinds, askedAs, &OtherKind::askedAs);
  return other == kOtherKinds.end() ? std::nullopt : std::optional(other->source);
}

std::optional<Source> SourceAskedFor(const ParamBagRef& objParams, const TextForms& forms) {
  return SourceNamed(TextKey(BagOf(objParams), kKindKey, forms));
}

std::u16string_view TextOf(const std::u16string& item, const TextForms& /*forms*/) {
  return item;
}
std::u16string TextOf(const Value& item, const TextForms& forms) {
  return ToText(item, forms);
}

// The string forms of the items from index 1 to the upper bound, as an array that counts from 1. Raises 9 (index out of
// range) when the lower bound of `array` is above 1. Intentional: an item at index 0 or below is ignored, although the
// caller passed it.
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

// Visitor for Source: reads the element or the lines that the caller's bag asks for. One overload of operator() for
// each alternative of Source. Returns what IGetPNR::Elements returns.
class Getter {
 public:
  Getter(ModuleState& state, CPNR& pnr, DisplayScans& scans, const ParamBagRef& objParams)
      : state_(state), pnr_(pnr), scans_(scans), objParams_(objParams) {}

  // Scans again, stores the values of one element in the caller's bag and returns Nothing. The index is out of range
  // when it is negative, at or above the count, or rounded to a position beyond the kind's arrays. For an index out of
  // range, raises the kind's getter number; a kind whose getter number is kNoNumber stores nothing.
  ParamBagRef operator()(const DisplayKind* kind) const {
    ParamBag& bag = BagOf(objParams_);
    const auto position = scans_.PositionAskedFor(*kind, bag);
    const ElementArrays& arrays = scans_.Arrays(*kind);
    if (!position || *position < 0 || *position > arrays.UpperBound()) {
      return OutOfRange(*kind);
    }
    for (std::size_t i = 0; i < arrays.Keys().size(); ++i) {
      bag.Set(arrays.Keys()[i].name, arrays.At(i, *position));
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
  static ParamBagRef OutOfRange(const DisplayKind& kind) {
    if (kind.getterNumber != kNoNumber) {
      RaiseOwn(kind.getterNumber);
    }
    return nullptr;
  }

  ModuleState& state_;
  CPNR& pnr_;
  DisplayScans& scans_;
  const ParamBagRef& objParams_;
};

}  // namespace

ParamBagRef PnrElements::Elements(const ParamBagRef& objParams) {
  const auto source = WithNumber(kSearchFailed, [&] { return SourceAskedFor(objParams, state_.texts); });
  if (!source) {
    return nullptr;
  }
  const Getter getter(state_, pnr_, scans_, objParams);
  return WithNumber(std::visit(GetterNumber{}, *source), [&] { return std::visit(getter, *source); });
}

}  // namespace wendrill
