// A recording: what a program and a terminal said to each other, from which a scenario is made that lets the simulator
// say the same.
//
// The recorder, which is between the two, tells the recording of each call after it returned, in the order of the
// calls. At the end, Finish makes the scenario, hides personal data in it, plays the recorded calls against it and
// writes the file.
//
// What cannot be said in a scenario, and what the simulator would answer otherwise than the terminal did, is in the
// file as a comment that begins with "# not reproduced:".
#pragma once

#include <cstdint>
#include <filesystem>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <span>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "common/value.h"
#include "derive/object_model.h"
#include "redaction/redactor.h"

namespace wendrill::recording {

// How a recording is made, as a person asks for it.
struct Settings {
  std::filesystem::path file;      // must not exist
  std::set<redaction::Kind> kept;  // what is not hidden
  bool readsWholePnrs = true;  // eager: every collection of a PNR is read when it is retrieved; lazy: when asked for
};

// An object of the PNR model as the terminal has it: its properties by name, and for a car its passengers' elements.
struct ReadObject {
  simulator::SegmentKind kind = simulator::SegmentKind::None;  // of an air segment
  std::map<std::u16string, Value> properties;                  // those that could be read
  std::vector<Value> passengers;                               // of a car: the numbers of their elements
};

// A PNR object after a retrieval.
struct ReadPnr {
  std::int32_t status = 0;           // what the retrieval returned
  std::u16string display;            // verbatim
  std::optional<ReadObject> header;  // absent: Nothing
};

// An answer of the host.
using SendId = std::size_t;

// What is read of a response besides its buffer.
struct ReadResponse {
  std::u16string entry;  // HostCommand
  std::u16string text;
  std::int32_t type = 0;
  std::int16_t columns = 0;
  std::int16_t lines = 0;
};

// A retrieval: by an entry, or of the PNR on display.
using RetrievalId = std::size_t;

// How a recording ended.
struct Outcome {
  bool isWritten = false;
  std::vector<std::u16string> notReproduced;  // each one sentence; what was written all the same
  std::u16string_view problem;                // why there is no file; as long as the recording lives
};

class Recording {
 public:
  // Raises 58 when the file exists, and 75 when it cannot be written there.
  explicit Recording(Settings settings);
  ~Recording();
  Recording(const Recording&) = delete;
  Recording& operator=(const Recording&) = delete;

  const Settings& HowTo() const;

  // --- The desktop ---------------------------------------------------------------------------------------------------

  // The names of the running sessions, in order; told whenever the list is asked for.
  void Sessions(std::span<const std::u16string> names);
  void TerminalVersion(std::u16string_view version);
  void TerminalReady(std::int32_t answer);
  void HostReady(std::int32_t answer);
  void AlarmIsAbsent();     // its class could not be created
  void AlarmHasNoMethod();  // LockAlarm is no member
  void AlarmAnswered(bool lock, std::int32_t code);

  // --- Entries, responses, keys --------------------------------------------------------------------------------------

  // An entry was put on the screen of a session without being transmitted.
  void Typed(std::u16string_view session, std::u16string_view entry);

  // An entry was transmitted and has a response; sending it failed with an error number.
  SendId Sent(std::u16string_view session, std::u16string_view entry);
  void SendFailed(std::u16string_view session, std::u16string_view entry, std::int32_t number);

  // The buffer of an answer was read, empty or not. Whoever reads it on behalf of the recording alone, after the
  // program let go of the answer, says so.
  void BufferRead(SendId answer, std::u16string_view buffer, bool byTheProgram = true);
  void ResponseRead(SendId answer, const ReadResponse& response);

  // A key was pressed.
  void Key(std::u16string_view session, std::int32_t code, bool accepted);
  // The program began or ended listening to a session's events; the event reached it.
  void Listening(std::u16string_view session, bool begun);
  void Event(std::u16string_view session);

  // --- PNRs ----------------------------------------------------------------------------------------------------------

  // A PNR object was filled by an entry, or from the display of the session (no entry). Collections follow.
  RetrievalId Retrieved(std::u16string_view session, std::optional<std::u16string_view> entry, ReadPnr pnr);
  void RetrievalFailed(std::u16string_view session, std::optional<std::u16string_view> entry, std::int32_t number);

  // The elements of a collection of that PNR, by its identifier (kCollections of object_model.h); told once at most.
  void CollectionRead(RetrievalId pnr, std::int32_t collection, std::vector<ReadObject> elements);

  // --- Everything else -----------------------------------------------------------------------------------------------

  // A call failed that no function above has: the member's name, the error number. It cannot be reproduced.
  void Failed(std::u16string_view member, std::int32_t number);
  // Anything else that no scenario can say, as a sentence such as "Value of the PNR was assigned".
  void NotReproducible(std::u16string_view sentence);
  // Something happened that could not be told, because memory was short.
  void Incomplete() noexcept;

  // --- The end -------------------------------------------------------------------------------------------------------

  // Makes the scenario and writes the file, unless a token of what is hidden is in it. May be called again after more
  // has happened: the file is replaced by a longer one. No exception leaves it.
  Outcome Finish() noexcept;

  // Writes into a file beside the recording why the recording could not be written, for those who see no other message.
  void TellProblem(std::u16string_view sentence) noexcept;

 private:
  class Implementation;
  std::unique_ptr<Implementation> implementation_;
};

}  // namespace wendrill::recording
