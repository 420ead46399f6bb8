// Generates random test cases for each member that reads a PNR element. The elements are some as the toolkit would
// return them, and some malformed.
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

  // A case for a member of IGet, or for "MISElement". Most cases have a few elements and a valid index. Some cases have
  // an index that is out of range, of another type or changes between two reads; a count that differs from the number
  // of elements; a property that fails; or a display that changes or fails.
  AccessorCase Next(std::string_view member);

 private:
  using Properties = decltype(ToolkitElement::properties);
  struct Source;  // from where a member reads its elements, and how to generate them
  static const Source kSources[];

  Value Index(std::size_t elements);
  Value Number();  // an element number
  Value Date();    // a date as the toolkit may return it: a date, a string or Empty
  ToolkitElement With(Properties properties);
  ToolkitElement Element(const Source& source);
  void AddDisplays(AccessorCase& next, Text display);
  Text PaddedTo(Text text, std::size_t column);

  // Generate the texts of elements.
  Text AirSegment();
  Text CarSegment();
  Text HotelSegment();
  Text Remark();
  Text Contact();
  Text Name();
  Text FormOfPayment();
  Text MisElement();

  // Generate the properties that elements have in addition to text and number.
  Properties NothingElse() { return {}; }
  Properties OfAirSegment();
  Properties OfHotelSegment();
  Properties OfName();
  Properties OfRemark();
  Properties OfTicket();
  Properties OfFareCommission();

  Properties Car(const Text& text);  // the keys are DISPIDs
  Properties Header();
  Text FareLine(const Text& code);
  Text FareDisplay(const Text& code);
  Text HeaderDisplay();
};

}  // namespace wendrill::testing
