#include "batch/packing.h"

#include <cstdint>

#include "common/numeric.h"

namespace wendrill {
namespace {

constexpr TextView kTransmitMarker = u"<XMIT>";
constexpr TextView kCutMark = u"\u00A4";
constexpr TextView kJoint = u";";
constexpr TextView kAlwaysFirst = u"RU";
constexpr std::size_t kPackedLimit = 240;  // two or more entries are packed together only below this length

// Splits `text` at every `delimiter` and calls `take` with each field, in order, also with the empty fields. A text
// without a delimiter is a single field.
template <typename Take>
void ForEachField(TextView text, TextView delimiter, Take take) {
  bool isLast = false;
  while (!isLast) {
    const TextView field = Before(text, delimiter);
    isLast = field.size() == text.size();
    take(field);
    if (!isLast) {
      text = text.substr(field.size() + delimiter.size());
    }
  }
}

void AppendEntry(TextView entry, std::vector<std::u16string>& entries) {
  if (!entry.empty()) {
    Add16(Narrow16(static_cast<double>(entries.size())), 1);
    entries.emplace_back(entry);
  }
}

// Joins entries to packed entries: a packed entry is a host entry that consists of one or several entries with ";"
// between them. Each added entry is appended to the last packed entry or begins a new packed entry.
class Packer {
 public:
  void Add(TextView entry) {
    if (beginsAnew_ || StartsWith(entry, kAlwaysFirst) || !Fits(entry)) {
      packed_.emplace_back();
    }
    Join(entry);
    EndAtMarker();
  }

  std::vector<std::u16string> Take() {
    std::erase_if(packed_, [](const std::u16string& packed) { return packed.empty(); });
    return std::move(packed_);
  }

 private:
  bool Fits(TextView entry) const {
    const std::u16string& growing = packed_.back();
    return growing.empty() || growing.size() + kJoint.size() + entry.size() < kPackedLimit;
  }

  void Join(TextView entry) {
    std::u16string& growing = packed_.back();
    if (!growing.empty()) {
      growing += kJoint;
    }
    growing += entry;
  }

  // When the last packed entry contains "<XMIT>", removes "<XMIT>" and lets the next entry begin a new packed entry.
  // Intentional: when the entry "<XMIT>" follows another entry, the ";" that Join put between them stays at the end of
  // the packed entry, where no ";" would be expected.
  void EndAtMarker() {
    std::u16string& growing = packed_.back();
    beginsAnew_ = Contains(growing, kTransmitMarker);
    if (beginsAnew_) {
      growing = Replaced(growing, kTransmitMarker, u"");
    }
  }

  std::vector<std::u16string> packed_;
  bool beginsAnew_ = true;
};

}  // namespace

// AppendEntries inserts kCutMark (U+00A4) before each "<XMIT>" and then splits the command at each kCutMark.
// Intentional: a U+00A4 that the caller wrote in the command is not distinguished from an inserted kCutMark, so the
// command is split at both.
void AppendEntries(TextView command, TextView separator, std::vector<std::u16string>& entries) {
  const std::u16string markedMarker = std::u16string(kCutMark) + std::u16string(kTransmitMarker);
  ForEachField(command, separator.empty() ? kJoint : separator, [&](TextView piece) {
    const std::u16string marked = Replaced(piece, kTransmitMarker, markedMarker);
    ForEachField(marked, kCutMark, [&](TextView entry) { AppendEntry(entry, entries); });
  });
}

std::vector<std::u16string> Packed(const std::vector<std::u16string>& entries) {
  Packer packer;
  for (const std::u16string& entry : entries) {
    packer.Add(entry);
  }
  return packer.Take();
}

}  // namespace wendrill
