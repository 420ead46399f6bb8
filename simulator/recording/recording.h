// Collects the calls between a program and a terminal, and writes a scenario with which the simulator gives the answers
// that the terminal gave.
//
// The recorder sits between the program and the terminal. The recorder reports each call to the Recording after the
// call has returned, in the order of the calls. At the end, Finish creates the scenario with personal data hidden,
// replays the recorded calls against the scenario and writes the file.
//
// The file has a comment that begins with "# not reproduced:" for everything that a scenario cannot express, and for
// everything that the simulator would answer differently from the terminal.
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

// The user's options for a recording.
struct Settings {
  std::filesystem::path file;      // the file to write, which must not exist yet
  std::set<redaction::Kind> kept;  // the kinds of personal data that are not hidden
  // True (eager): all collections of a PNR are read when the PNR is retrieved. False (lazy): a collection is read when
  // the program asks for it.
  bool readsWholePnrs = true;
};

// An object of the PNR model, as it was read from the terminal: the header or an element of a PNR.
struct ReadObject {
  simulator::SegmentKind kind = simulator::SegmentKind::None;  // of an air segment; None for any other object
  std::map<std::u16string, Value> properties;                  // by name; only the properties that could be read
  std::vector<Value> passengers;                               // for a car: the element numbers of its passengers
};

// What was read from a PNR object after a retrieval, without its collections.
struct ReadPnr {
  std::int32_t status = 0;           // the result of RetrieveCurrent; 0 for a retrieval by an entry
  std::u16string display;            // the display text, verbatim
  std::optional<ReadObject> header;  // nullopt: there is no header, or the header could not be read
};

// Identifies an entry that was transmitted and the host's answer to that entry.
using SendId = std::size_t;

// The recorded properties of a response, except its buffer, which BufferRead records.
struct ReadResponse {
  std::u16string entry;  // the property HostCommand: the entry that the response answers
  std::u16string text;
  std::int32_t type = 0;
  std::int16_t columns = 0;
  std::int16_t lines = 0;
};

// Identifies a retrieval of a PNR, either by an entry or from the display.
using RetrievalId = std::size_t;

// The result of Recording::Finish.
struct Outcome {
  bool isWritten = false;
  std::vector<std::u16string> notReproduced;  // one sentence for each difference between a replay and the recorded run
  // Why no file was written; empty when the file was written. Valid as long as the Recording exists.
  std::u16string_view problem;
};

class Recording {
 public:
  // Raises 58 (file already exists) when the file of the recording exists, and 75 (path or file access error) when no
  // file can be written at its path.
  explicit Recording(Settings settings);
  ~Recording();
  Recording(const Recording&) = delete;
  Recording& operator=(const Recording&) = delete;

  const Settings& HowTo() const;

  // --- The desktop ---------------------------------------------------------------------------------------------------

  // Records the names of the running sessions in the order of the terminal's session list. Call this each time the
  // session list is read.
  void Sessions(std::span<const std::u16string> names);
  void TerminalVersion(std::u16string_view version);
  void TerminalReady(std::int32_t answer);
  void HostReady(std::int32_t answer);
  void AlarmIsAbsent();     // the alarm object could not be created
  void AlarmHasNoMethod();  // the alarm object has no method LockAlarm
  void AlarmAnswered(bool lock, std::int32_t code);

  // --- Entries, responses, keys --------------------------------------------------------------------------------------

  // Call this when the program has put an entry on the screen of a session without transmitting it. The entry is not
  // recorded, but a later event is then no longer counted as the answer to the session's previous entry or key.
  void Typed(std::u16string_view session, std::u16string_view entry);

  // Sent records an entry that was transmitted and has a response. SendFailed records an entry that could not be sent,
  // with the error number.
  SendId Sent(std::u16string_view session, std::u16string_view entry);
  void SendFailed(std::u16string_view session, std::u16string_view entry, std::int32_t number);

  // Records that the buffer of an answer was read; the buffer may be empty. `byTheProgram` is false when the recorder
  // itself read the buffer after the program's last reading of the answer.
  void BufferRead(SendId answer, std::u16string_view buffer, bool byTheProgram = true);
  void ResponseRead(SendId answer, const ReadResponse& response);

  // Records that a key was pressed, and whether the terminal accepted the key.
  void Key(std::u16string_view session, std::int32_t code, bool accepted);
  // Listening records that the program began to listen to the events of a session (`begun` is true) or stopped
  // listening (`begun` is false). Event records that an event of the session reached the program.
  void Listening(std::u16string_view session, bool begun);
  void Event(std::u16string_view session);

  // --- PNRs ----------------------------------------------------------------------------------------------------------

  // Retrieved records that a PNR object was filled by an entry, or, when `entry` is nullopt, from the display of the
  // session. The collections of the PNR are recorded later by CollectionRead. RetrievalFailed records the error number
  // of a retrieval that failed.
  RetrievalId Retrieved(std::u16string_view session, std::optional<std::u16string_view> entry, ReadPnr pnr);
  void RetrievalFailed(std::u16string_view session, std::optional<std::u16string_view> entry, std::int32_t number);

  // Records the elements of a collection of a retrieved PNR. `collection` is the DISPID of the collection (kCollections
  // of object_model.h); a call with any other number is ignored.
  // REQUIRES: called at most once for each collection of a retrieval.
  void CollectionRead(RetrievalId pnr, std::int32_t collection, std::vector<ReadObject> elements);

  // --- Everything else -----------------------------------------------------------------------------------------------

  // Records that a call of a member failed with this error number, which becomes a "# not reproduced:" comment of the
  // file. Only for a failure that no other function of this class records, because a scenario cannot reproduce such a
  // failure.
  void Failed(std::u16string_view member, std::int32_t number);
  // Records something that a scenario cannot express and that no other function of this class records. The sentence,
  // such as "Value of the PNR was assigned", becomes a "# not reproduced:" comment of the file.
  void NotReproducible(std::u16string_view sentence);
  // Records that a call or an event is missing from the recording because memory was short.
  void Incomplete() noexcept;

  // --- The end -------------------------------------------------------------------------------------------------------

  // Creates the scenario and writes the file. If no file was written, Outcome::problem says why: for example, the text
  // contains a token (a name or a card number that must be hidden), memory is short, or the file cannot be written. May
  // be called again after more calls were recorded: the longer recording then replaces the file.
  Outcome Finish() noexcept;

  // Writes the reason why there is no recording to the file with the recording's name and ".error" appended. From that
  // file the user learns the reason when the program shows no message of the recorder.
  void TellProblem(std::u16string_view sentence) noexcept;

 private:
  class Implementation;
  std::unique_ptr<Implementation> implementation_;
};

}  // namespace wendrill::recording
