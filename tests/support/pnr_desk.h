// A desk with a PNR on display that a test fills, and what the tests of this room say again and again.
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

// Lines as the host's display shows them: rows of 80 columns without line breaks.
std::u16string Rows(const std::vector<std::u16string>& lines);

struct PnrDesk {
  PnrDesk();

  TestWorld desk;
  FakeObjectRef pnr;  // the current PNR; scripted with an empty display
  ModuleState& module = desk.module;
  CallLogRef calls = desk.calls;

  void Display(std::u16string text) const { pnr->With(75, std::move(text)); }

  // A new object, named in the call log.
  FakeObjectRef Object(const std::string& name) const { return FakeObject::Make(calls, name); }

  // Scripts a collection of the PNR.
  void Hold(Collection collection, std::vector<ObjectRef> elements) const;

  // As many collections as the library knows, all without elements.
  void HoldNothing() const;

  // A caller's bag with an index.
  FakeBagRef Bag(Value index = std::int16_t{0}) const;
};

// An element with nothing but text and number.
FakeObjectRef TextElement(const PnrDesk& desk, std::u16string text, Value elementNo = Value(u"1"));

}  // namespace wendrill::testing
