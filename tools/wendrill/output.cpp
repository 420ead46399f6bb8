#include "output.h"

#include <algorithm>

#include "common/text_forms.h"
#include "json_text.h"

namespace wendrill::tool {
namespace {

using simulator::DerivedElement;
using simulator::DerivedPnr;

bool IsWritten(const Section& section, Keys keys, const Selection& selection) {
  return (keys == Keys::Plain ? section.isPlain : section.isBag) && selection.Has(section.kind);
}

// The field with this key, searched from index `place` on; nullptr when there is none. Moves `place` past the fields
// compared. The keys of a record are in the order of the section's fields, so searching all keys is linear.
const Field* FieldOfKey(const Section& section, TextView key, std::size_t& place) {
  while (place < section.fields.size()) {
    const Field& field = section.fields[place++];
    if (field.key.data() == key.data() || field.key == key) {
      return &field;
    }
  }
  return nullptr;
}

void AppendValue(JsonText& json, const Value& value) {
  if (const auto* text = value.As<std::u16string>()) {
    json.String(*text);
  } else if (const auto* flag = value.As<bool>()) {
    json.Flag(*flag);
  } else if (const auto* number = value.As<std::int32_t>()) {
    json.Whole(*number);
  } else if (value.IsEmpty()) {
    json.Null();
  } else {
    json.String(ToText(value, UsTextForms()));
  }
}

// Appends a day for the output with plain names: as 2008-06-15, null when the value is empty. A text that is not a day
// is appended as displayed.
void AppendDay(JsonText& json, const RecordReader& reader, const Value& value) {
  const std::u16string text = ToText(value, UsTextForms());
  if (text.empty()) {
    json.Null();
    return;
  }
  json.String(reader.IsoDay(text).value_or(text));
}

void AppendPlain(JsonText& json, const RecordReader& reader, const Field& field, const Value& value) {
  json.Key(field.name);
  if (field.form == FieldForm::Day) {
    AppendDay(json, reader, value);
  } else if (field.form == FieldForm::Flag) {
    json.Flag(ToBoolean(value));  // the library stores one of the flags as a string
  } else if (const auto* text = value.As<std::u16string>()) {
    json.String(TrimmedRight(*text));  // the text of one kind is a whole row, with its blanks at the end
  } else {
    AppendValue(json, value);
  }
}

void AppendRecord(JsonText& json, const RecordReader& reader, const Section& section, Keys keys, const Record& record) {
  json.Begin('{');
  std::size_t place = 0;
  for (const auto& [key, value] : record) {
    if (key == kKindKey) {
      json.Key("kind");
      AppendValue(json, value);
    } else if (keys == Keys::Bag) {
      json.Key(ToUtf8(key));
      AppendValue(json, value);
    } else if (const Field* field = FieldOfKey(section, key, place)) {
      AppendPlain(json, reader, *field, value);
    }
  }
  json.End('}');
}

void AppendSection(JsonText& json, RecordReader& reader, const Section& section, Keys keys) {
  json.Key(keys == Keys::Bag ? section.member : section.kind);
  json.Begin('[');
  for (const Record& record : reader.RecordsOf(section)) {
    AppendRecord(json, reader, section, keys, record);
  }
  json.End(']');
}

// Appends the sections that belong into an inner object: "fares" in the output with plain names, "Elements" in the
// output with the library's names. Appends nothing when no such section is written.
void AppendInner(JsonText& json, RecordReader& reader, Keys keys, const Selection& selection) {
  bool isOpen = false;
  for (const Section& section : Sections()) {
    if (!IsWritten(section, keys, selection) || !(keys == Keys::Plain ? section.isFare : section.ofElements)) {
      continue;
    }
    if (!isOpen) {
      json.Key(keys == Keys::Plain ? "fares" : "Elements");
      json.Begin('{');
      isOpen = true;
    }
    AppendSection(json, reader, section, keys);
  }
  if (isOpen) {
    json.End('}');
  }
}

void AppendSections(JsonText& json, RecordReader& reader, Keys keys, const Selection& selection) {
  for (const Section& section : Sections()) {
    if (IsWritten(section, keys, selection) && !(keys == Keys::Plain ? section.isFare : section.ofElements)) {
      AppendSection(json, reader, section, keys);
    }
  }
  AppendInner(json, reader, keys, selection);
}

void AppendDate(JsonText& json, std::string_view key, const std::optional<Date>& date, TextView time = {}) {
  json.Key(key);
  if (!date) {
    json.Null();
    return;
  }
  std::u16string text = IsoDate(*date);
  const bool hasTime = time.size() == 4 && std::ranges::all_of(time, IsDigit);
  if (hasTime) {
    text.append(u"T").append(time.substr(0, 2)).append(u":").append(time.substr(2)).append(u"Z");
  }
  json.String(text);
}

void AppendPlainHead(JsonText& json, const DerivedPnr& pnr) {
  json.Field("locator", pnr.header.recordLocator);
  json.Key("header");
  json.Begin('{');
  json.Field("line", pnr.header.line);
  json.Field("office", pnr.header.officeId);
  json.Field("queue_office", pnr.header.queueOffice);
  AppendDate(json, "updated", pnr.header.date, pnr.header.updateTime);
  json.End('}');
  json.Key("created");
  json.Begin('{');
  json.Field("office", pnr.creation.office);
  json.Field("agent", pnr.creation.agent);
  AppendDate(json, "date", pnr.creation.date);
  json.End('}');
}

void AppendBagHead(JsonText& json, RecordReader& reader, TextView creationLine) {
  json.Field("RecordLocator", reader.Pnr().header.recordLocator);
  json.Field("CreationOfficeID", FieldOf(creationLine, 1, u"/"));
  json.Field("CreationAgentSign", FieldOf(creationLine, 2, u"/"));
  json.Field("CreationDate", FieldOf(creationLine, 3, u"/"));
  json.Key("PNRHeader");
  json.Begin('{');
  for (const auto& [key, value] : reader.HeaderRecord()) {
    json.Key(ToUtf8(key));
    AppendValue(json, value);
  }
  json.End('}');
}

void AppendElements(JsonText& json, const DerivedPnr& pnr) {
  json.Key("elements");
  json.Begin('[');
  for (const DerivedElement& element : pnr.elements) {
    json.Begin('{');
    json.Field("no", element.Number());
    json.Field("kind", element.keyword);
    json.Field("text", element.Text());
    json.End('}');
  }
  json.End(']');
}

void AppendWarnings(JsonText& json, const RecordReader& reader) {
  json.Key("warnings");
  json.Begin('[');
  for (const simulator::DerivationWarning& warning : reader.Warnings()) {
    json.Begin('{');
    json.Key("row");
    json.Whole(warning.row);
    json.Field("text", warning.text);
    json.End('}');
  }
  json.End(']');
}

// --- CSV -----------------------------------------------------------------------------------------------------------

void AppendCsvField(std::string& line, std::string_view text) {
  if (text.find_first_of(",\"\r\n") == std::string_view::npos && !text.starts_with(' ') && !text.ends_with(' ')) {
    line.append(text);
    return;
  }
  line.push_back('"');
  for (const char character : text) {
    line.append(character == '"' ? 2 : 1, character);
  }
  line.push_back('"');
}

// The identifier without the quotes of a JSON string. Escapes in the string are not undone.
std::string CsvId(std::string_view id) {
  if (id.size() >= 2 && id.front() == '"') {
    id = id.substr(1, id.size() - 2);
  }
  return std::string(id);
}

std::string CsvText(const RecordReader& reader, const Field& field, Keys keys, const Value& value) {
  if (keys == Keys::Plain && field.form == FieldForm::Flag) {
    return ToBoolean(value) ? "true" : "false";
  }
  const std::u16string text = ToText(value, UsTextForms());
  if (keys == Keys::Bag) {
    return ToUtf8(text);
  }
  return ToUtf8(field.form == FieldForm::Day ? reader.IsoDay(text).value_or(text) : TrimmedRight(text));
}

const Section& SectionOfCsv(std::string_view kind, Keys keys) {
  return *std::ranges::find_if(Sections(), [&](const Section& section) {
    return section.kind == kind && (keys == Keys::Plain ? section.isPlain : section.isBag);
  });
}

// Whether the rows of the section have a column "kind": true for air segments in the output with plain names.
bool HasKind(const Section& section, Keys keys) {
  return keys == Keys::Plain && section.kind == "air";
}

}  // namespace

void AppendObject(std::string& text, std::string_view id, RecordReader& reader, Keys keys, const Selection& selection) {
  JsonText json(text);
  json.Begin('{');
  json.Key("id");
  json.Raw(id);
  if (keys == Keys::Plain) {
    AppendPlainHead(json, reader.Pnr());
  } else {
    AppendBagHead(json, reader, reader.CreationLine());
  }
  AppendSections(json, reader, keys, selection);
  if (keys == Keys::Plain && selection.kinds.empty()) {
    AppendElements(json, reader.Pnr());
  }
  AppendWarnings(json, reader);
  json.End('}');
}

void AppendError(std::string& text, std::string_view id, const Unreadable& error) {
  JsonText json(text);
  json.Begin('{');
  json.Key("id");
  json.Raw(id);
  json.Key("error");
  json.Begin('{');
  json.Key("row");
  json.Whole(error.row);
  json.Field("text", error.text);
  json.End('}');
  json.End('}');
}

std::string CsvHeading(std::string_view kind, Keys keys) {
  const Section& section = SectionOfCsv(kind, keys);
  std::string line = HasKind(section, keys) ? "id,locator,kind" : "id,locator";
  for (const Field& field : section.fields) {
    line.append(1, ',').append(keys == Keys::Plain ? std::string(field.name) : ToUtf8(field.key));
  }
  return line + "\r\n";
}

void AppendCsv(std::string& text, std::string_view id, RecordReader& reader, Keys keys, std::string_view kind) {
  const Section& section = SectionOfCsv(kind, keys);
  for (const Record& record : reader.RecordsOf(section)) {
    AppendCsvField(text, CsvId(id));
    text.push_back(',');
    AppendCsvField(text, ToUtf8(reader.Pnr().header.recordLocator));
    auto next = record.begin();
    if (HasKind(section, keys)) {
      text.push_back(',');
      AppendCsvField(text, ToUtf8(ToText(next->second, UsTextForms())));
      ++next;
    }
    for (const Field& field : section.fields) {
      text.push_back(',');
      if (next != record.end() && next->first == field.key) {
        AppendCsvField(text, CsvText(reader, field, keys, next->second));
        ++next;
      }
    }
    text.append("\r\n");
  }
}

}  // namespace wendrill::tool
