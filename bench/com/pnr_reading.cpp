#include "pnr_reading.h"

#include <array>
#include <map>
#include <string>

namespace wendrill::com::bench {
namespace {

constexpr DISPID kCount = 1;

// The DISPIDs of the elements' properties. The simulator defines them.
constexpr DISPID kText = 1;
constexpr DISPID kElementNo = 2;
constexpr DISPID kDepartureDate = 6;

constexpr std::array kPlain = {kText, kElementNo};
constexpr std::array kName = {kText, kElementNo, DISPID{3}, DISPID{4}};
constexpr std::array kRemark = {kText, DISPID{3}, kElementNo};
constexpr std::array kSegment = {kText,          kElementNo, DISPID{3}, DISPID{5},
                                 kDepartureDate, DISPID{4},  DISPID{7}, DISPID{8}};

constexpr std::array kPlainKeys = {L"strKeyElement", L"strKeyElementNr"};
constexpr std::array kContactKeys = {L"strKeyElement", L"strKeyElementNr", L"strKeyPasAsso"};
constexpr std::array kNameKeys = {L"strKeyElement", L"strKeyElementNr", L"strKeyInitial", L"strKeyLastName",
                                  L"strKeyPapType"};
constexpr std::array kRemarkKeys = {L"strKeyElement", L"strKeyPasAsso", L"strKeySegAsso", L"strKeyElementNr",
                                    L"strKeyText"};
constexpr std::array kSegmentKeys = {L"strKeySegment", L"strKeyAirline", L"strKeySegmentNr", L"strKeyDepCity",
                                     L"strKeyClass",   L"strKeyDepDate", L"strKeyArrCity",   L"strKeyArrTime",
                                     L"strKeyDepTime", L"strKeyNumber"};

constexpr std::array kKindTable = {
    Kind{L"NameElement", 2, true, true, kName, 0, kNameKeys},
    Kind{L"AllAirSegments", 78, false, false, kSegment, kDepartureDate, kSegmentKeys},
    Kind{L"RemarkElement", 65, false, true, kRemark, 0, kRemarkKeys},
    Kind{L"ConfidentialRemarkElements", 21, false, true, kPlain, 0, kPlainKeys},
    Kind{L"ContactElements", 62, false, true, kPlain, 0, kContactKeys},
    Kind{L"MailingAddressElements", 38, false, true, kPlain, 0, kPlainKeys},
    Kind{L"BillingAddressElements", 20, false, true, kPlain, 0, kPlainKeys},
};

// The key as a BSTR. Each BSTR is created once and remains owned by this function.
BSTR KeyString(const wchar_t* key) {
  static std::map<const wchar_t*, OwnedString> strings;
  const auto [string, isNew] = strings.try_emplace(key, TextOf(std::wstring_view(key)));
  return string->second.Get();
}

}  // namespace

const std::span<const Kind> kKinds = kKindTable;

LONG BareReading::IndexInBag() {
  Reference<_ParamBagEntry> entry;
  Must(bag_->Get(indexKey_.Get(), entry.Receive()));
  OwnedVariant value;
  Must(entry->get_Value(&value));
  return V_I2(&value);
}

Reference<IDispatch> BareReading::ElementAt(LONG wanted, const Kind& kind) {
  const auto collection = ObjectOf(pnr_.Get(), kind.collection);
  OwnedVariant walk;
  Call(collection.Get(), DISPID_NEWENUM, {}, &walk);
  Reference<IEnumVARIANT> elements;
  Must(V_UNKNOWN(&walk)->QueryInterface(IID_IEnumVARIANT, elements.ReceiveVoid()));
  for (LONG position = 0;; ++position) {
    VARIANT element;
    VariantInit(&element);
    Must(elements->Next(1, &element, nullptr));
    auto object = Reference<IDispatch>::Adopt(V_DISPATCH(&element));
    if (kind.indexIsReadAgain) {
      wanted = IndexInBag();
    }
    if (position == wanted) {
      return object;
    }
  }
}

void BareReading::Store(const Kind& kind, IDispatch* element) {
  std::array<OwnedVariant, kSegment.size()> values;
  for (std::size_t i = 0; i < kind.values.size(); ++i) {
    Call(element, kind.values[i], {}, &values[i]);
    if (kind.values[i] == kind.date) {
      VARIANT date = values[i];
      OwnedVariant text;
      Call(helper_.Get(), hostDateText_, {&date, 1}, &text);
      std::swap(static_cast<VARIANT&>(text), static_cast<VARIANT&>(values[i]));
    }
  }
  for (std::size_t i = 0; i < kind.keys.size(); ++i) {
    Must(bag_->Set(KeyString(kind.keys[i]), values[i % kind.values.size()]));
  }
}

void BareReading::ReadElement(const Kind& kind) {
  const LONG index = IndexInBag();
  if (kind.mayBeGroup) {
    Read(pnr_.Get(), kDisplayText);
  }
  Read(ObjectOf(pnr_.Get(), kind.collection).Get(), kCount);
  Store(kind, ElementAt(index, kind).Get());
}

}  // namespace wendrill::com::bench
