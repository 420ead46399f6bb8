// Reads one display into records: what the library's accessors give for it, each kind in one pass.
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

// Under which names the fields are written, and in which form days.
enum class Keys { Plain, Bag };

// The fields of one element in the library's order. Plain air segments begin with one under this key.
inline constexpr TextView kKindKey = u"kind";
using Record = std::vector<std::pair<TextView, Value>>;

// Not copied into a scenario: what is wrong with a display that cannot be read.
struct Unreadable {
  std::int32_t row = 0;  // counted from 1; 0 for the display as a whole
  std::u16string text;
};

// One display at a time. A reader is used by one thread.
class RecordReader {
 public:
  explicit RecordReader(Keys keys);
  ~RecordReader();
  RecordReader(const RecordReader&) = delete;
  RecordReader& operator=(const RecordReader&) = delete;

  // Reads a display of rows of 80 columns without breaks; what the next functions return belongs to it. The display
  // outlives that.
  std::optional<Unreadable> Read(TextView display);

  const simulator::DerivedPnr& Pnr() const { return pnr_; }

  // The records of a section, valid until the next call. What an accessor raises for an element is added to the
  // warnings, and the element keeps the keys that were stored before.
  std::span<const Record> RecordsOf(const Section& section);

  // The header's keys in the library's names.
  Record HeaderRecord();

  // The line after the header, as the library reads it.
  TextView CreationLine() const;

  // The warnings of the derivation, and those of RecordsOf so far.
  const std::vector<simulator::DerivationWarning>& Warnings() const { return pnr_.warnings; }

  // A day as displayed (15JUN) with its year, as 2008-06-15; nullopt for any other text.
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
  std::vector<ElementArrays> arrays_;  // one for each display kind, so that their memory is used again
  std::vector<Record> records_;        // the first `inUse_` are those of the section; the others keep their memory
  std::size_t inUse_ = 0;
};

// 2008-06-15
std::u16string IsoDate(const Date& date);

}  // namespace wendrill::tool
