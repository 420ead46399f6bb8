#include "com/classes/batch_object.h"

#include "com/classes/queue_object.h"
#include "com/classes/results.h"
#include "com/server/variant_values.h"
#include "common/error.h"

namespace wendrill::com {

template <>
const DispatchTable& TableOf<_CBatch>() {
  using I = _CBatch;
  static constexpr auto kMembers = std::to_array<DispatchRow>({
      Property<&I::get_Commands, &I::putref_Commands>(1, L"Commands"),
      Property<&I::get_Separator, &I::put_Separator>(2, L"Separator"),
      Action<&I::Submit>(3, L"Submit"),
      Action<&I::SubmitWithResponse>(4, L"SubmitWithResponse", {L"objResponse"}),
      Action<&I::RMBatch>(5, L"RMBatch", {L"strString", L"strRMElement"}),
  });
  static const DispatchTable table(kMembers);
  return table;
}

CBatchObject::CBatchObject() : core_(TheLibrary().state) {}

HRESULT CBatchObject::get_Commands(_CQueue** result) {
  return Run([&]() -> HRESULT {
    if (result == nullptr) {
      return E_POINTER;
    }
    *result = nullptr;
    if (const std::shared_ptr<CQueue> commands = core_.Commands()) {
      *result = CQueueObject::For(commands);
    }
    return S_OK;
  });
}

HRESULT CBatchObject::putref_Commands(_CQueue* objCommands) {
  return Run([&] {
    std::shared_ptr<CQueue> commands = CQueueObject::Behind(objCommands);
    if (objCommands != nullptr && !commands) {
      Raise(RunTimeError::TypeMismatch);
    }
    core_.SetCommands(std::move(commands));
  });
}

HRESULT CBatchObject::get_Separator(BSTR* result) {
  return Run([&] { return GiveResult(result, [&] { return core_.Separator(); }); });
}

HRESULT CBatchObject::put_Separator(BSTR strSeparator) {
  return Run([&] { core_.SetSeparator(TextOf(strSeparator)); });
}

HRESULT CBatchObject::Submit() {
  return Run([&] { core_.Submit(); });
}

HRESULT CBatchObject::SubmitWithResponse(IDispatch** objResponse) {
  return Run([&] { core_.SubmitWithResponse(BagIn(objResponse)); });
}

HRESULT CBatchObject::RMBatch(BSTR strString, SAFEARRAY** strRMElement) {
  return Run([&]() -> HRESULT {
    if (strRMElement == nullptr) {
      return E_POINTER;
    }
    TextArray elements = TextsOfArray(*strRMElement);
    core_.RMBatch(TextOf(strString), elements);
    SAFEARRAY* cut = ArrayOfTexts(elements);
    const HRESULT status = ReplaceArray(strRMElement, &cut);
    SafeArrayDestroy(cut);  // nothing is left of it where it found its place
    return status;
  });
}

}  // namespace wendrill::com
