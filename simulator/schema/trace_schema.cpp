#include "schema/trace_schema.h"

#include <nlohmann/json.hpp>

#include "trace/kinds.h"

namespace wendrill::simulator {
namespace {

using Json = nlohmann::ordered_json;
using trace::Kind;
using trace::Member;
using trace::MemberType;

void AddMembers(Json& schema, std::span<const Member> members, std::string_view kind);

Json ObjectSchema(std::span<const Member> members) {
  Json schema = {{"type", "object"}, {"properties", Json::object()}};
  AddMembers(schema, members, {});
  schema["additionalProperties"] = false;
  return schema;
}

Json TextSchema(const Member& member) {
  Json schema = {{"type", "string"}};
  for (const std::string_view choice : member.choices) {
    schema["enum"].push_back(choice);
  }
  return schema;
}

Json TypeSchema(const Member& member, std::string_view kind) {
  switch (member.type) {
    case MemberType::Version:
      return {{"const", trace::kFormatVersion}};
    case MemberType::Kind:
      return {{"const", kind}};
    case MemberType::Text:
      return TextSchema(member);
    case MemberType::Flag:
      return {{"type", "boolean"}};
    case MemberType::True:
      return {{"const", true}};
    case MemberType::Whole:
      return {{"type", "integer"}};
    case MemberType::Count:
      return {{"type", "integer"}, {"minimum", 0}};
    case MemberType::Ordinal:
      return {{"type", "integer"}, {"minimum", 1}};
    case MemberType::Number:
      return {{"type", "number"}, {"minimum", 0}};
    case MemberType::Texts:
      return {{"type", "array"}, {"items", TextSchema(member)}};
    case MemberType::Objects:
      return {{"type", "array"}, {"items", ObjectSchema(member.object)}};
    case MemberType::Object:
      return ObjectSchema(member.object);
  }
  return {};
}

void AddMembers(Json& schema, std::span<const Member> members, std::string_view kind) {
  for (const Member& member : members) {
    Json property = {{"description", member.meaning}};
    property.update(TypeSchema(member, kind));
    schema["properties"][std::string(member.name)] = std::move(property);
    if (member.presence == trace::Presence::Always) {
      schema["required"].push_back(member.name);
    }
  }
}

Json KindSchema(const Kind& kind, std::span<const Member> common) {
  Json schema = {{"description", kind.meaning}, {"type", "object"}, {"properties", Json::object()}};
  AddMembers(schema, common, kind.name);
  AddMembers(schema, kind.members, kind.name);
  schema["additionalProperties"] = false;
  if (schema["properties"].contains("same")) {
    schema["not"] = {{"required", {"screen", "same"}}};
  }
  return schema;
}

}  // namespace

std::string TraceSchema() {
  Json schema = {{"$schema", "http://json-schema.org/draft-07/schema#"}, {"title", "A line of a trace"}};
  schema["oneOf"].push_back(KindSchema(trace::kRun, {}));
  for (const Kind& kind : trace::kKinds) {
    schema["oneOf"].push_back(KindSchema(kind, trace::kCommonMembers));
  }
  return schema.dump(2) + "\n";
}

}  // namespace wendrill::simulator
