// Automation arrays, for tests' eyes.
#pragma once

#include <string>
#include <vector>

#include "desktop_fixture.h"

namespace wendrill::com::testing {

// An array that destroys itself.
class OwnedArray {
 public:
  OwnedArray() = default;
  explicit OwnedArray(SAFEARRAY* array) : array_(array) {}
  ~OwnedArray() { SafeArrayDestroy(array_); }
  OwnedArray(const OwnedArray&) = delete;
  OwnedArray& operator=(const OwnedArray&) = delete;

  SAFEARRAY* Get() const { return array_; }
  SAFEARRAY** InOut() { return &array_; }

 private:
  SAFEARRAY* array_ = nullptr;
};

inline LONG LowerBound(SAFEARRAY* array) {
  LONG bound = -1;
  EXPECT_EQ(S_OK, SafeArrayGetLBound(array, 1, &bound));
  return bound;
}

inline SAFEARRAY* ArrayOfStrings(LONG lowerBound, const std::vector<std::wstring>& texts) {
  SAFEARRAY* array = SafeArrayCreateVector(VT_BSTR, lowerBound, static_cast<ULONG>(texts.size()));
  for (LONG index = 0; index < static_cast<LONG>(texts.size()); ++index) {
    LONG place = lowerBound + index;
    SafeArrayPutElement(array, &place, Text(texts[static_cast<std::size_t>(index)].c_str()));
  }
  return array;
}

// The texts in an array of strings, or in one of variants that hold strings.
inline std::vector<std::wstring> TextsIn(SAFEARRAY* array) {
  std::vector<std::wstring> texts;
  VARTYPE type = VT_EMPTY;
  LONG upper = -1;
  EXPECT_EQ(1U, SafeArrayGetDim(array));
  EXPECT_EQ(S_OK, SafeArrayGetVartype(array, &type));
  EXPECT_EQ(S_OK, SafeArrayGetUBound(array, 1, &upper));
  for (LONG index = LowerBound(array); index <= upper; ++index) {
    OwnedVariant element;
    if (type == VT_VARIANT) {
      EXPECT_EQ(S_OK, SafeArrayGetElement(array, &index, static_cast<VARIANT*>(&element)));
      EXPECT_EQ(VT_BSTR, V_VT(&element));
    } else {
      EXPECT_EQ(VT_BSTR, type);
      V_VT(&element) = VT_BSTR;
      EXPECT_EQ(S_OK, SafeArrayGetElement(array, &index, &V_BSTR(&element)));
    }
    texts.emplace_back(V_BSTR(&element), SysStringLen(V_BSTR(&element)));
  }
  return texts;
}

}  // namespace wendrill::com::testing
