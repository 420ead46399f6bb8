// The simulated desktop of one test, set up in a few words, with a log of every call and failures at will:
//
//   TestWorld world;
//   world.On(u"AN15JUN", {.buffer = u"** AVAILABILITY **"}).Refusing({kbClear});
//   CQuillet quillet(world.module);
//   world.calls->FailNth(2);
//
// Strict: an entry without a reply fails the test and is named.
//
// Each line of the setting makes another scenario the current one: the shared session, when there is one, is connected
// again, and the screen is empty.
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

// What one sending of an entry yields.
struct Reply {
  std::u16string buffer = {};  // verbatim
  std::int32_t type = 0;
  std::optional<std::u16string> text = std::nullopt;  // where it differs from the buffer
  std::int16_t columns = 80;
  std::int16_t lines = 24;
  int late = 0;  // the buffer reads empty that many times before it fills
};

// One session named A runs, every key is accepted, an alarm component is there and answers 0.
class TestWorld {
 public:
  TestWorld();
  TestWorld(const TestWorld&) = delete;
  TestWorld& operator=(const TestWorld&) = delete;

  // --- The setting. Each returns this world. ---

  // A reply to an entry. Several for one entry answer in turn; the last one stays.
  TestWorld& On(std::u16string_view entry, const Reply& reply);

  // The names of the running sessions, in order; none at all: no session runs. The shared session is left alone.
  TestWorld& Sessions(const std::vector<std::u16string>& names);

  TestWorld& Refusing(const std::vector<KeyCode>& keys);
  TestWorld& Version(std::u16string_view version);
  TestWorld& Ready(std::int32_t terminal, std::int32_t host);

  // Further tables of the scenario, such as [[pnr]].
  TestWorld& With(std::u16string_view tables);

  // Runs inside each call of a member of the simulator, after its line in the journal; throwing makes the call fail.
  TestWorld& During(std::u16string_view operation, std::function<void()> act);

  // --- What happens by itself ---

  // Another program sends an entry, whose response is on the screen then. Not in journal and call log.
  void Show(std::u16string_view entry, const Reply& reply);

  // A response arrives: calls the handlers connected to the event. No key and no entry does so by itself.
  void RaiseReceivedResponse();

  // --- What was done ---

  // The calls that reached the terminal, joined with ", ": "key 322, send ER, sleep 400".
  std::string Journal();
  const std::vector<std::string>& JournalLines();
  void ClearJournal();

  // Objects of the toolkit that are alive, without the text helper that the module keeps.
  std::size_t LiveObjects() const;
  std::size_t ConnectedHandlers();

  // The connection that every object of the first session returns.
  ObjectRef HostConnection() { return simulated.MakeSession()->HostConnection(); }

  CallLogRef calls = std::make_shared<CallLog>();
  FakeClock clock;
  FakePump pump{clock};
  FakeTextForms texts;
  simulator::World simulated;
  WatchedPlatform platform{simulated};
  FakeBagRef lastBag;  // that the library had made
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
