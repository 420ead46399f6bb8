#include "pnr/toolkit_pnr.h"

#include "common/error.h"

namespace wendrill {

ObjectRef ToolkitPnr(const ModuleState& state) {
  if (!state.gobjPNR) {
    Raise(RunTimeError::ObjectNotSet);
  }
  return state.gobjPNR;
}

std::u16string DisplayText(const ModuleState& state) {
  return ToText(ToolkitPnr(state)->Get(kDisplayText), state.texts);
}

ObjectRef HeaderObject(const ModuleState& state) {
  return ToObject(ToolkitPnr(state)->Get(kHeader));
}

ObjectRef CollectionObject(const ModuleState& state, Collection collection) {
  return ToObject(ToolkitPnr(state)->Get(Member::Id(static_cast<std::int32_t>(collection))));
}

}  // namespace wendrill
