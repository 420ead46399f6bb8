// Writes the JSON schema of the objects with plain names. The table of sections, by which output.cpp writes the
// objects, also determines the schema.
#include <nlohmann/json.hpp>

#include "output.h"
#include "sections.h"

namespace wendrill::tool {
namespace {

using Json = nlohmann::ordered_json;

Json TypeOf(FieldForm form) {
  switch (form) {
    case FieldForm::Flag:
      return {{"type", "boolean"}};
    case FieldForm::Day:
      return {{"type", {"string", "null"}}, {"description", "a day, 2008-06-15; as displayed where it is none"}};
    default:
      return {{"type", {"string", "null"}}};
  }
}

Json ObjectOf(Json properties, Json required) {
  return {{"type", "object"},
          {"properties", std::move(properties)},
          {"required", std::move(required)},
          {"additionalProperties", false}};
}

Json ListOf(Json items) {
  return {{"type", "array"}, {"items", std::move(items)}};
}

Json TextField() {
  return {{"type", "string"}};
}

Json MomentField(const char* form) {
  return {{"type", {"string", "null"}}, {"pattern", form}};
}

Json RecordsOf(const Section& section) {
  Json properties = Json::object();
  if (section.kind == "air") {
    properties["kind"] = {{"enum", {"timed", "open", "flown", "other"}}};
  }
  for (const Field& field : section.fields) {
    properties[std::string(field.name)] = TypeOf(field.form);
  }
  return ListOf(ObjectOf(std::move(properties), Json::array()));
}

Json Warnings() {
  return ListOf(ObjectOf({{"row", {{"type", "integer"}, {"minimum", 0}}}, {"text", TextField()}}, {"row", "text"}));
}

Json GoodObject() {
  Json properties = {
      {"id", {{"description", "as in the input; of a text the file and the display's number"}}},
      {"locator", TextField()},
      {"header", ObjectOf({{"line", TextField()},
                           {"office", TextField()},
                           {"queue_office", TextField()},
                           {"updated", MomentField(R"(^\d{4}-\d{2}-\d{2}(T\d{2}:\d{2}Z)?$)")}},
                          {"line", "office", "queue_office", "updated"})},
      {"created",
       ObjectOf({{"office", TextField()}, {"agent", TextField()}, {"date", MomentField(R"(^\d{4}-\d{2}-\d{2}$)")}},
                {"office", "agent", "date"})},
  };
  Json fares = Json::object();
  for (const Section& section : Sections()) {
    if (section.isPlain) {
      (section.isFare ? fares : properties)[std::string(section.kind)] = RecordsOf(section);
    }
  }
  properties["fares"] = ObjectOf(std::move(fares), Json::array());
  properties["elements"] =
      ListOf(ObjectOf({{"no", TextField()}, {"kind", TextField()}, {"text", TextField()}}, {"no", "kind", "text"}));
  properties["warnings"] = Warnings();
  return ObjectOf(std::move(properties), {"id", "locator", "header", "created", "warnings"});
}

Json BadObject() {
  Json error = ObjectOf({{"row", {{"type", "integer"}, {"minimum", 0}}}, {"text", TextField()}}, {"row", "text"});
  return ObjectOf({{"id", Json::object()}, {"error", std::move(error)}}, {"id", "error"});
}

}  // namespace

std::string SchemaText() {
  const Json schema = {
      {"$schema", "https://json-schema.org/draft/2020-12/schema"},
      {"title", "One display as wendrill read writes it, with plain names"},
      {"schema", "0"},
      {"oneOf", {GoodObject(), BadObject()}},
  };
  return schema.dump(2) + "\n";
}

}  // namespace wendrill::tool
