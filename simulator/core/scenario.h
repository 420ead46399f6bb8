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
#include "core/entry_matcher.h"
#include "core/scenario_index.h"
#include "core/screen.h"
#include "derive/object_model.h"

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
  std::vector<std::int32_t> silent;   // the key codes that are accepted but raise no event
};

struct ScenarioAlarm {
  bool present = true;
  bool method = true;
  std::int32_t code = 0;
};

// When a reply or a PNR answers: in one session or in each, in one state of the scenario or in each.
struct Circumstances {
  std::optional<std::u16string> session;
  std::optional<std::u16string> when;

  bool Hold(std::u16string_view inSession, std::u16string_view inState) const;

  // Whether these hold wherever `other` hold.
  bool Cover(const Circumstances& other) const;

  friend auto operator<=>(const Circumstances&, const Circumstances&) = default;  // NOLINT(modernize-use-nullptr)
};

// The answer to one transmitted entry.
struct ScenarioAnswer {
  std::int32_t line = 0;               // of the file; 0 for an answer that no file holds
  std::vector<Screen> pages;           // the first page, then the page for each following "MD"
  std::optional<std::u16string> text;  // the response's Text; absent when it equals the buffer
  std::int32_t type = 0;
  std::int16_t columns = 80;
  std::int16_t lines = 24;
  std::int32_t late = 0;               // how many readings of the buffer return an empty string first
  double after = 0;                    // how many seconds after sending the buffer fills
  bool never = false;                  // the buffer stays empty for good
  std::int32_t error = 0;              // when not 0: the number that sending raises
  bool refuses = false;                // the host refuses the entry: the rest of a packed entry is not carried out
  std::optional<std::u16string> then;  // the scenario's state after this answer
  bool optional = false;               // not reported when it is unused
};

// The answers to one entry, or to all entries of one form, in turn: a group of [[reply]] tables with the same matcher,
// session and state. The last answer repeats.
struct ScenarioReply {
  EntryMatcher matcher;
  Circumstances where;
  std::vector<std::shared_ptr<const ScenarioAnswer>> answers;

  bool Matches(std::u16string_view sent) const { return matcher.Matches(sent); }
};

struct ScenarioPnr {
  std::int32_t line = 0;  // of the file
  std::u16string recordLocator;
  std::vector<std::u16string> entries;
  bool onDisplay = false;
  Circumstances where;
  std::optional<std::u16string> then;  // the scenario's state after a retrieval
  bool optional = false;               // not reported when it is unused
  std::int32_t status = 0;
  std::int32_t error = 0;  // when not 0: the number that a retrieval raises
  std::u16string display;
  std::shared_ptr<const ScenarioObject> header;      // null: the PNR has no header object
  std::map<std::int32_t, ScenarioList> collections;  // by dispatch identifier; an absent collection is empty

  // Whether the entry retrieves this PNR: "RT" with the locator, or one of the PNR's listed entries.
  bool IsRetrievedBy(std::u16string_view entry) const;

  // All entries that do.
  std::vector<std::u16string> RetrievingEntries() const;
};

struct Scenario {
  std::u16string name;                   // of the file, for messages
  bool strict = false;                   // a run with findings counts as failed
  std::vector<std::u16string> warnings;  // of reading the file: each begins with its line
  ScenarioTerminal terminal;
  ScenarioAlarm alarm;
  std::vector<std::u16string> sessions;  // names, in order
  std::vector<ScenarioReply> replies;    // in the order of their first appearance
  std::shared_ptr<const ScenarioAnswer> unknown;
  std::vector<ScenarioPnr> pnrs;
  ScenarioIndex index;  // of replies and PNRs

  // The first PNR, in the file's order, that the entry retrieves, or that is on display, in any session and state; null
  // when there is no such PNR.
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
