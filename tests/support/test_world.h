// The simulated desktop of one test. A few calls set it up, it logs every call of a component, and any call can be made
// to fail:
//
//   TestWorld world;
//   world.On(u"AN15JUN", {.buffer = u"** AVAILABILITY **"}).Refusing({kbClear});
//   CQuillet quillet(world.module);
//   world.calls->FailNth(2);
//
// An entry without a reply fails the test; the message names the entry.
//
// The functions that set up the desktop, except During, load a new scenario each time. The screen is empty then, and
// the module gets a new shared session in place of an existing one (but see Sessions).
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "common/module_state.h"
#include "core/world.h"
#include "support/call_log.h"
#include "support/fake_bag.h"
#include "support/fake_clock.h"
#include "support/fake_object.h"
#include "support/fake_text_forms.h"
#include "support/watched_platform.h"

namespace wendrill::testing {

// The response to an entry that is sent once.
struct Reply {
  std::u16string buffer = {};  // the text of the buffer, verbatim
  std::int32_t type = 0;
  std::optional<std::u16string> text = std::nullopt;  // the response's Text; nullopt when it is equal to the buffer
  std::int16_t columns = 80;
  std::int16_t lines = 24;
  int late = 0;  // how many reads of the buffer return an empty text before the buffer fills
};

// At first, one session named A runs, every key is accepted, and the alarm component exists and returns 0.
class TestWorld {
 public:
  TestWorld();
  TestWorld(const TestWorld&) = delete;
  TestWorld& operator=(const TestWorld&) = delete;

  // --- The setting. Each returns this world. ---

  // Adds a reply to an entry. Several replies to one entry answer in turn; after the last one, the last one repeats.
  TestWorld& On(std::u16string_view entry, const Reply& reply);

  // Sets the names of the running sessions, in order; with an empty list, no session runs. Does not replace the
  // module's shared session.
  TestWorld& Sessions(const std::vector<std::u16string>& names);

  TestWorld& Refusing(const std::vector<KeyCode>& keys);
  TestWorld& Version(std::u16string_view version);
  TestWorld& Ready(std::int32_t terminal, std::int32_t host);

  // Appends tables to the scenario, such as [[pnr]].
  TestWorld& With(std::u16string_view tables);

  // Sets a function that runs inside each call of a member of the simulator, after the call's line is in the journal.
  // When the function throws, the call fails. Replaces the earlier function for this operation.
  TestWorld& During(std::u16string_view operation, std::function<void()> act);

  // --- What happens by itself ---

  // Simulates that another program sends an entry and gets the reply, which is then on the screen. Writes nothing to
  // the journal or the call log.
  void Show(std::u16string_view entry, const Reply& reply);

  // Simulates that a response arrives in each running session: calls the handlers that are connected to the event
  // ReceivedResponse. Sending keys or entries does not call these handlers.
  void RaiseReceivedResponse();

  // --- What was done ---

  // The calls that reached the terminal and the sleeps, in order and joined with ", ": "key 322, send ER, sleep 400".
  std::string Journal();
  const std::vector<std::string>& JournalLines();
  void ClearJournal();

  // The number of live toolkit objects, except the text helper that the module keeps.
  std::size_t LiveObjects() const;
  std::size_t ConnectedHandlers();

  // The HostConnection that every session object of the first running session returns.
  ObjectRef HostConnection() { return simulated.MakeSession()->HostConnection(); }

  CallLogRef calls = std::make_shared<CallLog>();
  FakeClock clock;
  FakePump pump{clock};
  FakeTextForms texts;
  simulator::World simulated;
  WatchedPlatform platform{simulated};
  FakeBagRef lastBag;  // the last parameter bag that the library created; null when it has created none
  ModuleState module{platform, clock, pump, texts};

 private:
  void Load();
  void Enter(std::u16string_view operation);

  std::u16string sessions_;
  std::u16string version_ = u"3.0P1";
  std::u16string ready_ = u"[1, 1]";
  std::u16string refuses_;
  std::u16string tables_;
  std::map<std::u16string, std::function<void()>, std::less<>> during_;
  std::vector<std::string> journal_;
};

}  // namespace wendrill::testing
