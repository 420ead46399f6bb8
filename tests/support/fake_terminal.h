// A scripted terminal: the toolkit's session list, sessions and responses over one script.
//
//   terminal.Sessions({u"A", u"B"}).Accepting(kbClear).On(u"AN15JUN", {.buffer = u"** AVAILABILITY **"});
//
// Strict: an entry without a reply or a key without an answer fails the test and is named. Every call of every object
// is entered in the call log and can fail; what reached the terminal also stands in the journal.
#pragma once

#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "support/call_log.h"
#include "toolkit/terminal.h"

namespace wendrill::testing {

// What one sending of an entry yields.
struct Reply {
  std::u16string buffer = {};
  std::int32_t type = 0;
  std::optional<std::u16string> text = std::nullopt;  // where it differs from the buffer
  std::int16_t columns = 80;
  std::int16_t lines = 24;
  int late = 0;          // the buffer reads empty that many times before it fills
  bool nothing = false;  // the toolkit returns no response
};

// The script of a response without an entry: a stand-in for what is on the screen.
class FakeTerminal {
 public:
  explicit FakeTerminal(CallLogRef calls) : calls_(std::move(calls)) {}

  // --- The script. Each returns this terminal. ---

  // The names of the running sessions, in order; none at all: no session runs.
  FakeTerminal& Sessions(std::vector<std::u16string> names);

  // A reply to an entry. Several for one entry answer in turn; the last one stays.
  FakeTerminal& On(std::u16string entry, Reply reply);

  // The answer to a key.
  FakeTerminal& Accepting(KeyCode key);
  FakeTerminal& Refusing(KeyCode key);

  // Runs inside a sending, after its entry in the journal; inside a key press likewise.
  std::function<void(const std::u16string& entry)> whileSending;
  std::function<void(KeyCode key)> whilePressing;

  ObjectRef hostConnection;                // what every session returns
  std::shared_ptr<HostResponse> onScreen;  // the last response

  // Puts a response on the screen without an entry's being sent.
  void Show(std::u16string hostCommand, Reply reply);

  // Raises ReceivedResponse on every session whose event is connected.
  void RaiseReceivedResponse();
  std::size_t ConnectedHandlers() const { return handlers_.size(); }

  // What reached the terminal: "key 322", "send ER", "type ER", "alarm lock", "alarm unlock", "sleep 400".
  void Note(std::string line) { journal_.push_back(std::move(line)); }
  const std::vector<std::string>& Journal() const { return journal_; }
  void ClearJournal() { journal_.clear(); }

  // --- For the fakes themselves. ---
  const std::vector<std::u16string>& SessionNames() const { return sessions_; }
  std::shared_ptr<HostResponse> Answer(const std::u16string& entry, bool transmit);
  bool Press(KeyCode key);
  std::unique_ptr<EventConnection> Connect(std::function<void()> handler);
  void Disconnect(int connection) { handlers_.erase(connection); }
  const CallLogRef& Calls() const { return calls_; }

 private:
  CallLogRef calls_;
  std::vector<std::u16string> sessions_ = {u"A"};
  std::map<std::u16string, std::deque<Reply>> replies_;
  std::map<KeyCode, bool> keys_;
  std::vector<std::string> journal_;
  std::map<int, std::function<void()>> handlers_;
  int nextConnection_ = 0;
};

using FakeTerminalRef = std::shared_ptr<FakeTerminal>;

std::shared_ptr<HostSession> MakeFakeSession(const FakeTerminalRef& terminal, std::u16string name);
std::shared_ptr<HostSessionList> MakeFakeSessionList(const FakeTerminalRef& terminal);

}  // namespace wendrill::testing
