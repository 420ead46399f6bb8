// PNR elements as a toolkit might give them, and as it never would, for each member that reads one.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "support/random_text.h"
#include "support/reference_accessors.h"

namespace wendrill::testing {

class RandomElements : private RandomText {
 public:
  explicit RandomElements(std::uint32_t seed) : RandomText(seed) {}

  // A case for a member of IGet, or for "MISElement": mostly a few elements with an index among them; now and then an
  // index outside or of another type, one that changes between two reads, a count that does not fit the elements, a
  // property that fails, a display that changes or fails.
  AccessorCase Next(std::string_view member);

 private:
  using Properties = decltype(ToolkitElement::properties);

  Value Index(std::size_t elements);
  Value Number();  // an element number
  Value Date();    // as a toolkit has it: a date, a text or Empty
  Properties PropertiesOf(std::string_view member, const Text& text);
  Properties Header();
  ToolkitElement With(Properties properties);
  ToolkitElement Element(std::string_view member);
  void AddDisplays(AccessorCase& next, Text display);
  Text TextFor(std::string_view member);
  Text PaddedTo(Text text, std::size_t column);
  Text AirSegment();
  Text CarSegment();
  Text HotelSegment();
  Text Remark();
  Text Contact();
  Text Name();
  Text FormOfPayment();
  Text MisElement();
  Text FareLine(const Text& code);
  Text FareDisplay(const Text& code);
  Text HeaderDisplay();
};

}  // namespace wendrill::testing
