// A terminal that is recorded while a test uses it, as a recorder does it: the simulator, and a Recording that is told
// of every call.
#pragma once

#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "core/world.h"
#include "recording/recording.h"

namespace wendrill::recording {

class RecordingTerminal {
 public:
  RecordingTerminal(std::string_view scenario, Recording& recording);

  // --- What a program does -------------------------------------------------------------------------------------------

  // Sends an entry and reads its buffer until it is full, or as often as the program has patience.
  SendId Send(std::u16string_view entry, std::u16string_view session = u"A", int patience = 10);
  void Type(std::u16string_view entry, std::u16string_view session = u"A");
  bool Press(std::int32_t key, std::u16string_view session = u"A");

  void Retrieve(std::u16string_view entry, std::u16string_view session = u"A");
  void ReadDisplay(std::u16string_view session = u"A");

  void Listen(std::u16string_view session = u"A");
  void StopListening(std::u16string_view session = u"A");
  void DeliverEvents() { world_.DeliverPending(); }

  void ListSessions();
  void AskVersion();
  void AskReady();
  void LockAlarm(bool lock);

  // Collections that are read of a PNR; all unless a test says otherwise.
  void ReadOnly(std::set<std::int32_t> collections) { collections_ = std::move(collections); }

  // Everything that the program has seen, call by call.
  const std::string& Seen() const { return seen_; }

  // The number of things that a strict run counts.
  std::int32_t Findings() { return world_.Findings().Findings(); }

 private:
  std::shared_ptr<HostSession> Session(std::u16string_view name);
  void See(std::u16string_view what);
  void See(const ReadObject& object);
  void Read(std::u16string_view session, std::optional<std::u16string_view> entry);
  static ReadObject ObjectOf(AutomationObject& object, const simulator::ObjectType& type);

  simulator::World world_;
  Recording& recording_;
  std::optional<std::set<std::int32_t>> collections_;
  std::map<std::u16string, std::unique_ptr<EventConnection>> listeners_;
  std::string seen_;
};

// What a program does on a terminal.
using Program = std::function<void(RecordingTerminal&)>;

// What came of recording a program.
struct Recorded {
  Outcome outcome;
  std::string text;  // of the file; empty when there is none
  std::string seen;
  std::int32_t findings = 0;
};

// A folder for one test, empty at the beginning and removed at the end.
class OwnFolder {
 public:
  OwnFolder();
  ~OwnFolder();
  std::filesystem::path File(std::string_view name) const { return folder_ / name; }

 private:
  std::filesystem::path folder_;
};

std::string ContentOf(const std::filesystem::path& file);

Recorded Record(std::string_view scenario, const Program& program, std::set<redaction::Kind> kept = {});

inline const std::set<redaction::Kind> kKeepAll{redaction::Kind::Names, redaction::Kind::Cards,
                                                redaction::Kind::Contacts, redaction::Kind::Remarks};

// Records the program, and records the replay of that: nothing is lost, a strict replay finds nothing, and the second
// recording is the same file. With nothing hidden the program sees the same in the replay. Returns the recording.
std::string ExpectReplays(std::string_view scenario, const Program& program);

}  // namespace wendrill::recording
