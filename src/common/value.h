// Value, the type of the values that all modules use, and its conversions, which are those of the automation run time.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace wendrill {

class AutomationObject;  // toolkit/automation_object.h
class ForeignValue;      // common/foreign_value.h
class TextForms;         // common/text_forms.h

// A shared reference to a foreign object; a null reference is automation's Nothing.
using ObjectRef = std::shared_ptr<AutomationObject>;

// A shared reference to a value of an automation type that the core does not have, such as currency; never null. Two
// references are equal when they refer to the same object.
using ForeignValueRef = std::shared_ptr<const ForeignValue>;

// An automation date: the integer part is the number of days since 30 December 1899, the fraction is the time of day.
struct Date {
  double days = 0;
  friend bool operator==(const Date&, const Date&) = default;
};

// Automation's Null: a value that is known to be missing. Null differs from Empty, the value of a variable that was
// never set.
struct Null {
  friend bool operator==(const Null&, const Null&) = default;
};

class Value;

// An array of strings (TextArray) or of values (ValueArray), with the index of its first item (lowerBound). The library
// returns arrays that count from 0 and arrays that count from 1, and callers see the difference.
struct TextArray {
  std::int32_t lowerBound = 0;
  std::vector<std::u16string> items;
  friend bool operator==(const TextArray&, const TextArray&) = default;
};

struct ValueArray {
  std::int32_t lowerBound = 0;
  std::vector<Value> items;
  friend bool operator==(const ValueArray&, const ValueArray&) = default;
};

// A value of one of these types: Empty, Null, Boolean, 16-bit integer, 32-bit integer, double, date, string, array of
// strings, array of values, object, or any other automation type (ForeignValue).
class Value {
 public:
  using Alternatives = std::variant<std::monostate, Null, bool, std::int16_t, std::int32_t, double, Date,
                                    std::u16string, TextArray, ValueArray, ObjectRef, ForeignValueRef>;

  // Intentional: these constructors are not explicit, so that callers can pass a string, a number or an object where a
  // Value is expected.
  Value() = default;
  Value(Null null) : alternatives_(null) {}
  Value(bool truth) : alternatives_(truth) {}
  Value(std::int16_t number) : alternatives_(number) {}
  Value(std::int32_t number) : alternatives_(number) {}
  Value(double number) : alternatives_(number) {}
  Value(Date date) : alternatives_(date) {}
  Value(std::u16string text) : alternatives_(std::move(text)) {}
  Value(std::u16string_view text) : alternatives_(std::u16string(text)) {}
  Value(const char16_t* text) : alternatives_(std::u16string(text)) {}
  Value(TextArray texts) : alternatives_(std::move(texts)) {}
  Value(ValueArray values) : alternatives_(std::move(values)) {}
  Value(ObjectRef object) : alternatives_(std::move(object)) {}
  Value(ForeignValueRef value) : alternatives_(std::move(value)) {}

  bool IsEmpty() const { return std::holds_alternative<std::monostate>(alternatives_); }

  template <typename Alternative>
  const Alternative* As() const {
    return std::get_if<Alternative>(&alternatives_);
  }
  template <typename Alternative>
  Alternative* As() {
    return std::get_if<Alternative>(&alternatives_);
  }

  const Alternatives& Get() const { return alternatives_; }

  friend bool operator==(const Value& left, const Value& right) { return left.alternatives_ == right.alternatives_; }

 private:
  Alternatives alternatives_;
};

// These conversions follow the automation run time: Empty is 0 or False, True is -1 and False is 0, and a conversion to
// an integer rounds half to even. The conversions raise 6 (overflow) when the target type cannot hold the number; 13
// (type mismatch) for a string that is not a number, for an array, for an object and for a ForeignValue that is not a
// number; 94 (invalid use of Null) for Null; 91 (object not set) for Nothing.
std::int16_t ToInt16(const Value& value);
std::int32_t ToInt32(const Value& value);
double ToDouble(const Value& value);
bool ToBoolean(const Value& value);  // also converts "True" and "False", in any case

// The string form of a value; `forms` formats doubles and dates. Raises 13 (type mismatch) for an array, an object and
// a ForeignValue without a string form, 94 (invalid use of Null) for Null, 91 (object not set) for Nothing, and 5
// (invalid argument) for a date outside the years 100 to 9999. The second overload moves a string out of `value`
// instead of copying the string, because displays are long.
std::u16string ToText(const Value& value, const TextForms& forms);
std::u16string ToText(Value&& value, const TextForms& forms);

// The 16-bit integer that the string form of a value expresses. Differs from ToInt16 for Empty, a Boolean and a date:
// the string forms of these values are not numbers, so ToInt16ViaText raises 13 (type mismatch). Raises 13 also for any
// other value that is not a number, 6 (overflow) for a number that does not fit into 16 bits, 94 (invalid use of Null)
// for Null, and 91 (object not set) for Nothing. Independent of the user's regional settings.
std::int16_t ToInt16ViaText(const Value& value);

// The object in a value. Raises 424 (object required) when the value is not an object, and 91 (object not set) when the
// value is Nothing.
ObjectRef ToObject(const Value& value);

}  // namespace wendrill
