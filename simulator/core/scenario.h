// A scenario: everything that the simulated desktop will answer, as read from its file. Immutable once read, and shared
// by the objects that answer from it.
#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "common/value.h"
#include "core/object_model.h"
#include "core/screen.h"

namespace wendrill::simulator {

struct ScenarioObject;
using ScenarioList = std::vector<std::shared_ptr<const ScenarioObject>>;

// What a property returns: a value, one object, or a collection.
using PropertyContent = std::variant<Value, std::shared_ptr<const ScenarioObject>, std::shared_ptr<const ScenarioList>>;

// An object of the PNR model: its type, and the contents of the type's properties in the type's order.
struct ScenarioObject {
  const ObjectType* type = nullptr;
  SegmentKind kind = SegmentKind::None;  // used for air segments only
  std::vector<PropertyContent> contents;
};

struct ScenarioTerminal {
  std::u16string version = u"3.0P1";
  std::int32_t terminalReady = 1;
  std::int32_t hostReady = 1;
  std::vector<std::int32_t> refuses;  // the key codes that the terminal rejects
};

struct ScenarioAlarm {
  bool present = true;
  bool method = true;
  std::int32_t code = 0;
};

// The answer to one transmitted entry.
struct ScenarioAnswer {
  std::vector<Screen> pages;           // the first page, then the page for each following "MD"
  std::optional<std::u16string> text;  // the response's Text; absent when it equals the buffer
  std::int32_t type = 0;
  std::int16_t columns = 80;
  std::int16_t lines = 24;
  std::int32_t late = 0;   // how many readings of the buffer return an empty string first
  std::int32_t error = 0;  // when not 0: the number that sending raises
};

// The answers to one entry, or to all entries with one prefix, in turn; the last answer repeats.
struct ScenarioReply {
  bool exact = true;     // whether `entry` is the whole entry; else a prefix
  std::u16string entry;  //
  std::vector<std::shared_ptr<const ScenarioAnswer>> answers;

  bool Matches(std::u16string_view sent) const;
};

struct ScenarioPnr {
  std::u16string recordLocator;
  std::vector<std::u16string> entries;
  bool onDisplay = false;
  std::int32_t status = 0;
  std::int32_t error = 0;  // when not 0: the number that a retrieval raises
  std::u16string display;
  std::shared_ptr<const ScenarioObject> header;      // null: the PNR has no header object
  std::map<std::int32_t, ScenarioList> collections;  // by dispatch identifier; an absent collection is empty

  // Whether the entry retrieves this PNR: "RT" with the locator, or one of the PNR's listed entries.
  bool IsRetrievedBy(std::u16string_view entry) const;
};

struct Scenario {
  std::u16string name;  // of the file, for messages
  ScenarioTerminal terminal;
  ScenarioAlarm alarm;
  std::vector<std::u16string> sessions;  // names, in order
  std::vector<ScenarioReply> replies;    // in the order of their first appearance
  std::shared_ptr<const ScenarioAnswer> unknown;
  std::vector<ScenarioPnr> pnrs;

  // The first PNR, in the file's order, that the entry retrieves, or that is on display; null when there is no such
  // PNR.
  const ScenarioPnr* PnrOf(std::u16string_view entry) const;
  const ScenarioPnr* PnrOnDisplay() const;
};

// The content of a PNR object before any retrieval, and after a retrieval that found no PNR.
std::shared_ptr<const ScenarioPnr> EmptyPnr();

// Reads a scenario. `name` appears in messages. Raises 5 for anything that is wrong in the text, with a description
// that names the file, the line and the key.
std::shared_ptr<const Scenario> ParseScenario(std::string_view toml, std::u16string_view name);

// The same from a file. Raises 53 (file not found) when the file cannot be opened.
std::shared_ptr<const Scenario> ReadScenarioFile(std::u16string_view path);

// The scenario that is used when no file is named.
std::shared_ptr<const Scenario> BuiltInScenario();

}  // namespace wendrill::simulator
