#include "pnr/counts.h"

#include <algorithm>
#include <optional>
#include <string>

#include "common/error.h"
#include "common/numeric.h"
#include "common/text.h"
#include "common/value.h"
#include "pnr/toolkit_pnr.h"

namespace wendrill {
namespace {

// The calculation of one kind's count: the number of elements in the collection `counted`, minus the numbers of
// elements in the collections `less` and `andLess`. nullopt subtracts nothing.
struct CountRow {
  CountOf kind;
  Collection counted;
  std::optional<Collection> less = {};
  std::optional<Collection> andLess = {};
};

constexpr CountRow kCounts[] = {
    {CountOf::NameElements, Collection::Names},  // for a group, Count returns GroupCount instead
    {CountOf::TicketElements, Collection::Tickets},
    {CountOf::RemarkElements, Collection::Remarks},
    {CountOf::FormOfPaymentElements, Collection::FormsOfPayment},
    {CountOf::HotelSegments, Collection::HotelSegments},
    {CountOf::FareCommissionElements, Collection::FareCommissions},
    {CountOf::OpenAirSegments, Collection::OpenAirSegments},
    {CountOf::OrigianlIssueElements, Collection::OriginalIssues},
    // Intentional: the count AirSegments is not the number of elements in Collection::AirSegments, although the
    // accessor AirSegments enumerates this collection. The published count and the published accessor use different
    // collections.
    {CountOf::AirSegments, Collection::AllAirSegments, Collection::OpenAirSegments, Collection::FlownAirSegments},
    {CountOf::ActiveAirSegments, Collection::AllAirSegments, Collection::FlownAirSegments},
    {CountOf::INSElements, Collection::INSElements},
    {CountOf::MISElements, Collection::MISElements},
    {CountOf::MailingAddressElements, Collection::MailingAddresses},
    {CountOf::ContactElements, Collection::Contacts},
    {CountOf::ConfidentialRemarkElements, Collection::ConfidentialRemarks},
    {CountOf::OptionElements, Collection::Options},
    {CountOf::BillingAddressElements, Collection::BillingAddresses},
    {CountOf::AllAirSegments, Collection::AllAirSegments},
    {CountOf::FlownAirSegments, Collection::FlownAirSegments},
    {CountOf::CarSegments, Collection::CarSegments},
    {CountOf::FEElements, Collection::FEElements},
    {CountOf::AutoTktElements, Collection::AutoTickets},
    {CountOf::HTLElements, Collection::HTLElements},
};

const CountRow& RowOf(CountOf kind) {
  const auto* row = std::ranges::find(kCounts, kind, &CountRow::kind);
  if (row == std::end(kCounts)) {
    Raise(RunTimeError::InvalidCall);
  }
  return *row;
}

std::int16_t CountOfCollection(const ModuleState& state, std::optional<Collection> collection) {
  return collection ? ToInt16(CollectionObject(state, *collection)->Get(Member::Name(u"Count"))) : std::int16_t{0};
}

// In the display of a group booking, the group line shows the size of the group and, after the group mark "NM:", the
// number of passengers whose names are known.
//          1         2
// 12345678901234567890
//   0. 25SKIERS NM: 2
//  0. 8SKIERS NM:12
constexpr TextView kGroupMark = u"NM:";
constexpr int kLinesWithGroupMark = 7;
constexpr std::ptrdiff_t kGroupSizeColumns[] = {4, 5, 6};  // the group size begins in one of these columns
constexpr std::ptrdiff_t kMostDigits = 2;

std::int16_t NumberIn(TextView text) {
  return ToInt16(Value(text));
}

// The group size, a number of one or two digits that begins in column 4, 5 or 6; 0 when none of these columns contains
// a digit.
std::int16_t GroupSize(TextView line) {
  for (const std::ptrdiff_t column : kGroupSizeColumns) {
    const TextView digit = Columns(line, column, 1);
    if (IsNumeric(digit)) {
      const TextView pair = Columns(line, column, kMostDigits);
      return NumberIn(IsNumeric(pair) ? pair : digit);
    }
  }
  return 0;
}

// The number after the group mark "NM:" in the group line: how many passengers' names are known. When a digit directly
// follows the group mark, the number is read from the two columns after the group mark. When no digit directly follows,
// the number is read from the second column after the group mark alone. Raises 13 (type mismatch) when these columns
// contain no number.
std::int16_t NamedCount(TextView line) {
  const std::ptrdiff_t behind = ColumnOf(line, kGroupMark) + std::ssize(kGroupMark);
  const bool isDirect = IsNumeric(Columns(line, behind, 1));
  return NumberIn(isDirect ? Columns(line, behind, kMostDigits) : Columns(line, behind + 1, 1));
}

// The count of names in the display of a group booking: the size of the group plus the number of passengers whose names
// are known. nullopt when the display's first seven lines contain no group mark, because the booking is then not a
// group booking.
std::optional<std::int16_t> GroupCount(TextView display) {
  DisplayLines lines(display);
  for (int n = 1; n <= kLinesWithGroupMark; ++n) {
    const TextView line = lines.Next();
    if (Contains(line, kGroupMark)) {
      return Add16(GroupSize(line), NamedCount(line));
    }
  }
  return std::nullopt;
}

}  // namespace

std::int16_t Count(ModuleState& state, CountOf kind) {
  if (kind == CountOf::NameElements) {
    if (const auto group = GroupCount(DisplayText(state))) {
      return *group;
    }
  }
  const CountRow& row = RowOf(kind);
  const std::int16_t counted = CountOfCollection(state, row.counted);
  const std::int16_t less = CountOfCollection(state, row.less);
  return Subtract16(counted, Add16(less, CountOfCollection(state, row.andLess)));
}

}  // namespace wendrill
