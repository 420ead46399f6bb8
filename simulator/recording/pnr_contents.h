// The contents of a PNR object after a retrieval, with personal data hidden.
#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/scenario.h"
#include "recording/calls.h"
#include "recording/recording_hiding.h"

namespace wendrill::recording {

// The collection with this DISPID; null when there is no such collection.
const simulator::Collection* CollectionOf(std::int32_t id);

// Whether two objects have equal kinds, properties and passengers. A property that is Empty counts as missing. Integers
// are compared by value, whether they have 16 or 32 bits.
bool AreSame(const ReadObject& left, const ReadObject& right);

// Converts an object of a scenario to the ReadObject that the recorder would read from that object.
ReadObject ObjectOf(const simulator::ScenarioObject& object);

struct PnrContent {
  std::u16string display;
  std::optional<ReadObject> header;
  std::map<std::int32_t, std::vector<ReadObject>> collections;  // by DISPID; only collections that were read
  std::u16string locator;                                       // the record locator; empty when the PNR has none
  // Whether the simulator reads the header and all recorded collections correctly from the display. If true, the file
  // of the recording needs only the display.
  bool isShown = false;

  // Whether there is no display, no text in the header and no element. The simulator's PNR object has this content
  // before the first retrieval, and after a retrieval that found no PNR.
  bool IsEmpty() const;

  // Whether this content and `other` may come from one PNR: the displays are equal, the headers are equal, and each
  // collection that was read in both contents has equal elements.
  bool AgreesWith(const PnrContent& other) const;

  // Adds the collections of `other` that this content does not have. Sets `isShown` to false unless it is true in both
  // contents.
  void Join(const PnrContent& other);
};

// Creates the contents of PNRs. Each distinct display is parsed only once.
class ContentMaker {
 public:
  explicit ContentMaker(RecordingHiding& hiding) : hiding_(hiding) {}

  std::shared_ptr<const PnrContent> ContentOf(const ToldPnr& asTold);

 private:
  // What the simulator reads from a display of a PNR.
  struct Shown {
    std::optional<ReadObject> header;
    std::map<std::int32_t, std::vector<ReadObject>> collections;
    std::u16string locator;
    bool isClean = false;  // whether parsing gave no warning and left the display unchanged; false for an empty display
  };

  const Shown& ShownBy(const std::u16string& display);
  static bool Shows(const Shown& shown, const ToldPnr& told);
  void HideHeader(const ReadObject& header, const Shown& before, const Shown& after, PnrContent& content);
  void HideCollections(const ToldPnr& told, const Shown& before, const Shown& after, PnrContent& content);

  RecordingHiding& hiding_;
  std::map<std::u16string, Shown> shown_;
};

}  // namespace wendrill::recording
