#include "support/describe.h"

#include <ostream>
#include <sstream>

#include "common/foreign_value.h"
#include "common/text.h"

namespace wendrill {

void PrintTo(const Value& value, std::ostream* out) {
  *out << testing::Describe(value);
}

namespace testing {
namespace {

std::string Quoted(TextView text) {
  std::string quoted = "\"";
  for (const char character : ToUtf8(text)) {
    switch (character) {
      case '\r':
        quoted += "\\r";
        break;
      case '\n':
        quoted += "\\n";
        break;
      case '\\':
      case '"':
        quoted += '\\';
        [[fallthrough]];
      default:
        quoted += character;
    }
  }
  return quoted + '"';
}

template <typename Number>
std::string Typed(const char* type, Number number) {
  std::ostringstream text;
  text << type << ' ' << number;
  return text.str();
}

template <typename Items>
std::string Listed(std::int32_t lowerBound, const Items& items) {
  std::string listed = "from " + std::to_string(lowerBound) + " [";
  for (const auto& item : items) {
    listed += listed.back() == '[' ? " " : ", ";
    listed += Describe(Value(item));
  }
  return listed + " ]";
}

struct Describer {
  std::string operator()(std::monostate /*empty*/) const { return "Empty"; }
  std::string operator()(Null /*null*/) const { return "Null"; }
  std::string operator()(bool truth) const { return truth ? "True" : "False"; }
  std::string operator()(std::int16_t number) const { return Typed("int16", number); }
  std::string operator()(std::int32_t number) const { return Typed("int32", number); }
  std::string operator()(double number) const { return Typed("double", number); }
  std::string operator()(const Date& date) const { return Typed("date", date.days); }
  std::string operator()(const std::u16string& text) const { return Quoted(text); }
  std::string operator()(const TextArray& texts) const { return Listed(texts.lowerBound, texts.items); }
  std::string operator()(const ValueArray& values) const { return Listed(values.lowerBound, values.items); }
  std::string operator()(const ObjectRef& object) const { return object ? "object" : "Nothing"; }
  std::string operator()(const ForeignValueRef& value) const { return "foreign " + ToUtf8(value->Text()); }
};

}  // namespace

std::string Describe(const Value& value) {
  return std::visit(Describer(), value.Get());
}

std::string Describe(const Member& member) {
  return member.IsNamed() ? ToUtf8(member.DispatchName()) : std::to_string(member.DispatchId());
}

}  // namespace testing
}  // namespace wendrill
