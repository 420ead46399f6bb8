#include "recording_terminal.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
#include <iterator>

#include "common/error.h"
#include "common/text.h"
#include "common/text_forms.h"
#include "core/simulated_pnr.h"

namespace wendrill::recording {
namespace {

using simulator::kCollections;

Value TextOrNothing(const Value& value) {
  return value.IsEmpty() ? Value() : value;
}

}  // namespace

RecordingTerminal::RecordingTerminal(std::string_view scenario, Recording& recording) : recording_(recording) {
  world_.LoadText(FromUtf8(scenario), u"recorded.toml");
}

std::shared_ptr<HostSession> RecordingTerminal::Session(std::u16string_view name) {
  return world_.MakeSessionList()->Item(std::u16string(name));
}

void RecordingTerminal::See(std::u16string_view what) {
  seen_ += ToUtf8(what) + "\n";
}

void RecordingTerminal::See(const ReadObject& object) {
  for (const auto& [name, value] : object.properties) {
    See(name + u": " + ToText(value, UsTextForms()));
  }
  for (const Value& number : object.passengers) {
    See(u"passenger " + ToText(number, UsTextForms()));
  }
}

SendId RecordingTerminal::Send(std::u16string_view entry, std::u16string_view session, int patience) {
  try {
    const auto response = Session(session)->Send(entry, true);
    const SendId id = recording_.Sent(session, entry);
    std::u16string buffer;
    for (int i = 0; buffer.empty() && i < patience; ++i) {
      buffer = response->Buffer();
      recording_.BufferRead(id, buffer);
      See(buffer);
    }
    const ReadResponse read{response->HostCommand(), response->Text(), response->ResponseType(),
                            response->NumberOfColumns(), response->NumberOfLines()};
    recording_.ResponseRead(id, read);
    See(DecimalText(read.type) + u" " + DecimalText(read.columns) + u" " + DecimalText(read.lines));
    if (!buffer.empty()) {
      See(read.text);
    }
    return id;
  } catch (const Error& error) {
    recording_.SendFailed(session, entry, error.Number());
    See(DecimalText(error.Number()));
    return 0;
  }
}

void RecordingTerminal::Type(std::u16string_view entry, std::u16string_view session) {
  Session(session)->Send(entry, false);
  recording_.Typed(session, entry);
}

bool RecordingTerminal::Press(std::int32_t key, std::u16string_view session) {
  const bool accepted = Session(session)->SendKey(key);
  recording_.Key(session, key, accepted);
  See(accepted ? u"accepted" : u"refused");
  return accepted;
}

void RecordingTerminal::Retrieve(std::u16string_view entry, std::u16string_view session) {
  Read(session, entry);
}

void RecordingTerminal::ReadDisplay(std::u16string_view session) {
  Read(session, std::nullopt);
}

ReadObject RecordingTerminal::ObjectOf(AutomationObject& object, const simulator::ObjectType& type) {
  ReadObject read;
  for (const simulator::Property& property : type.properties) {
    const Value value = object.Get(Member::Name(property.name));
    if (const auto* association = value.As<ObjectRef>()) {
      const auto passengers = ToObject((*association)->Get(Member::Name(u"Passengers")));
      const auto walk = passengers->Walk();
      for (ObjectRef passenger = walk->Next(); passenger != nullptr; passenger = walk->Next()) {
        read.passengers.push_back(passenger->Get(Member::Name(u"ElementNo")));
      }
    } else {
      read.properties.emplace(property.name, TextOrNothing(value));
    }
  }
  if (object.Is(SegmentType::Timed)) {
    read.kind = simulator::SegmentKind::Timed;
  } else if (object.Is(SegmentType::Untimed)) {
    read.kind = simulator::SegmentKind::Open;
  }
  return read;
}

void RecordingTerminal::Read(std::u16string_view session, std::optional<std::u16string_view> entry) {
  const auto pnr = world_.MakePnr();
  ReadPnr read;
  try {
    const auto connection = Session(session)->HostConnection();
    if (entry) {
      pnr->Call(Member::Name(u"Retrieve"), std::vector<Value>{connection, std::u16string(*entry)});
    } else {
      read.status = ToInt32(pnr->Call(Member::Name(u"RetrieveCurrent"), std::vector<Value>{connection}));
    }
  } catch (const Error& error) {
    recording_.RetrievalFailed(session, entry, error.Number());
    See(DecimalText(error.Number()));
    return;
  }
  read.display = ToText(pnr->Get(Member::Name(u"Text")), UsTextForms());
  See(DecimalText(read.status) + u" " + read.display);
  if (const auto header = *pnr->Get(Member::Name(u"Header")).As<ObjectRef>()) {
    read.header = ObjectOf(*header, simulator::kHeader);
    See(*read.header);
  }
  const RetrievalId id = recording_.Retrieved(session, entry, read);
  for (const simulator::Collection& collection : kCollections) {
    if (collections_ && !collections_->contains(collection.id)) {
      continue;
    }
    std::vector<ReadObject> elements;
    const auto list = ToObject(pnr->Get(Member::Id(collection.id)));
    const auto walk = list->Walk();
    for (ObjectRef element = walk->Next(); element != nullptr; element = walk->Next()) {
      elements.push_back(ObjectOf(*element, collection.elementType));
      See(elements.back());
    }
    recording_.CollectionRead(id, collection.id, std::move(elements));
  }
}

void RecordingTerminal::Listen(std::u16string_view session) {
  listeners_[std::u16string(session)] = Session(session)->OnReceivedResponse([this, name = std::u16string(session)] {
    recording_.Event(name);
    See(u"event in " + name);
  });
  recording_.Listening(session, true);
}

void RecordingTerminal::StopListening(std::u16string_view session) {
  listeners_.erase(std::u16string(session));
  recording_.Listening(session, false);
}

void RecordingTerminal::ListSessions() {
  std::vector<std::u16string> names;
  for (const auto& session : world_.MakeSessionList()->Sessions()) {
    names.push_back(session->SessionName());
    See(names.back());
  }
  recording_.Sessions(names);
}

void RecordingTerminal::AskVersion() {
  const std::u16string version = world_.MakeTextHelper()->TerminalVersion();
  recording_.TerminalVersion(version);
  See(version);
}

void RecordingTerminal::AskReady() {
  const auto helper = world_.MakeTextHelper();
  const std::int32_t terminal = helper->TerminalReady();
  const std::int32_t host = helper->HostReady();
  recording_.TerminalReady(terminal);
  recording_.HostReady(host);
  See(DecimalText(terminal) + u" " + DecimalText(host));
}

void RecordingTerminal::LockAlarm(bool lock) {
  try {
    const std::int32_t code = ToInt32(world_.MakeAlarmManager()->LockAlarm(lock));
    recording_.AlarmAnswered(lock, code);
    See(u"alarm " + DecimalText(code));
  } catch (const Error& error) {
    constexpr std::int32_t kNotCreated = 429;
    if (error.Number() == kNotCreated) {
      recording_.AlarmIsAbsent();
    } else {
      recording_.AlarmHasNoMethod();
    }
    See(u"alarm fails with " + DecimalText(error.Number()));
  }
}

// --- Recordings ------------------------------------------------------------------------------------------------------

OwnFolder::OwnFolder() {
  const auto* test = ::testing::UnitTest::GetInstance()->current_test_info();
  static int count = 0;
  std::string name =
      std::string("recording_") + test->test_suite_name() + "_" + test->name() + "_" + std::to_string(++count);
  std::replace(name.begin(), name.end(), '/', '_');
  folder_ = std::filesystem::temp_directory_path() / name;
  std::filesystem::remove_all(folder_);
  std::filesystem::create_directory(folder_);
}

OwnFolder::~OwnFolder() {
  std::error_code unused;
  std::filesystem::remove_all(folder_, unused);
}

std::string ContentOf(const std::filesystem::path& file) {
  std::ifstream stream(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
}

Recorded Record(std::string_view scenario, const Program& program, std::set<redaction::Kind> kept) {
  const OwnFolder folder;
  const std::filesystem::path file = folder.File("out.toml");
  Recording recording({file, std::move(kept), true});
  RecordingTerminal terminal(scenario, recording);
  program(terminal);
  Recorded result;
  result.outcome = recording.Finish();
  EXPECT_EQ(result.outcome.problem, u"");
  result.text = ContentOf(file);
  result.seen = terminal.Seen();
  result.findings = terminal.Findings();
  return result;
}

std::string ExpectReplays(std::string_view scenario, const Program& program) {
  const auto replay = [&](const std::set<redaction::Kind>& kept) {
    const Recorded first = Record(scenario, program, kept);
    EXPECT_TRUE(first.outcome.isWritten);
    EXPECT_THAT(first.outcome.notReproduced, ::testing::IsEmpty()) << first.text;
    const Recorded second = Record(first.text, program, kept);
    EXPECT_EQ(second.findings, 0) << first.text;
    EXPECT_THAT(second.outcome.notReproduced, ::testing::IsEmpty()) << first.text;
    EXPECT_EQ(second.text, first.text);
    if (!kept.empty()) {
      EXPECT_EQ(second.seen, first.seen) << first.text;
    }
    return first.text;
  };
  replay(kKeepAll);
  return replay({});
}

}  // namespace wendrill::recording
