#include "support/test_world.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <memory>
#include <utility>

#include "common/text.h"

namespace wendrill::testing {
namespace {

constexpr std::string_view kUnanswered = " (unanswered)";

// The text as a TOML basic string, with quotes and escapes.
std::u16string Quoted(std::u16string_view text) {
  constexpr std::u16string_view kDigits = u"0123456789ABCDEF";
  std::u16string quoted = u"\"";
  for (const char16_t character : text) {
    if (character >= u' ' && character < u'\x7F' && character != u'"' && character != u'\\') {
      quoted += character;
      continue;
    }
    quoted += u"\\u";
    for (int shift = 12; shift >= 0; shift -= 4) {
      quoted += kDigits[static_cast<std::size_t>(character >> shift) & 15U];
    }
  }
  return quoted + u"\"";
}

std::u16string Line(std::u16string_view key, std::int64_t number) {
  return std::u16string(key) + u" = " + DecimalText(number) + u"\n";
}

}  // namespace

TestWorld::TestWorld() {
  simulated.UseTexts(texts);
  simulated.OnCall([this](std::u16string_view operation) { Enter(operation); });
  clock.onSleep = [this](std::chrono::milliseconds duration) {
    JournalLines();
    journal_.push_back("sleep " + std::to_string(duration.count()));
  };
  platform.makeBag = [this] { return lastBag = std::make_shared<FakeBag>(calls); };
  Sessions({u"A"});
}

TestWorld& TestWorld::On(std::u16string_view entry, const Reply& reply) {
  return With(u"[[reply]]\nentry = " + Quoted(entry) + u"\nscreen = " + Quoted(reply.buffer) + u"\nraw = true\n" +
              (reply.text ? u"text = " + Quoted(*reply.text) + u"\n" : u"") + Line(u"type", reply.type) +
              Line(u"columns", reply.columns) + Line(u"lines", reply.lines) + Line(u"late", reply.late));
}

TestWorld& TestWorld::Sessions(const std::vector<std::u16string>& names) {
  sessions_.clear();
  for (const auto& name : names) {
    sessions_ += u"[[session]]\nname = " + Quoted(name) + u"\n";
  }
  Load();
  return *this;
}

TestWorld& TestWorld::Refusing(const std::vector<KeyCode>& keys) {
  refuses_.clear();
  for (const KeyCode key : keys) {
    refuses_ += DecimalText(key) + u", ";
  }
  return With(u"");
}

TestWorld& TestWorld::Version(std::u16string_view version) {
  version_ = version;
  return With(u"");
}

TestWorld& TestWorld::Ready(std::int32_t terminal, std::int32_t host) {
  ready_ = u"[" + DecimalText(terminal) + u", " + DecimalText(host) + u"]";
  return With(u"");
}

TestWorld& TestWorld::With(std::u16string_view tables) {
  tables_.append(tables).append(u"\n");
  Load();
  if (module.SharedSession) {
    module.SharedSession = simulated.MakeSession();
  }
  return *this;
}

TestWorld& TestWorld::During(std::u16string_view operation, std::function<void()> act) {
  during_[std::u16string(operation)] = std::move(act);
  return *this;
}

void TestWorld::Show(std::u16string_view entry, const Reply& reply) {
  On(entry, reply);
  simulated.OnCall({});
  simulated.MakeSession()->Send(entry, true);
  simulated.OnCall([this](std::u16string_view operation) { Enter(operation); });
  JournalLines();
  journal_.pop_back();
}

void TestWorld::RaiseReceivedResponse() {
  for (const auto& session : simulated.RunningSessions()) {
    simulated.QueueEvent(*session);
  }
  simulated.DeliverPending();
}

std::string TestWorld::Journal() {
  std::string joined;
  for (const auto& line : JournalLines()) {
    joined += (joined.empty() ? "" : ", ") + line;
  }
  return joined;
}

// Moves the lines of the simulator's journal to the end of journal_, which also has the lines of the clock, in order.
const std::vector<std::string>& TestWorld::JournalLines() {
  const std::u16string text = simulated.Journal();
  for (DisplayLines lines(text); !lines.AtEnd();) {
    journal_.push_back(ToUtf8(lines.Next()));
  }
  simulated.ClearJournal();
  return journal_;
}

void TestWorld::ClearJournal() {
  simulated.ClearJournal();
  journal_.clear();
}

std::size_t TestWorld::LiveObjects() const {
  const std::size_t simulatedObjects = static_cast<std::size_t>(simulated.LiveObjects());
  return calls->liveObjects + simulatedObjects - (module.TextHelper ? 1 : 0);
}

std::size_t TestWorld::ConnectedHandlers() {
  std::size_t handlers = 0;
  for (const auto& session : simulated.RunningSessions()) {
    handlers += static_cast<std::size_t>(
        std::ranges::count_if(session->listeners, [](const auto& listener) { return !listener.expired(); }));
  }
  return handlers;
}

void TestWorld::Load() {
  simulated.LoadText(u"[terminal]\nversion = " + Quoted(version_) + u"\nready = " + ready_ + u"\nrefuses = [" +
                         refuses_ + u"]\n" + sessions_ + tables_,
                     u"test world");
}

void TestWorld::Enter(std::u16string_view operation) {
  calls->Enter(ToUtf8(operation));
  const auto found = during_.find(operation);
  if (found != during_.end() && found->second) {
    const auto act = found->second;  // a copy, because the function may call During and replace itself
    act();
  }
  if (operation == u"Send" && !JournalLines().empty() && journal_.back().ends_with(kUnanswered)) {
    ADD_FAILURE() << "unexpected: " << journal_.back();
    throw ForeignError();
  }
}

}  // namespace wendrill::testing
