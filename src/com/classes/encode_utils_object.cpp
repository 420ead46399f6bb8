#include "com/classes/encode_utils_object.h"

#include "com/classes/results.h"

namespace wendrill::com {

template <>
const DispatchTable& TableOf<_CEncodeUtils>() {
  static constexpr auto kMembers = std::to_array<DispatchRow>({
      Property<&_CEncodeUtils::get_EncodeSession>(1, L"EncodeSession"),
  });
  static const DispatchTable table(kMembers);
  return table;
}

CEncodeUtilsObject::CEncodeUtilsObject() : core_(TheLibrary().state) {}

HRESULT CEncodeUtilsObject::get_EncodeSession(IDispatch** result) {
  return Run([&] { return GiveResult(result, [&] { return core_.EncodeSession(); }); });
}

}  // namespace wendrill::com
