// A parameter bag as a typed client holds it.
#pragma once

#include <string>

#include "com/server/automation_types.h"
#include "platform.h"

namespace wendrill::com::testing {

class Bag {
 public:
  Bag();  // new and empty

  // The value is copied, whatever its type.
  void Set(const wchar_t* key, const VARIANT& value);
  void Set(const wchar_t* key, SHORT number);
  void Set(const wchar_t* key, const wchar_t* text);

  IDispatch* Object() const { return bag_.Get(); }

  // All keys in the order of first setting, a line each: strKeyElementNr = "12", blnKeyManual = True, int16 3, int32 3.
  std::string Contents() const;

 private:
  Reference<_ParamBag> bag_;
};

// What stands under a key of a bag that a member returned; `value` stays Empty when nothing does.
void ReadKey(IDispatch* bag, const wchar_t* key, VARIANT* value);

}  // namespace wendrill::com::testing
