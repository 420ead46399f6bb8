#include "bag.h"

#include <gtest/gtest.h>

#include "common/text.h"

namespace wendrill::com::testing {
namespace {

std::string Described(const VARIANT& value) {
  switch (V_VT(&value)) {
    case VT_BSTR:
      return '"' + ToUtf8(TextOf(V_BSTR(&value))) + '"';
    case VT_BOOL:
      return V_BOOL(&value) == VARIANT_FALSE ? "False" : "True";
    case VT_I2:
      return "int16 " + std::to_string(V_I2(&value));
    case VT_I4:
      return "int32 " + std::to_string(V_I4(&value));
    default:
      return "of type " + std::to_string(V_VT(&value));
  }
}

void ReadEntry(_ParamBag& bag, BSTR key, VARIANT* value) {
  Reference<_ParamBagEntry> entry;
  EXPECT_EQ(S_OK, bag.Get(key, entry.Receive()));
  if (entry) {
    EXPECT_EQ(S_OK, entry->get_Value(value));
  }
}

}  // namespace

Bag::Bag() {
  EXPECT_EQ(S_OK,
            CoCreateInstance(CLSID_ParamBag, nullptr, CLSCTX_INPROC_SERVER, __uuidof(_ParamBag), bag_.ReceiveVoid()));
}

void Bag::Set(const wchar_t* key, const VARIANT& value) {
  const OwnedString name(TextOf(std::wstring_view(key)));
  EXPECT_EQ(S_OK, bag_->Set(name.Get(), value));
}

void Bag::Set(const wchar_t* key, SHORT number) {
  VARIANT value{};
  V_VT(&value) = VT_I2;
  V_I2(&value) = number;
  Set(key, value);
}

void Bag::Set(const wchar_t* key, const wchar_t* text) {
  const OwnedString string(TextOf(std::wstring_view(text)));
  VARIANT value{};
  V_VT(&value) = VT_BSTR;
  V_BSTR(&value) = string.Get();
  Set(key, value);
}

std::string Bag::Contents() const {
  OwnedVariant keys;
  EXPECT_EQ(S_OK, bag_->Keys(&keys));
  std::string contents;
  LONG last = -1;
  SafeArrayGetUBound(V_ARRAY(&keys), 1, &last);
  for (LONG position = 0; position <= last; ++position) {
    OwnedVariant key;
    OwnedVariant value;
    EXPECT_EQ(S_OK, SafeArrayGetElement(V_ARRAY(&keys), &position, &key));
    ReadEntry(*bag_.Get(), V_BSTR(&key), &value);
    contents += ToUtf8(TextOf(V_BSTR(&key))) + " = " + Described(value) + "\n";
  }
  return contents;
}

void ReadKey(IDispatch* bag, const wchar_t* key, VARIANT* value) {
  const OwnedString name(TextOf(std::wstring_view(key)));
  const auto slots = Reference<IDispatch>(bag).As<_ParamBag>();
  ASSERT_TRUE(slots);
  ReadEntry(*slots.Get(), name.Get(), value);
}

}  // namespace wendrill::com::testing
