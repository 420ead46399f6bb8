#include "recording/recording.h"

#include <algorithm>
#include <iterator>
#include <new>
#include <utility>

#include "common/error.h"
#include "common/text.h"
#include "recording/calls.h"
#include "recording/pnr_contents.h"
#include "recording/proof.h"
#include "recording/recording_file.h"
#include "recording/recording_hiding.h"
#include "recording/rehearsal.h"
#include "recording/scenario_text.h"
#include "recording/story.h"

namespace wendrill::recording {
namespace {

constexpr std::u16string_view kHoldsToken =
    u"The recording would hold a name or a number that is to be hidden. It was not written.";
constexpr std::u16string_view kMemoryIsShort = u"The recording cannot be made: memory is short.";
constexpr std::u16string_view kCannotBeMade = u"The recording cannot be made.";

// The action to which the next event of a session belongs: the last entry, or the last key that was accepted. At most
// one of `entry` and `key` has a value; neither has one when no event is expected.
struct Waiting {
  std::optional<SendId> entry;
  std::optional<std::int32_t> key;
};

struct SessionEvents {
  bool isHeard = false;
  Waiting waiting;
};

}  // namespace

class Recording::Implementation {
 public:
  explicit Implementation(Settings howTo) : settings(std::move(howTo)), file(settings.file) {}

  // --- Events --------------------------------------------------------------------------------------------------------

  // Ends the waiting for an event in a session, because another action begins in that session. If the session waits for
  // the event of a key, counts the key as a key without an event. If the session waits for the event of an entry, the
  // entry's `hadEvent` remains false. Also notes that the session was used.
  void EndWaiting(std::u16string_view session) {
    calls.usedSessions.Add(std::u16string(session));
    SessionEvents& events = sessions[std::u16string(session)];
    if (const auto key = std::exchange(events.waiting.key, std::nullopt)) {
      ++calls.keys[*key].withoutEvent;
    }
    events.waiting = {};
  }

  void HadEvent(std::u16string_view session) {
    Waiting& waiting = sessions[std::u16string(session)].waiting;
    if (waiting.entry) {
      std::get<ToldEntry>(calls.all[*waiting.entry]).hadEvent = true;
    }
    if (waiting.key) {
      ++calls.keys[*waiting.key].withEvent;
    }
    waiting = {};
  }

  // --- Calls ---------------------------------------------------------------------------------------------------------

  std::size_t Add(ToldCall call) {
    calls.all.push_back(std::move(call));
    return calls.all.size() - 1;
  }

  SendId AddEntry(std::u16string_view session, std::u16string_view entry, std::int32_t error) {
    EndWaiting(session);
    ToldEntry told;
    told.session = calls.texts.Keep(session);
    told.entry = calls.texts.Keep(entry);
    told.error = error;
    return Add(std::move(told));
  }

  RetrievalId AddPnr(std::u16string_view session, std::optional<std::u16string_view> entry, std::int32_t error,
                     ReadPnr pnr) {
    EndWaiting(session);
    ToldPnr told;
    told.session = calls.texts.Keep(session);
    if (entry) {
      told.entry = calls.texts.Keep(*entry);
    }
    told.error = error;
    told.pnr = std::move(pnr);
    return Add(std::move(told));
  }

  // --- The end -------------------------------------------------------------------------------------------------------

  Outcome Finish() {
    RecordingHiding hiding(settings.kept);
    const Story story = StoryOf(calls, hiding);
    const std::string scenario = ScenarioText(calls, story, hiding);
    Outcome outcome;
    outcome.notReproduced = Rehearse(scenario, story, hiding);
    for (const std::u16string& sentence : ToldBeforehand()) {
      outcome.notReproduced.push_back(hiding.Words(sentence));
    }
    const std::string text = Heading(settings.kept, outcome.notReproduced) + scenario;
    outcome.problem = HoldsToken(text, hiding.Tokens()) ? kHoldsToken : file.Write(text);
    outcome.isWritten = outcome.problem.empty();
    return outcome;
  }

  // Returns one sentence for each thing that a replay does not reproduce and that the recorded calls alone reveal,
  // without a rehearsal: for example, a version that changed.
  std::vector<std::u16string> ToldBeforehand() const {
    std::vector<std::u16string> sentences;
    if (calls.sessions.Differ()) {
      sentences.emplace_back(u"the list of sessions changed; in a replay all of them run");
    }
    const auto tellIf = [&sentences](bool differ, std::u16string_view what) {
      if (differ) {
        sentences.push_back(std::u16string(what) + u" changed; a replay has the first");
      }
    };
    tellIf(calls.versions.Differ(), u"the terminal's version");
    tellIf(calls.terminalReady.Differ(), u"whether the terminal is ready");
    tellIf(calls.hostReady.Differ(), u"whether the host is ready");
    tellIf(calls.alarmCodes.Differ(), u"the alarm's code");
    tellIf(calls.alarmIsAbsent && (calls.alarmHasNoMethod || calls.alarmCodes.First()), u"whether there is an alarm");
    tellIf(calls.alarmHasNoMethod && calls.alarmCodes.First(), u"whether the alarm has its method");
    for (const auto& [code, key] : calls.keys) {
      const std::u16string name = u"key " + DecimalText(code);
      if (key.accepted > 0 && key.refused > 0) {
        sentences.push_back(name + u" was refused at times; a replay accepts it");
      }
    }
    const auto& others = calls.notReproducible.All();
    sentences.insert(sentences.end(), others.begin(), others.end());
    if (calls.isIncomplete) {
      sentences.emplace_back(u"something could not be recorded: memory was short");
    }
    return sentences;
  }

  Settings settings;
  Calls calls;
  RecordingFile file;
  std::map<std::u16string, SessionEvents> sessions;
};

Recording::Recording(Settings settings) : implementation_(std::make_unique<Implementation>(std::move(settings))) {}

Recording::~Recording() = default;

const Settings& Recording::HowTo() const {
  return implementation_->settings;
}

// --- The desktop -----------------------------------------------------------------------------------------------------

void Recording::Sessions(std::span<const std::u16string> names) {
  implementation_->calls.sessions.Add({names.begin(), names.end()});
}

void Recording::TerminalVersion(std::u16string_view version) {
  implementation_->calls.versions.Add(std::u16string(version));
}

void Recording::TerminalReady(std::int32_t answer) {
  implementation_->calls.terminalReady.Add(answer);
}

void Recording::HostReady(std::int32_t answer) {
  implementation_->calls.hostReady.Add(answer);
}

void Recording::AlarmIsAbsent() {
  implementation_->calls.alarmIsAbsent = true;
}

void Recording::AlarmHasNoMethod() {
  implementation_->calls.alarmHasNoMethod = true;
}

void Recording::AlarmAnswered(bool /*lock*/, std::int32_t code) {
  implementation_->calls.alarmCodes.Add(code);
}

// --- Entries, responses, keys ----------------------------------------------------------------------------------------

// Ends the waiting for an event and notes that the session was used; the entry itself is not recorded. The simulator
// gives no answer to an entry that is not transmitted, and in a replay the program types the entry again.
void Recording::Typed(std::u16string_view session, std::u16string_view /*entry*/) {
  implementation_->EndWaiting(session);
}

SendId Recording::Sent(std::u16string_view session, std::u16string_view entry) {
  const SendId answer = implementation_->AddEntry(session, entry, 0);
  SessionEvents& events = implementation_->sessions[std::u16string(session)];
  if (events.isHeard) {
    events.waiting.entry = answer;
  }
  return answer;
}

void Recording::SendFailed(std::u16string_view session, std::u16string_view entry, std::int32_t number) {
  implementation_->AddEntry(session, entry, number);
}

void Recording::BufferRead(SendId answer, std::u16string_view buffer, bool byTheProgram) {
  Calls& calls = implementation_->calls;
  auto& readings = std::get<ToldEntry>(calls.all.at(answer)).readings;
  if (readings.empty() || readings.back().buffer != buffer || readings.back().byTheProgram != byTheProgram) {
    readings.push_back({calls.texts.Keep(buffer), 0, byTheProgram});
  }
  ++readings.back().times;
}

void Recording::ResponseRead(SendId answer, const ReadResponse& response) {
  Calls& calls = implementation_->calls;
  std::get<ToldEntry>(calls.all.at(answer)).response =
      ToldResponse{calls.texts.Keep(response.entry), calls.texts.Keep(response.text), response.type, response.columns,
                   response.lines};
}

void Recording::Key(std::u16string_view session, std::int32_t code, bool accepted) {
  implementation_->EndWaiting(session);
  ToldKey& key = implementation_->calls.keys[code];
  ++(accepted ? key.accepted : key.refused);
  SessionEvents& events = implementation_->sessions[std::u16string(session)];
  if (accepted && events.isHeard) {
    events.waiting.key = code;
  }
}

void Recording::Listening(std::u16string_view session, bool begun) {
  implementation_->EndWaiting(session);
  implementation_->sessions[std::u16string(session)].isHeard = begun;
}

void Recording::Event(std::u16string_view session) {
  implementation_->HadEvent(session);
}

// --- PNRs ------------------------------------------------------------------------------------------------------------

RetrievalId Recording::Retrieved(std::u16string_view session, std::optional<std::u16string_view> entry, ReadPnr pnr) {
  return implementation_->AddPnr(session, entry, 0, std::move(pnr));
}

void Recording::RetrievalFailed(std::u16string_view session, std::optional<std::u16string_view> entry,
                                std::int32_t number) {
  implementation_->AddPnr(session, entry, number, {});
}

void Recording::CollectionRead(RetrievalId pnr, std::int32_t collection, std::vector<ReadObject> elements) {
  if (CollectionOf(collection) != nullptr) {
    std::get<ToldPnr>(implementation_->calls.all.at(pnr)).collections[collection] = std::move(elements);
  }
}

// --- Everything else -------------------------------------------------------------------------------------------------

void Recording::Failed(std::u16string_view member, std::int32_t number) {
  NotReproducible(std::u16string(member) + u" failed with " + DecimalText(number));
}

void Recording::NotReproducible(std::u16string_view sentence) {
  implementation_->calls.notReproducible.Add(std::u16string(sentence));
}

void Recording::Incomplete() noexcept {
  implementation_->calls.isIncomplete = true;
}

Outcome Recording::Finish() noexcept {
  Outcome outcome;
  try {
    return implementation_->Finish();
  } catch (const std::bad_alloc&) {
    outcome.problem = kMemoryIsShort;
  } catch (...) {  // such as a scenario that cannot be parsed
    outcome.problem = kCannotBeMade;
  }
  return outcome;
}

void Recording::TellProblem(std::u16string_view sentence) noexcept {
  implementation_->file.TellProblem(sentence);
}

}  // namespace wendrill::recording
