#include "core/table_reader.h"

#include <algorithm>

#include "common/text.h"
#include "core/gate.h"

namespace wendrill::simulator {
namespace {

constexpr std::u16string_view kText = u"a string";
constexpr std::u16string_view kWhole = u"an integer";
constexpr std::u16string_view kFlag = u"true or false";
constexpr std::u16string_view kValue = u"a string, a number, true or false, or a date";

// The name of each alternative of a node's content, in the order of the alternatives.
constexpr std::u16string_view kContentNames[] = {kFlag,       kWhole,    u"a number with a fraction", u"a date", kText,
                                                 u"an array", u"a table"};

std::u16string Quoted(std::u16string_view key) {
  return u"\"" + std::u16string(key) + u"\"";
}

PlacedText Placed(const TomlNode& node, const std::u16string& text) {
  return {text, node.line, node.lastLine};
}

}  // namespace

// Counts back from the string's last line in the file, one line for each line break. Counting from the first line would
// be wrong when TOML drops a line break after the opening quotes.
std::int32_t PlacedText::LineOfFile(std::size_t index) const {
  if (line == lastLine) {
    return line;
  }
  const auto breaks = static_cast<std::int32_t>(std::count(text.begin(), text.end(), u'\n'));
  return std::max(line, lastLine - breaks) + static_cast<std::int32_t>(index);
}

std::u16string TableReader::Text(std::u16string_view key, std::u16string_view fallback) {
  return OptionalText(key).value_or(std::u16string(fallback));
}

std::optional<std::u16string> TableReader::OptionalText(std::u16string_view key) {
  const TomlNode* node = Ask(key);
  if (node == nullptr) {
    return std::nullopt;
  }
  return As<std::u16string>(key, *node, kText);
}

std::vector<std::u16string> TableReader::Texts(std::u16string_view key) {
  std::vector<std::u16string> texts;
  for (PlacedText& block : Blocks(key)) {
    texts.push_back(std::move(block.text));
  }
  return texts;
}

std::optional<PlacedText> TableReader::Block(std::u16string_view key) {
  const TomlNode* node = Ask(key);
  if (node == nullptr) {
    return std::nullopt;
  }
  return Placed(*node, As<std::u16string>(key, *node, kText));
}

std::vector<PlacedText> TableReader::Blocks(std::u16string_view key) {
  constexpr std::u16string_view kTexts = u"an array of strings";
  std::vector<PlacedText> blocks;
  if (const TomlNode* node = Ask(key)) {
    for (const TomlNode& each : As<TomlArray>(key, *node, kTexts)) {
      blocks.push_back(Placed(each, As<std::u16string>(key, each, kTexts)));
    }
  }
  return blocks;
}

bool TableReader::Flag(std::u16string_view key, bool fallback) {
  const TomlNode* node = Ask(key);
  return node == nullptr ? fallback : As<bool>(key, *node, kFlag);
}

std::int32_t TableReader::Whole(std::u16string_view key, std::int32_t fallback, std::int32_t least, std::int32_t most) {
  const TomlNode* node = Ask(key);
  return node == nullptr ? fallback : WholeOf(key, *node, least, most);
}

std::vector<std::int32_t> TableReader::Wholes(std::u16string_view key) {
  std::vector<std::int32_t> numbers;
  if (const TomlNode* node = Ask(key)) {
    for (const TomlNode& each : As<TomlArray>(key, *node, u"an array of integers")) {
      numbers.push_back(
          WholeOf(key, each, std::numeric_limits<std::int32_t>::min(), std::numeric_limits<std::int32_t>::max()));
    }
  }
  return numbers;
}

std::int32_t TableReader::Failure(std::u16string_view key) {
  const TomlNode* node = Ask(key);
  if (node == nullptr) {
    return 0;
  }
  const std::int32_t number = FailureNumber(As<std::int64_t>(key, *node, kWhole));
  if (number == 0) {
    RefuseKey(key,
              u"must be the status of a failure: a failing HRESULT such as 0x80004005, or a run-time error's "
              u"number from 1 to 65535");
  }
  return number;
}

Value TableReader::Property(std::u16string_view key) {
  const TomlNode* node = Ask(key);
  return node == nullptr ? Value() : ValueOf(key, *node);
}

std::vector<Value> TableReader::Properties(std::u16string_view key) {
  std::vector<Value> values;
  if (const TomlNode* node = Ask(key)) {
    for (const TomlNode& each : As<TomlArray>(key, *node, u"an array of element numbers")) {
      values.push_back(ValueOf(key, each));
    }
  }
  return values;
}

std::optional<TableReader> TableReader::Table(std::u16string_view key, std::u16string title) {
  const TomlNode* node = Ask(key);
  if (node == nullptr) {
    return std::nullopt;
  }
  const auto& table = As<TomlTable>(key, *node, u"a table, " + title);
  return TableReader(*source_, table, node->line, std::move(title));
}

std::vector<TableReader> TableReader::Tables(std::u16string_view key, const std::u16string& title) {
  std::vector<TableReader> readers;
  if (const TomlNode* node = Ask(key)) {
    const std::u16string expected = u"an array of tables, " + title;
    for (const TomlNode& each : As<TomlArray>(key, *node, expected)) {
      readers.emplace_back(*source_, As<TomlTable>(key, each, expected), each.line, title);
    }
  }
  return readers;
}

void TableReader::Finish() const {
  for (const TomlEntry& entry : *table_) {
    if (std::find(asked_.begin(), asked_.end(), entry.key) != asked_.end()) {
      continue;
    }
    std::u16string known;
    for (const std::u16string& key : asked_) {
      known += (known.empty() ? u"" : u", ") + key;
    }
    source_->Refuse(entry.line, u"unknown key " + Quoted(entry.key) + u" in " + title_ + u"; known keys are " + known);
  }
}

void TableReader::Refuse(std::u16string_view wrong) const {
  source_->Refuse(line_, wrong);
}

void TableReader::RefuseKey(std::u16string_view key, std::u16string_view wrong) const {
  const TomlEntry* entry = Find(key);
  source_->Refuse(entry == nullptr ? line_ : entry->line,
                  Quoted(key) + u" in " + title_ + u" " + std::u16string(wrong));
}

bool TableReader::Has(std::u16string_view key) const {
  return Find(key) != nullptr;
}

const TomlNode* TableReader::Ask(std::u16string_view key) {
  asked_.emplace_back(key);
  const TomlEntry* entry = Find(key);
  return entry == nullptr ? nullptr : &entry->node;
}

const TomlEntry* TableReader::Find(std::u16string_view key) const {
  const auto found =
      std::find_if(table_->begin(), table_->end(), [key](const TomlEntry& entry) { return entry.key == key; });
  return found == table_->end() ? nullptr : &*found;
}

template <typename Content>
const Content& TableReader::As(std::u16string_view key, const TomlNode& node, std::u16string_view expected) const {
  const auto* content = std::get_if<Content>(&node.content);
  if (content == nullptr) {
    source_->Refuse(node.line, Quoted(key) + u" in " + title_ + u" must be " + std::u16string(expected) + u", not " +
                                   std::u16string(kContentNames[node.content.index()]));
  }
  return *content;
}

std::int32_t TableReader::WholeOf(std::u16string_view key, const TomlNode& node, std::int32_t least,
                                  std::int32_t most) const {
  const auto number = As<std::int64_t>(key, node, kWhole);
  if (number < least || number > most) {
    source_->Refuse(node.line, Quoted(key) + u" in " + title_ + u" must be an integer from " + DecimalText(least) +
                                   u" to " + DecimalText(most) + u", not " + DecimalText(number));
  }
  return static_cast<std::int32_t>(number);
}

Value TableReader::ValueOf(std::u16string_view key, const TomlNode& node) const {
  if (const auto* truth = std::get_if<bool>(&node.content)) {
    return *truth;
  }
  if (std::holds_alternative<std::int64_t>(node.content)) {
    return WholeOf(key, node, std::numeric_limits<std::int32_t>::min(), std::numeric_limits<std::int32_t>::max());
  }
  if (const auto* number = std::get_if<double>(&node.content)) {
    return *number;
  }
  if (const auto* date = std::get_if<Date>(&node.content)) {
    return *date;
  }
  return As<std::u16string>(key, node, kValue);
}

}  // namespace wendrill::simulator
