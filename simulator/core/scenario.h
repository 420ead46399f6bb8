// A scenario: everything that the simulated desktop answers, as read from a scenario file. A Scenario object is
// immutable after it has been read, and all simulated objects that answer from a scenario share its Scenario object.
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

// The content of a property: a value, one object, or a list of objects, which a client sees as a collection.
using PropertyContent = std::variant<Value, std::shared_ptr<const ScenarioObject>, std::shared_ptr<const ScenarioList>>;

// An object of the PNR object model. `contents` has the content of each property of its type, in the order of
// ObjectType::properties.
struct ScenarioObject {
  const ObjectType* type = nullptr;
  SegmentKind kind = SegmentKind::None;  // the kind of an air segment; None for any other object
  std::vector<PropertyContent> contents;
};

struct ScenarioTerminal {
  std::u16string version = u"3.0P1";
  std::int32_t terminalReady = 1;
  std::int32_t hostReady = 1;
  std::vector<std::int32_t> refuses;  // the codes of the keys that the terminal rejects
  std::vector<std::int32_t> silent;   // the codes of the keys that the terminal accepts without raising an event
};

struct ScenarioAlarm {
  bool present = true;
  bool method = true;
  std::int32_t code = 0;
};

// The condition under which a reply or a PNR answers: its `session` and `when` in the scenario file.
struct Circumstances {
  std::optional<std::u16string> session;  // the name of the session; nullopt: every session
  std::optional<std::u16string> when;     // the state of the scenario; nullopt: every state

  // Whether a reply or PNR with this condition answers in the session `inSession` and the state `inState`.
  bool Hold(std::u16string_view inSession, std::u16string_view inState) const;

  // Whether this condition is true in every session and state in which `other` is true.
  bool Cover(const Circumstances& other) const;

  friend auto operator<=>(const Circumstances&, const Circumstances&) = default;  // NOLINT(modernize-use-nullptr)
};

// The answer to one transmitted entry.
struct ScenarioAnswer {
  std::int32_t line = 0;               // the line of the answer's table in the file; 0 for an answer without a table
  std::vector<Screen> pages;           // the first page, and one page for each "MD" after it; empty when `error` is set
  std::optional<std::u16string> text;  // the response's Text; nullopt: Text returns the buffer
  std::int32_t type = 0;
  std::int16_t columns = 80;
  std::int16_t lines = 24;
  std::int32_t late = 0;               // how many readings of the buffer return an empty string before it fills
  double after = 0;                    // the buffer is filled this many seconds after sending
  bool never = false;                  // true: the host never answers, and the buffer stays empty
  std::int32_t error = 0;              // the number of the error that sending raises; 0: sending succeeds
  bool refuses = false;                // true: the host refuses the entry and skips the rest of a packed entry
  std::optional<std::u16string> then;  // the scenario's state after this answer; nullopt: unchanged
  bool optional = false;               // true: the report does not list this answer when it is never used
};

// A group of [[reply]] tables with equal matcher, session and state. The answers of a group are used one after another,
// and each session begins with the first answer. After the last answer of a group, the next group in the file that
// matches the entry answers; when no further group matches, the last answer of the last matching group repeats. A group
// with a single answer repeats this answer every time.
struct ScenarioReply {
  EntryMatcher matcher;
  Circumstances where;
  std::vector<std::shared_ptr<const ScenarioAnswer>> answers;

  bool Matches(std::u16string_view sent) const { return matcher.Matches(sent); }
};

struct ScenarioPnr {
  std::int32_t line = 0;  // the line of the PNR's table in the file
  std::u16string recordLocator;
  std::vector<std::u16string> entries;
  bool onDisplay = false;
  Circumstances where;
  std::optional<std::u16string> then;  // the scenario's state after Retrieve or RetrieveCurrent; nullopt: unchanged
  bool optional = false;               // true: the report does not list this PNR when it is never used
  std::int32_t status = 0;             // what RetrieveCurrent returns
  std::int32_t error = 0;              // the number of the error that Retrieve and RetrieveCurrent raise; 0: none
  std::u16string display;
  std::shared_ptr<const ScenarioObject> header;      // null: the PNR object has no header object
  std::map<std::int32_t, ScenarioList> collections;  // keyed by DISPID; a collection without a key here is empty

  // Whether the entry retrieves this PNR, that is, whether the entry equals one of RetrievingEntries. Case-sensitive.
  bool IsRetrievedBy(std::u16string_view entry) const;

  // All entries that retrieve this PNR: first "RT" followed by the record locator, unless the record locator is empty;
  // after it all strings of `entries`.
  std::vector<std::u16string> RetrievingEntries() const;
};

struct Scenario {
  std::u16string name;                   // the name of the file in messages
  bool strict = false;                   // a run with findings fails; see RunReport::Findings
  std::vector<std::u16string> warnings;  // about the PNRs' displays; each begins with a line number of the file
  ScenarioTerminal terminal;
  ScenarioAlarm alarm;
  std::vector<std::u16string> sessions;  // the names of the sessions, in the order of the file
  std::vector<ScenarioReply> replies;    // in the order of the file; a group is at the position of its first table
  std::shared_ptr<const ScenarioAnswer> unknown;  // the answer to an entry that nothing else in the scenario answers
  std::vector<ScenarioPnr> pnrs;
  ScenarioIndex index;  // finds the replies and PNRs for an entry

  // The first PNR in the file's order that the entry retrieves, whatever the PNR's `session` and `when`; null when the
  // entry retrieves no PNR.
  const ScenarioPnr* PnrOf(std::u16string_view entry) const;

  // The first PNR in the file's order that is on display at the start (`on_display`), whatever its `session` and
  // `when`; null when no PNR has `on_display`.
  const ScenarioPnr* PnrOnDisplay() const;
};

// The content of a PNR object before the first retrieval, and after a retrieval that found no PNR: no display text, a
// header without text, collections without elements.
std::shared_ptr<const ScenarioPnr> EmptyPnr();

// Reads a scenario from TOML in UTF-8. `name` is the name of the file in messages. Raises 5 (invalid argument) for any
// error in the text. The description contains the file and the line. When the text is valid TOML, the description also
// contains the wrong key or table.
std::shared_ptr<const Scenario> ParseScenario(std::string_view toml, std::u16string_view name);

// Reads a scenario from a file. Raises 53 (file not found) when the file cannot be opened, and the errors of
// ParseScenario.
std::shared_ptr<const Scenario> ReadScenarioFile(std::u16string_view path);

// Reads the built-in scenario. A run uses the built-in scenario when no scenario has been loaded and the environment
// variable QUILLET_SCENARIO is not set.
std::shared_ptr<const Scenario> BuiltInScenario();

}  // namespace wendrill::simulator
