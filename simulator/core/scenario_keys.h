// The table of all keys of a scenario file. The reader rejects every key that this table does not contain. The JSON
// schema with which editors complete and check scenario files is generated from this table.
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
  Whole,    // a 32-bit integer
  Wholes,   // an array of 32-bit integers
  Number,   // an integer or a number with a fraction
  Failure,  // a failing HRESULT, or the number of a run-time error
  Content,  // a property of the PNR object model: a string, a number, true or false, or a date
  Numbers,  // an array of element numbers, each a string or a number
  Words,    // a table of strings whose keys are arbitrary
  Table,
  Tables,
};

// The default of a key; monostate for a key without a default.
using KeyDefault = std::variant<std::monostate, bool, std::int64_t, std::u16string_view>;

struct KeyShape {
  std::u16string_view name;
  KeyType type;
  std::string_view meaning;  // one sentence for the JSON schema; editors show it
  KeyDefault fallback = {};
  std::int64_t least = std::numeric_limits<std::int32_t>::min();  // the smallest number allowed
  std::int64_t most = std::numeric_limits<std::int32_t>::max();   // the largest number allowed
  std::vector<std::u16string_view> choices = {};                  // the allowed strings of a Text; empty: any string
  const TableShape* table = nullptr;        // for the types Table and Tables, their shape; null for any other type
  std::optional<std::size_t> fewest = {};   // an array's smallest number of items; nullopt: no limit
  std::optional<std::size_t> fullest = {};  // an array's largest number of items; nullopt: no limit
};

// How the keys of a table depend on each other. A flag that is false counts as left out.
enum class KeyRuleKind {
  OneOf,      // the table must have exactly one of the keys
  AtMostOne,  // the table must not have two or more of the keys
  Alone,      // a table with the first key must have none of the other keys
};

struct KeyRule {
  KeyRuleKind kind;
  std::vector<std::u16string_view> keys;
};

struct TableShape {
  std::u16string title;  // the name of the table in messages: [[reply]]
  std::vector<KeyShape> keys;
  std::vector<KeyRule> rules;

  // The key with this name; null when the table has no such key.
  const KeyShape* Find(std::u16string_view name) const;
};

// The shape of the top-level table of a scenario file. The shapes of all other tables in the file are reached from this
// shape through KeyShape::table.
const TableShape& ScenarioShape();

// The shape of the tables that describe the elements of a collection, such as [[pnr.Names]].
const TableShape& ElementShape(const Collection& collection);

// The key of [[pnr]] under which a scenario lists the elements of this collection. The key AirSegments fills all four
// collections of air segments. It is returned for the collection AirSegments; for the other three, the result is empty.
std::u16string_view KeyOfCollection(const Collection& collection);

}  // namespace wendrill::simulator
