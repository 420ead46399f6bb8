#include "common/value.h"

#include <utility>

#include "common/error.h"
#include "common/foreign_value.h"
#include "common/numeric.h"
#include "common/text.h"
#include "common/text_forms.h"

namespace wendrill {
namespace {

constexpr std::u16string_view kTrueText = u"True";
constexpr std::u16string_view kFalseText = u"False";

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
  double operator()(const ForeignValueRef& value) const { return value->Number(); }
};

struct AsText {
  const TextForms& forms;

  std::u16string operator()(std::monostate /*empty*/) const { return {}; }
  std::u16string operator()(Null /*null*/) const { Raise(RunTimeError::InvalidUseOfNull); }
  std::u16string operator()(bool truth) const { return std::u16string(truth ? kTrueText : kFalseText); }
  std::u16string operator()(std::int16_t number) const { return DecimalText(number); }
  std::u16string operator()(std::int32_t number) const { return DecimalText(number); }
  std::u16string operator()(double number) const { return forms.TextOf(number); }
  std::u16string operator()(const Date& date) const { return forms.TextOf(date); }
  std::u16string operator()(const std::u16string& text) const { return text; }
  std::u16string operator()(const TextArray& /*texts*/) const { Raise(RunTimeError::TypeMismatch); }
  std::u16string operator()(const ValueArray& /*values*/) const { Raise(RunTimeError::TypeMismatch); }
  std::u16string operator()(const ObjectRef& object) const { RaiseForObject(object); }
  std::u16string operator()(const ForeignValueRef& value) const { return value->Text(); }
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

std::u16string ToText(const Value& value, const TextForms& forms) {
  return std::visit(AsText{forms}, value.Get());
}

std::u16string ToText(Value&& value, const TextForms& forms) {
  auto* text = value.As<std::u16string>();
  return text != nullptr ? std::move(*text) : ToText(std::as_const(value), forms);
}

std::int16_t ToInt16ViaText(const Value& value) {
  const auto* foreign = value.As<ForeignValueRef>();
  return Narrow16(NumberOf(ToText(foreign != nullptr ? Value((*foreign)->Number()) : value, UsTextForms())));
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
