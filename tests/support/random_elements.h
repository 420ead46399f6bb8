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
  struct Source;  // where a member finds its elements, and what they are
  static const Source kSources[];

  Value Index(std::size_t elements);
  Value Number();  // an element number
  Value Date();    // as a toolkit has it: a date, a text or Empty
  ToolkitElement With(Properties properties);
  ToolkitElement Element(const Source& source);
  void AddDisplays(AccessorCase& next, Text display);
  Text PaddedTo(Text text, std::size_t column);

  // The texts of elements.
  Text AirSegment();
  Text CarSegment();
  Text HotelSegment();
  Text Remark();
  Text Contact();
  Text Name();
  Text FormOfPayment();
  Text MisElement();

  // What elements have beside text and number.
  Properties NothingElse() { return {}; }
  Properties OfAirSegment();
  Properties OfHotelSegment();
  Properties OfName();
  Properties OfRemark();
  Properties OfTicket();
  Properties OfFareCommission();

  Properties Car(const Text& text);  // by identifiers
  Properties Header();
  Text FareLine(const Text& code);
  Text FareDisplay(const Text& code);
  Text HeaderDisplay();
};

}  // namespace wendrill::testing
