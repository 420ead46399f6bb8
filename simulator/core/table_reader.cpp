#include "core/table_reader.h"

#include <algorithm>

#include "common/text.h"
#include "core/gate.h"

namespace wendrill::simulator {
namespace {

constexpr std::u16string_view kText = u"a string";
constexpr std::u16string_view kWhole = u"an integer";
constexpr std::u16string_view kFlag = u"true or false";
constexpr std::u16string_view kNumber = u"a number";
constexpr std::u16string_view kTexts = u"an array of strings";
constexpr std::u16string_view kWholes = u"an array of integers";
constexpr std::u16string_view kNumbers = u"an array of element numbers";
constexpr std::u16string_view kWords = u"a table of strings";
constexpr std::u16string_view kValue = u"a string, a number, true or false, or a date";

// The names of the types of a node's content, in the order of the alternatives of TomlNode::content.
constexpr std::u16string_view kContentNames[] = {kFlag,       kWhole,    u"a number with a fraction", u"a date", kText,
                                                 u"an array", u"a table"};

std::u16string Quoted(std::u16string_view key) {
  return u"\"" + std::u16string(key) + u"\"";
}

// The keys in quotes, with the word `last` before the last key: "a", "b" and "c".
std::u16string Listed(const std::vector<std::u16string_view>& keys, std::u16string_view last) {
  std::u16string list;
  for (std::size_t i = 0; i < keys.size(); ++i) {
    list += i == 0 ? u"" : i + 1 == keys.size() ? u" " + std::u16string(last) + u" " : u", ";
    list += Quoted(keys[i]);
  }
  return list;
}

PlacedText Placed(const TomlNode& node, const std::u16string& text) {
  return {text, node.line, node.lastLine};
}

}  // namespace

// Line 0 of the string is found from the end: it is the string's last line in the file, minus one for each line break
// in the string. The line of the opening quotes would be wrong: TOML drops a line break that follows the opening
// quotes, so the string may begin one line below them.
std::int32_t PlacedText::LineOfFile(std::size_t index) const {
  if (line == lastLine) {
    return line;
  }
  const auto breaks = static_cast<std::int32_t>(std::count(text.begin(), text.end(), u'\n'));
  return std::max(line, lastLine - breaks) + static_cast<std::int32_t>(index);
}

TableReader::TableReader(const TomlSource& source, const TomlTable& table, std::int32_t line, const TableShape& shape)
    : source_(&source), table_(&table), line_(line), shape_(&shape) {
  CheckKeys();
  CheckRules();
}

std::u16string TableReader::Text(std::u16string_view key) const {
  const auto* fallback = std::get_if<std::u16string_view>(&ShapeOf(key).fallback);
  return OptionalText(key).value_or(std::u16string(fallback == nullptr ? std::u16string_view() : *fallback));
}

std::optional<std::u16string> TableReader::OptionalText(std::u16string_view key) const {
  const auto* text = Checked<std::u16string>(key);
  return text == nullptr ? std::nullopt : std::optional(*text);
}

std::vector<std::u16string> TableReader::Texts(std::u16string_view key) const {
  std::vector<std::u16string> texts;
  for (PlacedText& block : Blocks(key)) {
    texts.push_back(std::move(block.text));
  }
  return texts;
}

std::optional<PlacedText> TableReader::Block(std::u16string_view key) const {
  const auto* text = Checked<std::u16string>(key);
  return text == nullptr ? std::nullopt : std::optional(Placed(*NodeOf(key), *text));
}

std::vector<PlacedText> TableReader::Blocks(std::u16string_view key) const {
  std::vector<PlacedText> blocks;
  if (const auto* array = Checked<TomlArray>(key)) {
    for (const TomlNode& each : *array) {
      blocks.push_back(Placed(each, std::get<std::u16string>(each.content)));
    }
  }
  return blocks;
}

bool TableReader::Flag(std::u16string_view key) const {
  const bool* flag = Checked<bool>(key);
  return flag == nullptr ? std::get<bool>(ShapeOf(key).fallback) : *flag;
}

std::int32_t TableReader::Whole(std::u16string_view key) const {
  const auto* number = Checked<std::int64_t>(key);
  return static_cast<std::int32_t>(number == nullptr ? std::get<std::int64_t>(ShapeOf(key).fallback) : *number);
}

std::vector<std::int32_t> TableReader::Wholes(std::u16string_view key) const {
  std::vector<std::int32_t> numbers;
  if (const auto* array = Checked<TomlArray>(key)) {
    for (const TomlNode& each : *array) {
      numbers.push_back(static_cast<std::int32_t>(std::get<std::int64_t>(each.content)));
    }
  }
  return numbers;
}

double TableReader::Number(std::u16string_view key) const {
  const TomlNode* node = NodeOf(key);
  return node == nullptr ? static_cast<double>(std::get<std::int64_t>(ShapeOf(key).fallback))
                         : NumberOf(ShapeOf(key), *node);
}

std::int32_t TableReader::Failure(std::u16string_view key) const {
  const auto* status = Checked<std::int64_t>(key);
  return status == nullptr ? 0 : FailureNumber(*status);
}

Value TableReader::Property(std::u16string_view key) const {
  const TomlNode* node = NodeOf(key);
  return node == nullptr ? Value() : ValueOf(ShapeOf(key), *node);
}

std::vector<Value> TableReader::Properties(std::u16string_view key) const {
  std::vector<Value> values;
  if (const auto* array = Checked<TomlArray>(key)) {
    for (const TomlNode& each : *array) {
      values.push_back(ValueOf(ShapeOf(key), each));
    }
  }
  return values;
}

std::vector<std::pair<std::u16string, std::u16string>> TableReader::Words(std::u16string_view key) const {
  std::vector<std::pair<std::u16string, std::u16string>> words;
  if (const auto* table = Checked<TomlTable>(key)) {
    for (const TomlEntry& entry : *table) {
      words.emplace_back(entry.key, std::get<std::u16string>(entry.node.content));
    }
  }
  return words;
}

std::optional<TableReader> TableReader::Table(std::u16string_view key) const {
  const auto* table = Checked<TomlTable>(key);
  if (table == nullptr) {
    return std::nullopt;
  }
  return TableReader(*source_, *table, NodeOf(key)->line, *ShapeOf(key).table);
}

std::vector<TableReader> TableReader::Tables(std::u16string_view key) const {
  std::vector<TableReader> readers;
  if (const auto* array = Checked<TomlArray>(key)) {
    for (const TomlNode& each : *array) {
      readers.emplace_back(*source_, std::get<TomlTable>(each.content), each.line, *ShapeOf(key).table);
    }
  }
  return readers;
}

void TableReader::Refuse(std::u16string_view wrong) const {
  source_->Refuse(line_, wrong);
}

void TableReader::RefuseKey(std::u16string_view key, std::u16string_view wrong) const {
  const TomlEntry* entry = Find(key);
  source_->Refuse(entry == nullptr ? line_ : entry->line,
                  Quoted(key) + u" in " + Title() + u" " + std::u16string(wrong));
}

const TomlEntry* TableReader::Find(std::u16string_view key) const {
  const auto found =
      std::find_if(table_->begin(), table_->end(), [key](const TomlEntry& entry) { return entry.key == key; });
  return found == table_->end() ? nullptr : &*found;
}

const TomlNode* TableReader::NodeOf(std::u16string_view key) const {
  const TomlEntry* entry = Find(key);
  return entry == nullptr ? nullptr : &entry->node;
}

const KeyShape& TableReader::ShapeOf(std::u16string_view key) const {
  return *shape_->Find(key);
}

// Rejects unknown keys first and then checks the types and ranges of the values. Missing keys are checked only
// afterwards, by CheckRules. So a misspelt key causes the message "unknown key", and not a message that the correctly
// spelt key is missing.
void TableReader::CheckKeys() const {
  for (const TomlEntry& entry : *table_) {
    if (shape_->Find(entry.key) == nullptr) {
      std::u16string known;
      for (const KeyShape& key : shape_->keys) {
        known += (known.empty() ? u"" : u", ") + std::u16string(key.name);
      }
      source_->Refuse(entry.line,
                      u"unknown key " + Quoted(entry.key) + u" in " + Title() + u"; known keys are " + known);
    }
  }
  for (const TomlEntry& entry : *table_) {
    CheckNode(*shape_->Find(entry.key), entry.node);
  }
}

void TableReader::CheckRules() const {
  for (const KeyRule& rule : shape_->rules) {
    CheckRule(rule);
  }
}

void TableReader::CheckRule(const KeyRule& rule) const {
  const auto given = [this](std::u16string_view key) { return IsGiven(key); };
  const auto count = std::count_if(rule.keys.begin(), rule.keys.end(), given);
  if (rule.kind == KeyRuleKind::Alone) {
    if (IsGiven(rule.keys.front()) && count > 1) {
      RefuseKey(rule.keys.front(), u"excludes " + Listed({rule.keys.begin() + 1, rule.keys.end()}, u"and"));
    }
    return;
  }
  if (count == 0 && rule.kind == KeyRuleKind::OneOf) {
    Refuse(Title() + u" needs " + (rule.keys.size() == 1 ? u"" : u"one of ") + Listed(rule.keys, u"and"));
  }
  if (count > 1) {
    Refuse(Title() + u" has more than one of " + Listed(rule.keys, u"and"));
  }
}

bool TableReader::IsGiven(std::u16string_view key) const {
  const TomlNode* node = NodeOf(key);
  const bool* flag = node == nullptr ? nullptr : std::get_if<bool>(&node->content);
  return node != nullptr && (flag == nullptr || *flag);
}

void TableReader::CheckNode(const KeyShape& key, const TomlNode& node) const {
  const auto each = [&](std::u16string_view expected, auto check) {
    const auto& items = As<TomlArray>(key.name, node, expected);
    CheckCount(key, items.size());
    for (const TomlNode& item : items) {
      check(item, expected);
    }
  };
  switch (key.type) {
    case KeyType::Text:
      return CheckChoice(key, node);
    case KeyType::Texts:
      return each(kTexts, [&](const TomlNode& item, auto expected) { As<std::u16string>(key.name, item, expected); });
    case KeyType::Flag:
      As<bool>(key.name, node, kFlag);
      return;
    case KeyType::Whole:
      WholeOf(key, node);
      return;
    case KeyType::Wholes:
      return each(kWholes, [&](const TomlNode& item, auto) { WholeOf(key, item); });
    case KeyType::Number:
      NumberOf(key, node);
      return;
    case KeyType::Failure:
      if (FailureNumber(As<std::int64_t>(key.name, node, kWhole)) == 0) {
        RefuseKey(key.name,
                  u"must be the status of a failure: a failing HRESULT such as 0x80004005, or a run-time error's "
                  u"number from 1 to 65535");
      }
      return;
    case KeyType::Content:
      ValueOf(key, node);
      return;
    case KeyType::Numbers:
      return each(kNumbers, [&](const TomlNode& item, auto) { ValueOf(key, item); });
    case KeyType::Words:
      for (const TomlEntry& entry : As<TomlTable>(key.name, node, kWords)) {
        As<std::u16string>(key.name, entry.node, kWords);
      }
      return;
    case KeyType::Table:
      As<TomlTable>(key.name, node, u"a table, " + key.table->title);
      return;
    case KeyType::Tables:
      return each(u"an array of tables, " + key.table->title,
                  [&](const TomlNode& item, auto expected) { As<TomlTable>(key.name, item, expected); });
  }
}

void TableReader::CheckCount(const KeyShape& key, std::size_t count) const {
  const auto items = [](std::size_t number) {
    return DecimalText(static_cast<std::int64_t>(number)) + (number == 1 ? u" item" : u" items");
  };
  if (key.fewest && count < *key.fewest) {
    RefuseKey(key.name, u"must have at least " + items(*key.fewest));
  }
  if (key.fullest && count > *key.fullest) {
    RefuseKey(key.name, u"must have at most " + items(*key.fullest));
  }
}

void TableReader::CheckChoice(const KeyShape& key, const TomlNode& node) const {
  const auto& text = As<std::u16string>(key.name, node, kText);
  if (!key.choices.empty() && std::find(key.choices.begin(), key.choices.end(), text) == key.choices.end()) {
    RefuseKey(key.name, u"must be " + Listed(key.choices, u"or") + u", not " + Quoted(text));
  }
}

template <typename Content>
const Content& TableReader::As(std::u16string_view key, const TomlNode& node, std::u16string_view expected) const {
  const auto* content = std::get_if<Content>(&node.content);
  if (content == nullptr) {
    source_->Refuse(node.line, Quoted(key) + u" in " + Title() + u" must be " + std::u16string(expected) + u", not " +
                                   std::u16string(kContentNames[node.content.index()]));
  }
  return *content;
}

template <typename Content>
const Content* TableReader::Checked(std::u16string_view key) const {
  const TomlNode* node = NodeOf(key);
  return node == nullptr ? nullptr : &std::get<Content>(node->content);
}

std::int32_t TableReader::WholeOf(const KeyShape& key, const TomlNode& node) const {
  const auto number = As<std::int64_t>(key.name, node, kWhole);
  if (number < key.least || number > key.most) {
    source_->Refuse(node.line, Quoted(key.name) + u" in " + Title() + u" must be an integer from " +
                                   DecimalText(key.least) + u" to " + DecimalText(key.most) + u", not " +
                                   DecimalText(number));
  }
  return static_cast<std::int32_t>(number);
}

double TableReader::NumberOf(const KeyShape& key, const TomlNode& node) const {
  const auto* whole = std::get_if<std::int64_t>(&node.content);
  const double number = whole == nullptr ? As<double>(key.name, node, kNumber) : static_cast<double>(*whole);
  // Rejects a NaN too: every comparison with a NaN is false.
  if (!(number >= static_cast<double>(key.least) && number <= static_cast<double>(key.most))) {
    source_->Refuse(node.line, Quoted(key.name) + u" in " + Title() + u" must be a number from " +
                                   DecimalText(key.least) + u" to " + DecimalText(key.most));
  }
  return number;
}

Value TableReader::ValueOf(const KeyShape& key, const TomlNode& node) const {
  if (const auto* truth = std::get_if<bool>(&node.content)) {
    return *truth;
  }
  if (std::holds_alternative<std::int64_t>(node.content)) {
    return WholeOf(key, node);
  }
  if (const auto* number = std::get_if<double>(&node.content)) {
    return *number;
  }
  if (const auto* date = std::get_if<Date>(&node.content)) {
    return *date;
  }
  return As<std::u16string>(key.name, node, kValue);
}

}  // namespace wendrill::simulator
