// Elements that are in files, each with the bag that is expected beside it.
//
// NAME.txt holds one element, NAME.bag the settings in order as FakeBag::SettingsText writes them, and after them
// "error N" when the accessor raises. Lines that begin with "#" are comments.
//
//   type = timed                  the segment type: timed or untimed; left out: neither
//   index = 1                     "intKeyIndex"; left out: 0
//   Text = "2  AF 123 Y"          a property by its name, or 8 = ... by its dispatch identifier
//   Percent = double 7.5          other values: int32 4, date 2008-06-15, Empty
//   Passengers = "1" "2"          the passengers that a car belongs to
//   display:                      the rest of the file is the PNR display, each line ended by CR LF
//   rows:                         the same as rows of 80 without line breaks
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "common/value.h"
#include "support/pnr_desk.h"

namespace wendrill::testing {

struct ElementFile {
  std::optional<SegmentType> type;
  std::int16_t index = 0;
  std::vector<std::pair<std::u16string, Value>> properties;
  std::vector<std::u16string> passengers;
  std::u16string display;
};

// Both throw std::runtime_error, with the file and what is wrong in it.
ElementFile ReadElementFile(const std::filesystem::path& path);
std::string ReadExpectedBag(const std::filesystem::path& path);  // without comments

// The element as a scripted object.
FakeObjectRef ObjectOf(const PnrDesk& desk, const ElementFile& file);

}  // namespace wendrill::testing
