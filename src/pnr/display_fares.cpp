#include "pnr/display_fares.h"

#include <algorithm>
#include <span>

#include "common/error.h"
#include "common/numeric.h"
#include "common/text.h"
#include "common/value.h"
#include "pnr/associations.h"
#include "pnr/index.h"
#include "pnr/reread_lines.h"
#include "pnr/toolkit_pnr.h"

namespace wendrill {
namespace {

struct FareKey {
  std::u16string_view name;
  std::u16string FareLine::*entry;
};

constexpr FareKey kValidatingAirlineKeys[] = {
    {u"strKeyElement", &FareLine::element}, {u"strKeyElementNr", &FareLine::elementNr},
    {u"strKeyAirline", &FareLine::airline}, {u"strKeyPasAsso", &FareLine::passenger},
    {u"strKeySegAsso", &FareLine::segment},
};

constexpr FareKey kAirSequenceKeys[] = {
    {u"strKeyElement", &FareLine::element},
    {u"strKeyElementNr", &FareLine::elementNr},
    {u"strKeyPasAsso", &FareLine::passenger},
    {u"strKeySegAsso", &FareLine::segment},
};

constexpr std::int16_t kFirstFareLine = 4;

// The code of a fare element is in columns 5 and 6 of its line.
bool HasFareCode(TextView line, TextView code) {
  return Columns(line, 5, std::ssize(code)) == code;
}

// Makes room for the element at index `count` and returns it. Index 0 exists already.
FareLine& Grow(std::vector<FareLine>& lines, std::int16_t count) {
  lines.resize(static_cast<std::size_t>(count) + 1);
  return lines.back();
}

void StoreAssociations(FareLine& stored) {
  const TextView text = stored.element;
  const std::ptrdiff_t passenger = ColumnOf(text, kPassengerMark);
  stored.passenger = PassengerAssociation(text, passenger);
  stored.segment = SegmentAssociation(text, ColumnOf(text, kSegmentMark), passenger);
}

// The column at which the airline of a validating airline element begins; 0 when no layout matches. Intentional: an
// element number of three digits matches no layout.
std::ptrdiff_t AirlineColumn(TextView element, TextView elementNr) {
  if (const std::ptrdiff_t starred = ColumnOf(element, u"PAX *"); starred > 0) {
    return starred + 7;
  }
  if (const std::ptrdiff_t passenger = ColumnOf(element, u"PAX"); passenger > 0) {
    return passenger + 4;
  }
  if (const std::ptrdiff_t infant = ColumnOf(element, u"INF"); infant > 0) {
    return infant + 4;
  }
  switch (elementNr.size()) {
    case 1:
      return 6;
    case 2:
      return 7;
    default:
      return 0;
  }
}

void StoreValidatingAirline(FareLine& stored, TextView line) {
  stored.elementNr = Trimmed(FirstColumns(line, 3));
  stored.element = Trimmed(line);
  if (const std::ptrdiff_t column = AirlineColumn(stored.element, stored.elementNr); column > 0) {
    stored.airline = Columns(stored.element, column, 2);
  }
  StoreAssociations(stored);
}

void StoreAirSequence(FareLine& stored, TextView row) {
  stored.element = Trimmed(FromColumn(row, 2));
  stored.elementNr = Trimmed(Columns(row, 2, 2));
  StoreAssociations(stored);
}

void StoreAtPosition(ParamBag& bag, std::int16_t position, const std::vector<FareLine>& lines,
                     std::span<const FareKey> keys) {
  if (position < 0 || static_cast<std::size_t>(position) >= lines.size()) {
    Raise(RunTimeError::SubscriptOutOfRange);
  }
  // A copy, because storing may pump a message whose handler scans again and replaces `lines`.
  // NOLINTNEXTLINE(performance-unnecessary-copy-initialization)
  const FareLine line = lines[static_cast<std::size_t>(position)];
  for (const FareKey& key : keys) {
    bag.Set(key.name, line.*key.entry);
  }
}

}  // namespace

struct DisplayFares::Accessor {
  GetMember member;
  std::int16_t (DisplayFares::*count)();
  FareLines DisplayFares::*lines;
  std::int32_t error;
  std::span<const FareKey> keys;
};

constexpr DisplayFares::Accessor DisplayFares::kAccessors[] = {
    {GetMember::ValidatingAirlineElement, &DisplayFares::ValidatingAirlineElementsCount,
     &DisplayFares::validatingAirlines_, 2233, kValidatingAirlineKeys},
    {GetMember::AirSequenceNrElement, &DisplayFares::AirSequenceNrElementsCount, &DisplayFares::airSequences_, 2213,
     kAirSequenceKeys},
};

void DisplayFares::Store(GetMember member, const ParamBagRef& objParams) {
  const Accessor& accessor = *std::ranges::find(kAccessors, member, &Accessor::member);
  ParamBag& bag = BagOf(objParams);
  const Index index(bag, IndexForm::ComparedFirstConvertedAsText);
  index.RequireBelow((this->*accessor.count)(), accessor.error);
  StoreAtPosition(bag, index.Position(), this->*accessor.lines, accessor.keys);
}

std::int16_t DisplayFares::ValidatingAirlineElementsCount() {
  try {
    return ScanValidatingAirlines();
  } catch (const Error&) {
    return 0;  // intentional: this count reports no failure
  }
}

std::int16_t DisplayFares::ScanValidatingAirlines() {
  validatingAirlines_.assign(1, FareLine());
  std::int16_t count = 0;
  RereadLines lines(state_, kFirstFareLine);
  for (;;) {
    const TextView line = lines.Next();
    if (HasFareCode(line, u"FV")) {
      StoreValidatingAirline(Grow(validatingAirlines_, count), line);
      count = Add16(count, 1);
    } else if (line.empty() || StartsWith(line, kPrompt)) {
      return count;
    }
  }
}

std::int16_t DisplayFares::AirSequenceNrElementsCount() {
  airSequences_.assign(1, FareLine());
  std::int16_t count = 0;
  const std::u16string display = DisplayText(state_);
  for (TextView rest = FromColumn(display, kRowWidth + 1); !rest.empty(); rest = FromColumn(rest, kRowWidth + 1)) {
    const TextView row = FirstColumns(rest, kRowWidth);
    if (HasFareCode(row, u"FB")) {
      StoreAirSequence(Grow(airSequences_, count), row);
      count = Add16(count, 1);
    } else if (StartsWith(row, kPrompt)) {
      break;
    }
  }
  return count;
}

}  // namespace wendrill
