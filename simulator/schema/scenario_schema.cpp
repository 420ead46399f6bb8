#include "schema/scenario_schema.h"

#include <nlohmann/json.hpp>

#include "common/text.h"
#include "core/scenario_keys.h"

namespace wendrill::simulator {
namespace {

using Json = nlohmann::ordered_json;

constexpr std::int64_t kSmallestStatus = -0x80000000LL;
constexpr std::int64_t kSmallestUnsignedFailure = 0x80000000;
constexpr std::int64_t kLargestUnsignedFailure = 0xFFFFFFFF;
constexpr std::int64_t kLargestRunTimeNumber = 65535;

Json SchemaOf(const TableShape& shape);

Json Range(const char* type, std::int64_t least, std::int64_t most) {
  return {{"type", type}, {"minimum", least}, {"maximum", most}};
}

Json ArrayOf(Json items) {
  return {{"type", "array"}, {"items", std::move(items)}};
}

// The schema of a key that sets a property of the PNR object model: a string, a Boolean or a number. The bounds `least`
// and `most` of the key apply to integers only, not to numbers with a fraction. The schema has no type for dates,
// because a validator receives a TOML date as a string.
Json ContentSchema(const KeyShape& key) {
  Json all = Json::array({{{"type", "string"}}, {{"type", "boolean"}}});
  all.push_back(Range("integer", key.least, key.most));
  all.push_back({{"type", "number"}, {"not", {{"type", "integer"}}}});
  return {{"anyOf", all}};
}

Json FailureSchema() {
  return {{"type", "integer"},
          {"anyOf",
           {{{"minimum", kSmallestStatus}, {"maximum", -1}},
            {{"minimum", 1}, {"maximum", kLargestRunTimeNumber}},
            {{"minimum", kSmallestUnsignedFailure}, {"maximum", kLargestUnsignedFailure}}}}};
}

Json TextSchema(const KeyShape& key) {
  Json schema = {{"type", "string"}};
  for (const std::u16string_view choice : key.choices) {
    schema["enum"].push_back(ToUtf8(choice));
  }
  return schema;
}

Json TypeSchema(const KeyShape& key) {
  switch (key.type) {
    case KeyType::Text:
      return TextSchema(key);
    case KeyType::Texts:
      return ArrayOf({{"type", "string"}});
    case KeyType::Flag:
      return {{"type", "boolean"}};
    case KeyType::Whole:
      return Range("integer", key.least, key.most);
    case KeyType::Wholes:
      return ArrayOf(Range("integer", key.least, key.most));
    case KeyType::Number:
      return Range("number", key.least, key.most);
    case KeyType::Failure:
      return FailureSchema();
    case KeyType::Content:
      return ContentSchema(key);
    case KeyType::Numbers:
      return ArrayOf(ContentSchema(key));
    case KeyType::Words:
      return {{"type", "object"}, {"additionalProperties", {{"type", "string"}}}};
    case KeyType::Table:
      return SchemaOf(*key.table);
    case KeyType::Tables:
      return ArrayOf(SchemaOf(*key.table));
  }
  return {};
}

struct DefaultOf {
  Json& schema;
  void operator()(std::monostate) const {}
  void operator()(bool flag) const { schema["default"] = flag; }
  void operator()(std::int64_t number) const { schema["default"] = number; }
  void operator()(std::u16string_view text) const { schema["default"] = ToUtf8(text); }
};

Json KeySchema(const KeyShape& key) {
  Json schema = {{"description", std::string(key.meaning)}};
  schema.update(TypeSchema(key));
  if (key.fewest) {
    schema["minItems"] = *key.fewest;
  }
  if (key.fullest) {
    schema["maxItems"] = *key.fullest;
  }
  std::visit(DefaultOf{schema}, key.fallback);
  return schema;
}

// A schema that accepts a table only if the table contains the key and, when the key is a flag, only if the value of
// the key is true.
Json IsGiven(const TableShape& shape, std::u16string_view key) {
  Json schema = {{"required", {ToUtf8(key)}}};
  if (shape.Find(key)->type == KeyType::Flag) {
    schema["properties"][ToUtf8(key)]["const"] = true;
  }
  return schema;
}

Json NoneIsGiven(const TableShape& shape, const std::vector<std::u16string_view>& keys, std::size_t first) {
  Json any = Json::array();
  for (std::size_t i = first; i < keys.size(); ++i) {
    any.push_back(IsGiven(shape, keys[i]));
  }
  return {{"not", {{"anyOf", any}}}};
}

Json RuleSchema(const TableShape& shape, const KeyRule& rule) {
  if (rule.kind == KeyRuleKind::Alone) {
    return {{"if", IsGiven(shape, rule.keys.front())}, {"then", NoneIsGiven(shape, rule.keys, 1)}};
  }
  Json one = Json::array();
  for (const std::u16string_view key : rule.keys) {
    one.push_back(IsGiven(shape, key));
  }
  if (rule.kind == KeyRuleKind::AtMostOne) {
    one.push_back(NoneIsGiven(shape, rule.keys, 0));
  }
  return {{"oneOf", one}};
}

Json SchemaOf(const TableShape& shape) {
  Json properties = Json::object();
  for (const KeyShape& key : shape.keys) {
    properties[ToUtf8(key.name)] = KeySchema(key);
  }
  Json schema = {{"type", "object"}, {"additionalProperties", false}, {"properties", properties}};
  for (const KeyRule& rule : shape.rules) {
    schema["allOf"].push_back(RuleSchema(shape, rule));
  }
  return schema;
}

}  // namespace

std::string ScenarioSchema() {
  Json schema = {{"$schema", "http://json-schema.org/draft-07/schema#"}, {"title", "A scenario of the simulator"}};
  schema.update(SchemaOf(ScenarioShape()));
  return schema.dump(2) + "\n";
}

}  // namespace wendrill::simulator
