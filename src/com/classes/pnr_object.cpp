#include "com/classes/pnr_object.h"

#include <algorithm>
#include <array>

#include "wendrill23_dispatch.h"

namespace wendrill::com {
namespace {

// Converts a pointer to the default interface into a pointer to another interface of the same object. A script holds
// the default interface, and can call the members of IGet and IGetPNR only by name.
template <typename Interface>
struct FromDefault {
  static Interface* From(void* object) { return static_cast<CPNRObject*>(static_cast<_CPNR*>(object)); }
};

// The members that late-bound callers find on the default interface beside that interface's own: those of IGet, and
// Elements of IGetPNR. Elements cannot keep its own DISPID there, because IGet and IGetPNR use the same DISPIDs. Its
// DISPID is the one after IGet's last, so that no member of IGet is called in place of Elements.
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
