// Reads the elements of one display into records, with the library's own accessors. Each kind of elements takes one
// pass.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "common/module_state.h"
#include "common/text.h"
#include "common/value.h"
#include "derive/derivation.h"
#include "scan/element_arrays.h"
#include "sections.h"

namespace wendrill::tool {

// The names of the fields and the format of days in the output: Plain has plain names and days as 2008-06-15, Bag has
// the names and the days of the library.
enum class Keys { Plain, Bag };

// A Record has the keys and values of one element, in the library's order. With Keys::Plain, the record of an air
// segment begins with the key kKindKey; the value is "timed", "open", "flown" or "other".
inline constexpr TextView kKindKey = u"kind";
using Record = std::vector<std::pair<TextView, Value>>;

// Why a display cannot be read.
struct Unreadable {
  std::int32_t row = 0;  // the row with the error, counted from 1; 0 for the display as a whole
  std::u16string text;
};

// Reads one display at a time. Not thread-safe.
class RecordReader {
 public:
  explicit RecordReader(Keys keys);
  ~RecordReader();
  RecordReader(const RecordReader&) = delete;
  RecordReader& operator=(const RecordReader&) = delete;

  // Reads a display of rows of 80 columns without line breaks. The functions below then return the content of this
  // display. Returns nullopt on success, else the error. REQUIRES: the text outlives the use of those functions.
  std::optional<Unreadable> Read(TextView display);

  const simulator::DerivedPnr& Pnr() const { return pnr_; }

  // The records of a section; valid until the next call of RecordsOf. If an accessor raises an error for an element,
  // RecordsOf adds a warning, and the element's record has the keys that were stored before the error.
  std::span<const Record> RecordsOf(const Section& section);

  // The keys and values of the PNR's header, under the library's names.
  Record HeaderRecord();

  // The creation line: the line after the header, found by the library's rules.
  TextView CreationLine() const;

  // The warnings of reading the display, and those that RecordsOf has added so far.
  const std::vector<simulator::DerivationWarning>& Warnings() const { return pnr_.warnings; }

  // Converts a day as displayed (15JUN) to a day with year (2008-06-15); nullopt when the text is not a day, or when no
  // year fits.
  std::optional<std::u16string> IsoDay(TextView written) const;

 private:
  class Environment;

  void ReadWith(const Accessor& accessor, bool everyElement);
  void ReadWith(const DisplayKind& kind);
  void ReadWith(const NumberAndText& source);
  Record& NewRecord();

  Keys keys_;
  std::unique_ptr<Environment> environment_;
  TextView display_;
  simulator::DerivedPnr pnr_;
  std::optional<CalendarDay> date_;
  std::vector<ElementArrays> arrays_;  // one for each entry of kDisplayKinds; kept because their memory is reused
  std::vector<Record> records_;        // the first `inUse_` are the section's records, the others memory to reuse
  std::size_t inUse_ = 0;
};

// The date as in ISO 8601, such as 2008-06-15.
std::u16string IsoDate(const Date& date);

}  // namespace wendrill::tool
