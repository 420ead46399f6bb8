#include "common/value.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <utility>

#include "common/error.h"
#include "common/host_date.h"
#include "common/numeric.h"
#include "common/text.h"

namespace wendrill {
namespace {

constexpr std::u16string_view kTrueText = u"True";
constexpr std::u16string_view kFalseText = u"False";

// Significant digits of a double as text.
constexpr int kSignificantDigits = 15;

[[noreturn]] void RaiseForObject(const ObjectRef& object) {
  Raise(object == nullptr ? RunTimeError::ObjectNotSet : RunTimeError::TypeMismatch);
}

struct AsDouble {
  double operator()(std::monostate /*empty*/) const { return 0; }
  double operator()(Null /*null*/) const { Raise(RunTimeError::InvalidUseOfNull); }
  double operator()(bool truth) const { return truth ? -1 : 0; }
  double operator()(std::int16_t number) const { return number; }
  double operator()(std::int32_t number) const { return number; }
  double operator()(double number) const { return number; }
  double operator()(const Date& date) const { return date.days; }
  double operator()(const std::u16string& text) const { return NumberOf(text); }
  double operator()(const TextArray& /*texts*/) const { Raise(RunTimeError::TypeMismatch); }
  double operator()(const ValueArray& /*values*/) const { Raise(RunTimeError::TypeMismatch); }
  double operator()(const ObjectRef& object) const { RaiseForObject(object); }
};

// 0.1, 1234.5678, 1E+20, 1E-05: the exponent appears where the digits alone would not do. Zero has no sign. The host
// program may have set a locale, so the separator is whatever is neither digit, sign nor exponent. (std::to_chars knows
// no locale, but its tables would be a fifth of the whole DLL.)
std::u16string NumberText(double number) {
  std::array<char, 32> characters;
  const int length =
      std::snprintf(characters.data(), characters.size(), "%.*G", kSignificantDigits, number == 0 ? 0.0 : number);
  std::u16string text(characters.data(), characters.data() + length);
  std::replace_if(
      text.begin(), text.end(),
      [](char16_t c) {
        return !IsDigit(c) && !Contains(u"+-E", {&c, 1});
      },
      u'.');
  return text;
}

struct AsText {
  std::u16string operator()(std::monostate /*empty*/) const { return {}; }
  std::u16string operator()(Null /*null*/) const { Raise(RunTimeError::InvalidUseOfNull); }
  std::u16string operator()(bool truth) const { return std::u16string(truth ? kTrueText : kFalseText); }
  std::u16string operator()(std::int16_t number) const { return DecimalText(number); }
  std::u16string operator()(std::int32_t number) const { return DecimalText(number); }
  std::u16string operator()(double number) const { return NumberText(number); }
  std::u16string operator()(const Date& date) const { return DateText(date); }
  std::u16string operator()(const std::u16string& text) const { return text; }
  std::u16string operator()(const TextArray& /*texts*/) const { Raise(RunTimeError::TypeMismatch); }
  std::u16string operator()(const ValueArray& /*values*/) const { Raise(RunTimeError::TypeMismatch); }
  std::u16string operator()(const ObjectRef& object) const { RaiseForObject(object); }
};

}  // namespace

std::int16_t ToInt16(const Value& value) {
  return Narrow16(ToDouble(value));
}

std::int32_t ToInt32(const Value& value) {
  return Narrow32(ToDouble(value));
}

double ToDouble(const Value& value) {
  return std::visit(AsDouble(), value.Get());
}

bool ToBoolean(const Value& value) {
  if (const auto* text = value.As<std::u16string>()) {
    if (CompareWithoutCase(*text, kTrueText) == 0) {
      return true;
    }
    if (CompareWithoutCase(*text, kFalseText) == 0) {
      return false;
    }
  }
  return ToDouble(value) != 0;
}

std::u16string ToText(const Value& value) {
  return std::visit(AsText(), value.Get());
}

std::u16string ToText(Value&& value) {
  auto* text = value.As<std::u16string>();
  return text != nullptr ? std::move(*text) : ToText(std::as_const(value));
}

ObjectRef ToObject(const Value& value) {
  const auto* object = value.As<ObjectRef>();
  if (object == nullptr) {
    Raise(RunTimeError::ObjectRequired);
  }
  if (*object == nullptr) {
    Raise(RunTimeError::ObjectNotSet);
  }
  return *object;
}

}  // namespace wendrill
