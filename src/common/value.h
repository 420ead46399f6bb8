// The one value type that all modules use, and its conversions, which are automation's.
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

// A shared reference to a foreign object; an empty reference is automation's Nothing.
using ObjectRef = std::shared_ptr<AutomationObject>;

// A shared value of a type that the core does not have; never null. Compared by identity.
using ForeignValueRef = std::shared_ptr<const ForeignValue>;

// An automation date: days since 30 December 1899; the fraction is the time of day.
struct Date {
  double days = 0;
  friend bool operator==(const Date&, const Date&) = default;
};

// Automation's Null: a value that is known to be missing. Different from Empty, which was never set.
struct Null {
  friend bool operator==(const Null&, const Null&) = default;
};

class Value;

// Arrays have a lower bound of their own: the library returns arrays that count from 0 and arrays that count from 1,
// and callers see the difference.
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

// Empty, Null, Boolean, 16-bit, 32-bit, double, date, text, array of text, array of values, object, and any other type.
class Value {
 public:
  using Alternatives = std::variant<std::monostate, Null, bool, std::int16_t, std::int32_t, double, Date,
                                    std::u16string, TextArray, ValueArray, ObjectRef, ForeignValueRef>;

  // Intentional: the conversions are implicit, so that a value is stored under a key in its own type.
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

// Conversions follow the automation run time: Empty is 0, "" or False; Booleans are -1 and 0; numbers round half to
// even. Raises 6 (overflow) when the target cannot hold the number, 13 (type mismatch) for text that is not a number,
// for arrays and for objects, 94 for Null, 91 for Nothing.
std::int16_t ToInt16(const Value& value);
std::int32_t ToInt32(const Value& value);
double ToDouble(const Value& value);
bool ToBoolean(const Value& value);  // also accepts the strings "True" and "False", whatever their case

// The string form of a value; fractions and dates are written as `forms` says. The second overload moves a string
// instead of copying it, because displays are long.
std::u16string ToText(const Value& value, const TextForms& forms);
std::u16string ToText(Value&& value, const TextForms& forms);

// A 16-bit integer, converted via the string form. Differs from ToInt16 for a missing value, a Boolean and a date:
// their string forms are not numbers, so they raise 13. Independent of the user's settings.
std::int16_t ToInt16ViaText(const Value& value);

// The object of a value. Raises 424 when the value is not an object, 91 when it is Nothing.
ObjectRef ToObject(const Value& value);

}  // namespace wendrill
