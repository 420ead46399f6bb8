#include "com/server/object_enumerator.h"

#include <utility>

#include "com/server/snapshot_enumerator.h"

namespace wendrill::com {
namespace {

void GiveObject(const Reference<IDispatch>& object, VARIANT* result) {
  VariantInit(result);
  V_VT(result) = VT_DISPATCH;
  V_DISPATCH(result) = Reference<IDispatch>(object).Release();
}

using ObjectEnumerator = SnapshotEnumerator<IEnumVARIANT, Reference<IDispatch>, VARIANT, GiveObject>;

}  // namespace

IUnknown* NewEnumerator(std::vector<Reference<IDispatch>> objects) {
  return new ObjectEnumerator(std::move(objects));
}

}  // namespace wendrill::com
