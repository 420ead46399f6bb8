// A scenario: everything that the simulated desktop will answer, as read from its file. Immutable once read; the
// objects that answer from it share it.
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

// What stands behind a property: a value, one object, or a collection.
using PropertyContent = std::variant<Value, std::shared_ptr<const ScenarioObject>, std::shared_ptr<const ScenarioList>>;

// An object of the PNR model: its type, and a content for each of the type's properties in their order.
struct ScenarioObject {
  const ObjectType* type = nullptr;
  SegmentKind kind = SegmentKind::None;  // air segments alone
  std::vector<PropertyContent> contents;
};

struct ScenarioTerminal {
  std::u16string version = u"3.0P1";
  std::int32_t terminalReady = 1;
  std::int32_t hostReady = 1;
  std::vector<std::int32_t> refuses;  // key codes
};

struct ScenarioAlarm {
  bool present = true;
  bool method = true;
  std::int32_t code = 0;
};

// What one transmitted entry brings.
struct ScenarioAnswer {
  std::vector<Screen> pages;           // one, or what each following "MD" shows
  std::optional<std::u16string> text;  // the response's Text where it differs from its buffer
  std::int32_t type = 0;
  std::int16_t columns = 80;
  std::int16_t lines = 24;
  std::int32_t late = 0;   // how often the buffer reads empty before it fills
  std::int32_t error = 0;  // not 0: the number that sending fails with
};

// The entries that a group of replies answers, and the replies in turn; the last one stays.
struct ScenarioReply {
  bool exact = true;     // the whole entry, else its head
  std::u16string entry;  //
  std::vector<std::shared_ptr<const ScenarioAnswer>> answers;

  bool Matches(std::u16string_view sent) const;
};

struct ScenarioPnr {
  std::u16string recordLocator;
  std::vector<std::u16string> entries;
  bool onDisplay = false;
  std::int32_t status = 0;
  std::int32_t error = 0;  // not 0: the number that a retrieval fails with
  std::u16string display;
  std::shared_ptr<const ScenarioObject> header;      // none: the PNR has no header object
  std::map<std::int32_t, ScenarioList> collections;  // by dispatch identifier; one that is not there has no elements

  // Whether the entry retrieves this PNR: "RT" and the locator, or one of its entries.
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

  // The first PNR in the file's order that the entry retrieves, or that is on display; none when there is no such.
  const ScenarioPnr* PnrOf(std::u16string_view entry) const;
  const ScenarioPnr* PnrOnDisplay() const;
};

// The content of a PNR object before any retrieval, and after one that found nothing.
std::shared_ptr<const ScenarioPnr> EmptyPnr();

// Reads a scenario. `name` stands in messages. Whatever is wrong with the text is refused with error 5 and a
// description that names the file, the line and the key.
std::shared_ptr<const Scenario> ParseScenario(std::string_view toml, std::u16string_view name);

// The same from a file; 53 (file not found) when it cannot be opened.
std::shared_ptr<const Scenario> ReadScenarioFile(std::u16string_view path);

// The scenario that is there without a file.
std::shared_ptr<const Scenario> BuiltInScenario();

}  // namespace wendrill::simulator
