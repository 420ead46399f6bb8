// Stores results of the simulator's core in the out parameters of automation methods.
#pragma once

#include "com/server/automation_types.h"
#include "com/server/boundary.h"

namespace wendrill::simulator {

inline void Give(const std::u16string& text, BSTR* result) {
  *result = com::NewString(text);
}
inline void Give(std::int16_t number, SHORT* result) {
  *result = number;
}
inline void Give(std::int32_t number, LONG* result) {
  *result = number;
}
inline void Give(bool truth, VARIANT_BOOL* result) {
  *result = truth ? VARIANT_TRUE : VARIANT_FALSE;
}

// Stores the result of `work` in the out parameter `result`. Returns E_POINTER when `result` is null. An exception of
// `work` becomes the returned status.
template <typename Result, typename Work>
HRESULT GiveResult(Result* result, Work&& work) {
  if (result == nullptr) {
    return E_POINTER;
  }
  return com::Guarded([&] {
    *result = Result{};
    Give(work(), result);
  });
}

}  // namespace wendrill::simulator
