#include "scan/published_pnr.h"

#include "pnr/counts.h"
#include "scan/display_kinds.h"

namespace wendrill {

std::int16_t PublishedPnr::Count(CountOf kind) {
  const DisplayKind* display = KindWith(&DisplayKind::count, kind);
  return display ? scans_.Count(*display) : wendrill::Count(state_, kind);
}

ParamBagRef PublishedPnr::Get(GetMember member, const ParamBagRef& objParams) {
  const DisplayKind* display = KindWith(&DisplayKind::getter, member);
  return display ? scans_.Get(*display, objParams) : records_.Get(member, objParams);
}

}  // namespace wendrill
