#include "core/expectations.h"

#include <algorithm>
#include <cstddef>
#include <optional>
#include <type_traits>

#include "common/error.h"
#include "common/foreign_value.h"
#include "common/text.h"
#include "core/gate.h"

namespace wendrill::simulator {
namespace {

constexpr auto kInvalidCall = static_cast<std::int32_t>(RunTimeError::InvalidCall);
constexpr auto kTypeMismatch = static_cast<std::int32_t>(RunTimeError::TypeMismatch);

// The text in quotes, with line breaks written as \r and \n so that a message stays on one line.
std::u16string Quoted(std::u16string_view text) {
  return u"\"" + Replaced(Replaced(text, u"\r", u"\\r"), u"\n", u"\\n") + u"\"";
}

std::optional<double> NumberIn(const Value& value) {
  if (value.As<std::int16_t>() != nullptr || value.As<std::int32_t>() != nullptr || value.As<double>() != nullptr) {
    return ToDouble(value);
  }
  if (const auto* foreign = value.As<ForeignValueRef>()) {
    try {
      return (*foreign)->Number();
    } catch (const Error&) {
      return std::nullopt;
    }
  }
  return std::nullopt;
}

// The elements of an array; nullopt for a value that is not an array.
std::optional<std::vector<Value>> ElementsOf(const Value& value) {
  if (const auto* texts = value.As<TextArray>()) {
    return std::vector<Value>(texts->items.begin(), texts->items.end());
  }
  if (const auto* values = value.As<ValueArray>()) {
    return values->items;
  }
  return std::nullopt;
}

bool SameValue(const Value& left, const Value& right) {
  const auto leftElements = ElementsOf(left);
  const auto rightElements = ElementsOf(right);
  if (leftElements && rightElements) {
    return std::equal(leftElements->begin(), leftElements->end(), rightElements->begin(), rightElements->end(),
                      SameValue);
  }
  const auto leftNumber = NumberIn(left);
  const auto rightNumber = NumberIn(right);
  if (leftNumber && rightNumber) {
    return *leftNumber == *rightNumber;
  }
  return left == right;
}

std::u16string Shown(const Value& value, const TextForms& forms);

std::u16string ShownElements(const std::vector<Value>& elements, const TextForms& forms) {
  std::u16string text;
  for (const Value& element : elements) {
    text += (text.empty() ? u"" : u", ") + Shown(element, forms);
  }
  return u"[" + text + u"]";
}

std::u16string Shown(const Value& value, const TextForms& forms) {
  if (const auto* text = value.As<std::u16string>()) {
    return Quoted(*text);
  }
  if (value.IsEmpty()) {
    return u"Empty";
  }
  if (value.As<Null>() != nullptr) {
    return u"Null";
  }
  if (const auto* truth = value.As<bool>()) {
    return *truth ? u"True" : u"False";
  }
  if (const auto* object = value.As<ObjectRef>()) {
    return *object == nullptr ? u"Nothing" : u"an object";
  }
  if (const auto elements = ElementsOf(value)) {
    return ShownElements(*elements, forms);
  }
  try {
    return ToText(value, forms);
  } catch (const Error&) {
    return u"a value without a string form";
  }
}

// The addition to a failure message about two different strings: the position of the first character that differs,
// counted from 1. When one string begins with the other, the position is the length of the shorter string plus 1. Empty
// unless both values are strings.
std::u16string FirstDifference(const Value& actual, const Value& expected) {
  const auto* left = actual.As<std::u16string>();
  const auto* right = expected.As<std::u16string>();
  if (left == nullptr || right == nullptr) {
    return {};
  }
  const auto differ = std::mismatch(left->begin(), left->end(), right->begin(), right->end()).first;
  return u" (first difference: character " + DecimalText(differ - left->begin() + 1) + u")";
}

std::u16string Times(std::int64_t count) {
  return DecimalText(count) + (count == 1 ? u" time" : u" times");
}

}  // namespace

std::u16string FailureText(const Expectation& expectation) {
  return u"expectation " + Quoted(expectation.name) + u" failed: " + expectation.failure;
}

void Expectations::Equal(std::u16string_view name, const Value& actual, const Value& expected, const TextForms& forms) {
  Record(std::u16string(name), SameValue(actual, expected)
                                   ? std::u16string()
                                   : u"got " + Shown(actual, forms) + u", expected " + Shown(expected, forms) +
                                         FirstDifference(actual, expected));
}

void Expectations::Holds(std::u16string_view name, const Value& value, const TextForms& forms) {
  const auto* truth = value.As<bool>();
  const bool held = truth != nullptr ? *truth : NumberIn(value).value_or(0) != 0;
  Record(std::u16string(name), held ? std::u16string() : u"got " + Shown(value, forms) + u", expected True");
}

void Expectations::Sent(std::u16string_view entry, std::int32_t times, const std::vector<std::u16string>& sent) {
  if (times < 0) {
    Fail(kInvalidCall, u"An entry cannot be sent " + DecimalText(times) + u" times.");
  }
  const auto count = std::count(sent.begin(), sent.end(), entry);
  const std::u16string verb = times == 0 ? u"NotSent " : u"Sent ";
  Record(verb + std::u16string(entry),
         count == times ? std::u16string()
                        : u"sent " + Times(count) + u", expected " + (times == 0 ? u"never" : Times(times)));
}

void Expectations::InOrder(const Value& entries, const std::vector<std::u16string>& sent, const TextForms& forms) {
  const auto wanted = ElementsOf(entries);
  if (!wanted) {
    Fail(kTypeMismatch, u"InOrder takes an array of entries.");
  }
  if (wanted->empty()) {
    Fail(kInvalidCall, u"InOrder takes at least one entry.");
  }
  std::u16string name = u"InOrder";
  std::u16string failure;
  std::u16string before;
  auto next = sent.begin();
  for (const Value& element : *wanted) {
    const std::u16string entry = ToText(element, forms);
    name += (name.size() == 7 ? u" " : u", ") + entry;
    const auto found = std::find(next, sent.end(), entry);
    if (failure.empty() && found == sent.end()) {
      failure =
          before.empty() ? Quoted(entry) + u" was not sent" : Quoted(entry) + u" was not sent after " + Quoted(before);
    }
    next = found == sent.end() ? found : found + 1;
    before = entry;
  }
  Record(std::move(name), std::move(failure));
}

void Expectations::Fails(std::u16string_view name, std::int32_t number, std::int32_t expected) {
  const auto shown = [](std::int32_t error) {
    return error == 0 ? std::u16string(u"no error") : u"error " + DecimalText(error);
  };
  Record(std::u16string(name),
         number == expected ? std::u16string() : u"got " + shown(number) + u", expected " + shown(expected));
}

void Expectations::Screen(std::u16string_view text, bool found, double seconds, std::u16string_view firstRow,
                          const TextForms& forms) {
  Record(u"Screen " + std::u16string(text),
         found ? std::u16string()
               : u"not on the screen after " + forms.TextOf(seconds) + u" s; first row: " + Quoted(firstRow));
}

std::int32_t Expectations::Failed() const {
  return static_cast<std::int32_t>(
      std::count_if(all_.begin(), all_.end(), [](const Expectation& one) { return !one.failure.empty(); }));
}

TextArray Expectations::Failures() const {
  TextArray failures;
  for (const Expectation& expectation : all_) {
    if (!expectation.failure.empty()) {
      failures.items.push_back(FailureText(expectation));
    }
  }
  return failures;
}

void Expectations::Record(std::u16string name, std::u16string failure) {
  all_.push_back({std::move(name), std::move(failure)});
  if (onRecorded_) {
    onRecorded_(all_.back());
  }
}

}  // namespace wendrill::simulator
