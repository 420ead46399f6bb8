// The keys of a scenario: one table for the reader, which accepts nothing else, and for the JSON schema, with which
// editors complete and check scenario files.
#pragma once

#include <cstddef>
#include <cstdint>
#include <limits>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace wendrill::simulator {

struct Collection;
struct TableShape;

enum class KeyType {
  Text,
  Texts,    // an array of strings
  Flag,     // true or false
  Whole,    // an integer of 32 bits
  Wholes,   // an array of them
  Number,   // an integer or a number with a fraction
  Failure,  // a failing HRESULT, or a run-time error's number
  Content,  // what a property of the PNR model may be: a string, a number, true or false, a date
  Numbers,  // an array of element numbers, each a string or a number
  Words,    // a table of strings under any keys
  Table,
  Tables,
};

// The value of a key that is left out; monostate: the key then has no value.
using KeyDefault = std::variant<std::monostate, bool, std::int64_t, std::u16string_view>;

struct KeyShape {
  std::u16string_view name;
  KeyType type;
  std::string_view meaning;  // for the schema: one sentence, shown by editors
  KeyDefault fallback = {};
  std::int64_t least = std::numeric_limits<std::int32_t>::min();  // of a number
  std::int64_t most = std::numeric_limits<std::int32_t>::max();
  std::vector<std::u16string_view> choices = {};  // of a Text that is one of a few
  const TableShape* table = nullptr;              // of Table and Tables
  std::optional<std::size_t> fewest = {};         // items of an array
  std::optional<std::size_t> fullest = {};        // likewise
};

// What the keys of a table have to do with each other. A flag that is false counts as left out.
enum class KeyRuleKind {
  OneOf,      // exactly one of the keys is there
  AtMostOne,  //
  Alone,      // beside the first key none of the others is there
};

struct KeyRule {
  KeyRuleKind kind;
  std::vector<std::u16string_view> keys;
};

struct TableShape {
  std::u16string title;  // for messages: [[reply]]
  std::vector<KeyShape> keys;
  std::vector<KeyRule> rules;

  // The key of this name; null when the table has none.
  const KeyShape* Find(std::u16string_view name) const;
};

// The whole file. The other tables are reached from it.
const TableShape& ScenarioShape();

// An element of a PNR's collection: [[pnr.Names]].
const TableShape& ElementShape(const Collection& collection);

// The key of a PNR for this collection; empty for a collection that is filled from the key of another one: all air
// segments stand under one key.
std::u16string_view KeyOfCollection(const Collection& collection);

}  // namespace wendrill::simulator
