#include "com/classes/pnr_object.h"

#include <algorithm>
#include <array>

#include "wendrill23_dispatch.h"

namespace wendrill::com {
namespace {

// Converts a pointer to the default interface _CPNR into a pointer to another interface of the object. A late-bound
// caller, such as a script, has only the default interface; it calls the members of IGet and IGetPNR through the
// dispatch table of the default interface.
template <typename Interface>
struct FromDefault {
  static Interface* From(void* object) { return static_cast<CPNRObject*>(static_cast<_CPNR*>(object)); }
};

// The dispatch rows that late-bound callers find on the default interface in addition to its own rows: the rows of all
// members of IGet, and the row of Elements, the member of IGetPNR. IGet and IGetPNR use the same DISPIDs for different
// members. So Elements gets a new DISPID in this table, the highest DISPID of IGet plus 1.
constexpr auto FurtherMembers() {
  constexpr auto& kRecords = kMembersOf<_IGet, FromDefault<_IGet>>;
  std::array<DispatchRow, kRecords.size() + 1> rows;
  std::copy(kRecords.begin(), kRecords.end(), rows.begin());
  rows.back() = kMembersOf<_IGetPNR, FromDefault<_IGetPNR>>.front();
  rows.back().id = std::ranges::max(kRecords, {}, &DispatchRow::id).id + 1;
  return rows;
}

}  // namespace

template <>
const DispatchTable& TableOf<_CPNR>() {
  static constexpr auto kFurtherMembers = FurtherMembers();
  static const DispatchTable further(kFurtherMembers);
  static const DispatchTable table(kMembersOf<_CPNR>, &further);
  return table;
}

}  // namespace wendrill::com
