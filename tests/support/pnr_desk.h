// A fixture for tests of src/pnr: a simulated desktop with a scripted PNR on display, and helpers that many of these
// tests use.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "pnr/records.h"
#include "pnr/toolkit_pnr.h"
#include "support/raises.h"
#include "support/test_world.h"

namespace wendrill::testing {

inline constexpr std::u16string_view kElementMessage = u"An error has occurred while retrieving a PNR element/segment.";

// Joins the lines to a display: rows of 80 columns without line breaks. REQUIRES: no line is longer than 80.
std::u16string Rows(const std::vector<std::u16string>& lines);

struct PnrDesk {
  PnrDesk();

  TestWorld desk;
  FakeObjectRef pnr;  // the PNR object of the module; its display is empty until a test sets it
  ModuleState& module = desk.module;
  CallLogRef calls = desk.calls;

  void Display(std::u16string text) const { pnr->With(75, std::move(text)); }

  // Creates an object without scripted members. `name` is its name in the call log.
  FakeObjectRef Object(const std::string& name) const { return FakeObject::Make(calls, name); }

  // Makes a collection of the PNR contain `elements`.
  void Hold(Collection collection, std::vector<ObjectRef> elements) const;

  // Makes every collection that the library reads empty.
  void HoldNothing() const;

  // Creates a caller's parameter bag with the key "intKeyIndex".
  FakeBagRef Bag(Value index = std::int16_t{0}) const;
};

// Creates an element with the properties Text and ElementNo only.
FakeObjectRef TextElement(const PnrDesk& desk, std::u16string text, Value elementNo = Value(u"1"));

}  // namespace wendrill::testing
