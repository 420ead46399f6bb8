// What a PNR object held after a retrieval, with everything hidden.
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

// The collection with this identifier; null when no collection has it.
const simulator::Collection* CollectionOf(std::int32_t id);

// Whether two objects have the same properties: one that is Empty counts as left out, and an integer of 16 bits as one
// of 32.
bool AreSame(const ReadObject& left, const ReadObject& right);

// An object of a scenario as it would be read.
ReadObject ObjectOf(const simulator::ScenarioObject& object);

struct PnrContent {
  std::u16string display;
  std::optional<ReadObject> header;
  std::map<std::int32_t, std::vector<ReadObject>> collections;  // those that were read
  std::u16string locator;  // the simulator's name for the PNR; empty where the header has none
  bool isShown = false;    // its display shows everything: header and all collections are read from it

  // No display, a header without text, no elements: what the simulator has before it finds a PNR.
  bool IsEmpty() const;

  // Whether both can be what one PNR holds: they are the same but for collections that only one of them has.
  bool AgreesWith(const PnrContent& other) const;

  // Adds the collections that only the other one has.
  void Join(const PnrContent& other);
};

// Makes the contents of PNRs, each different one once.
class ContentMaker {
 public:
  explicit ContentMaker(RecordingHiding& hiding) : hiding_(hiding) {}

  std::shared_ptr<const PnrContent> ContentOf(const ToldPnr& asTold);

 private:
  // What the simulator reads from a display.
  struct Shown {
    std::optional<ReadObject> header;
    std::map<std::int32_t, std::vector<ReadObject>> collections;
    std::u16string locator;
    bool isClean = false;  // without a warning
  };

  const Shown& ShownBy(const std::u16string& display);
  static bool Shows(const Shown& shown, const ToldPnr& told);
  void HideHeader(const ReadObject& header, const Shown& before, const Shown& after, PnrContent& content);
  void HideCollections(const ToldPnr& told, const Shown& before, const Shown& after, PnrContent& content);

  RecordingHiding& hiding_;
  std::map<std::u16string, Shown> shown_;
};

}  // namespace wendrill::recording
