#include "recording/rehearsal.h"

#include <algorithm>
#include <functional>
#include <utility>

#include "common/error.h"
#include "common/text.h"
#include "common/text_forms.h"
#include "core/differences.h"
#include "core/world.h"
#include "recording/calls.h"

namespace wendrill::recording {
namespace {

using simulator::Collection;
using simulator::InQuotes;
using simulator::kCollections;

// Runs `work` and returns the number of the error that it raises; 0 when it raises no error.
std::int32_t NumberRaisedBy(const std::function<void()>& work) {
  try {
    work();
  } catch (const Error& error) {
    return error.Number();
  }
  return 0;
}

Member ById(const simulator::Property& property) {
  return Member::Id(property.id);
}

// Whether a recorded and a replayed value count as equal. Empty equals an empty string: a scenario cannot always
// distinguish Empty from an empty string, and programs rarely do. Dates are equal when they differ by less than a
// millisecond. Integers are compared by value, whether they have 16 or 32 bits.
bool AreAlike(const Value& left, const Value& right) {
  const auto isNothing = [](const Value& value) { return value.IsEmpty() || value == Value(u""); };
  const auto* date = left.As<Date>();
  const auto* other = right.As<Date>();
  if (date != nullptr && other != nullptr) {
    constexpr double kMillisecond = 1.0 / 86'400'000;
    return std::abs(date->days - other->days) < kMillisecond;
  }
  return left == right || (isNothing(left) && isNothing(right)) ||
         AreSame(ReadObject{{}, {{u"", left}}, {}}, {{}, {{u"", right}}, {}});
}

class Rehearsal {
 public:
  Rehearsal(std::string_view scenario, const Story& story, RecordingHiding& hiding) : story_(story), hiding_(hiding) {
    world_.LoadText(FromUtf8(scenario), u"recording");
  }

  std::vector<std::u16string> Run() {
    for (const Event& event : story_.events) {
      std::visit([this](const auto& each) { Play(each); }, event);
    }
    const simulator::RunReport& report = world_.Findings();
    for (const std::u16string& entry : report.Unanswered()) {
      Tell(Own(u"nothing answers ") + InQuotes(hiding_.Entry(entry)));
    }
    for (const auto& findings : {report.Unused(), report.Warnings()}) {
      for (const std::u16string& finding : findings) {
        Tell(Own(u"the scenario's ") + finding);
      }
    }
    return std::move(differences_).Take();
  }

 private:
  // --- The differences -----------------------------------------------------------------------------------------------

  // Returns words that the rehearsal itself puts into a sentence, with names hidden. If such a word were the name of a
  // passenger, HoldsToken would find the name in the finished file, and no file would be written. Not for texts in
  // which personal data is hidden already: such a text must not be hidden a second time.
  std::u16string Own(std::u16string_view words) { return hiding_.Words(words); }

  void Tell(std::u16string sentence) {
    std::ranges::replace_if(
        sentence, [](char16_t each) { return each < kBlank || each == 0x7F; }, kBlank);
    differences_.Add(sentence);
  }
  void TellOf(std::u16string_view what) { Tell(subject_ + u": " + Own(what)); }

  void Compare(std::u16string_view what, std::u16string_view recorded, std::u16string_view replayed) {
    if (recorded != replayed) {
      TellOf(std::u16string(what) + u" differs");
    }
  }
  void CompareNumbers(std::u16string_view what, std::int64_t recorded, std::int64_t replayed) {
    if (recorded != replayed) {
      TellOf(std::u16string(what) + u" was " + DecimalText(recorded) + u", and is " + DecimalText(replayed) +
             u" in a replay");
    }
  }

  // Compares the error numbers of a recorded and a replayed call (0: success), and reports a difference. Returns
  // whether both calls succeeded.
  bool HaveSucceeded(std::int32_t recorded, std::int32_t replayed) {
    const auto outcome = [](std::int32_t number) {
      return number == 0 ? std::u16string(u"succeeded") : u"failed with " + DecimalText(number);
    };
    if (recorded != replayed) {
      TellOf(outcome(recorded) + u", but " + outcome(replayed) + u" in a replay");
    }
    return recorded == 0 && replayed == 0;
  }

  std::shared_ptr<HostSession> Session(const std::u16string& name) {
    return name.empty() ? world_.MakeSession() : world_.MakeSessionList()->Item(name);
  }

  void BeginSubject(std::u16string subject, const std::u16string& session) {
    subject_ = std::move(subject);
    if (!session.empty()) {
      subject_.append(Own(u" in session ")).append(session);
    }
  }

  // --- Entries -------------------------------------------------------------------------------------------------------

  void Play(const Exchange& exchange) {
    const ToldEntry& told = *exchange.told;
    BeginSubject(InQuotes(exchange.entry), exchange.session);
    std::shared_ptr<HostResponse> response;
    const std::int32_t failure = NumberRaisedBy([&] { response = Session(exchange.session)->Send(told.entry, true); });
    if (!HaveSucceeded(told.error, failure)) {
      return;
    }
    PlayReadings(exchange, *response);
    if (told.response) {
      const std::u16string entry = response->HostCommand();
      if (entry != told.response->entry) {
        TellOf(u"the response named another entry");
      }
      CompareNumbers(u"the response's type", told.response->type, response->ResponseType());
      CompareNumbers(u"the number of columns", told.response->columns, response->NumberOfColumns());
      CompareNumbers(u"the number of lines", told.response->lines, response->NumberOfLines());
      if (!exchange.buffer.empty()) {
        Compare(u"the response's text", exchange.text, response->Text());
      }
    }
  }

  void PlayReadings(const Exchange& exchange, HostResponse& response) {
    for (const Readings& readings : exchange.told->readings) {
      const std::u16string_view recorded = hiding_.Screen(readings.buffer, ColumnsOf(*exchange.told));
      for (std::int64_t i = 0; readings.byTheProgram && i < readings.times; ++i) {
        const std::u16string replayed = response.Buffer();
        if (recorded != replayed) {
          TellOf(u"the buffer differs");
          return;
        }
      }
    }
    if (!exchange.buffer.empty()) {
      Compare(u"the buffer", exchange.buffer, response.Buffer());
    }
  }

  // --- PNRs ----------------------------------------------------------------------------------------------------------

  void Play(const Reading& reading) {
    BeginSubject(reading.IsOfDisplay() ? Own(u"the PNR on display") : Own(u"the PNR of ") + InQuotes(reading.entry),
                 reading.session);
    const auto pnr = world_.MakePnr();
    Value status;
    const std::int32_t failure = NumberRaisedBy([&] {
      std::vector<Value> arguments{Session(reading.session)->HostConnection()};
      if (reading.IsOfDisplay()) {
        status = pnr->Call(ById(simulator::kPnrRetrieveCurrent), arguments);
      } else {
        arguments.emplace_back(std::u16string(*reading.told->entry));
        pnr->Call(ById(simulator::kPnrRetrieve), arguments);
      }
    });
    if (!HaveSucceeded(reading.Error(), failure)) {
      return;
    }
    if (reading.IsOfDisplay()) {
      CompareNumbers(u"the status", reading.told->pnr.status, ToInt32(status));
    }
    Compare(u"the display", reading.content->display,
            ToText(pnr->Get(ById(simulator::kPnrDisplayText)), world_.Texts()));
    CompareHeader(*reading.content, *pnr);
    for (const auto& [id, elements] : reading.content->collections) {
      CompareCollection(*CollectionOf(id), elements, *pnr);
    }
  }

  void CompareHeader(const PnrContent& content, simulator::SimulatedPnr& pnr) {
    const ObjectRef header = ToObjectOrNothing(pnr.Get(ById(simulator::kPnrHeader)));
    if (content.header.has_value() != (header != nullptr)) {
      // When a retrieval found no PNR, the simulator's PNR object has a header without text. The terminal's PNR object
      // may then have no header; this counts as no difference.
      if (!content.IsEmpty()) {
        TellOf(content.header ? u"it has no header in a replay" : u"it has a header in a replay");
      }
      return;
    }
    for (const simulator::Property& property : simulator::kHeaderProperties) {
      if (header != nullptr) {
        CompareProperty(*content.header, property.name, *header, u"the header");
      }
    }
  }

  void CompareCollection(const Collection& collection, const std::vector<ReadObject>& elements,
                         simulator::SimulatedPnr& pnr) {
    const ObjectRef replayed = ToObject(pnr.Get(Member::Id(collection.id)));
    const std::int32_t count = ToInt32(replayed->Get(ById(simulator::kCollectionCount)));
    CompareNumbers(u"the number of " + std::u16string(collection.name), static_cast<std::int64_t>(elements.size()),
                   count);
    for (std::int32_t i = 0; i < count && static_cast<std::size_t>(i) < elements.size(); ++i) {
      const std::vector<Value> position{i + 1};
      const ObjectRef element = ToObject(replayed->Call(ById(simulator::kCollectionItem), position));
      CompareElement(collection, elements[static_cast<std::size_t>(i)], i + 1, *element);
    }
  }

  void CompareElement(const Collection& collection, const ReadObject& recorded, std::int32_t position,
                      AutomationObject& replayed) {
    const std::u16string which = std::u16string(collection.name) + u" " + DecimalText(position);
    for (const simulator::Property& property : collection.elementType.properties) {
      if (property.id == simulator::kCarPassengers && &collection.elementType == &simulator::kCarSegment) {
        ComparePassengers(recorded.passengers, replayed, which);
      } else {
        CompareProperty(recorded, property.name, replayed, which);
      }
    }
    const auto is = [&](SegmentType type, simulator::SegmentKind kind) {
      if (replayed.Is(type) != (recorded.kind == kind)) {
        TellOf(which + u" is another kind of segment in a replay");
      }
    };
    if (&collection.elementType == &simulator::kAirSegment) {
      is(SegmentType::Timed, simulator::SegmentKind::Timed);
      is(SegmentType::Untimed, simulator::SegmentKind::Open);
    }
  }

  void CompareProperty(const ReadObject& recorded, std::u16string_view name, AutomationObject& replayed,
                       const std::u16string& which) {
    const auto found = recorded.properties.find(std::u16string(name));
    const Value before = found == recorded.properties.end() ? Value() : found->second;
    if (!AreAlike(before, replayed.Get(Member::Name(name)))) {
      TellOf(std::u16string(name) + u" of " + which + u" differs");
    }
  }

  void ComparePassengers(const std::vector<Value>& recorded, AutomationObject& replayed, const std::u16string& which) {
    std::vector<Value> numbers;
    const ObjectRef association = ToObject(replayed.Get(Member::Id(simulator::kCarPassengers)));
    const ObjectRef passengers = ToObject(association->Get(Member::Name(u"Passengers")));
    const auto walk = passengers->Walk();
    for (ObjectRef passenger = walk->Next(); passenger != nullptr; passenger = walk->Next()) {
      numbers.push_back(passenger->Get(Member::Name(u"ElementNo")));
    }
    if (!std::ranges::equal(recorded, numbers, AreAlike)) {
      TellOf(u"Passengers of " + which + u" differ");
    }
  }

  static ObjectRef ToObjectOrNothing(const Value& value) {
    const auto* object = value.As<ObjectRef>();
    return object == nullptr ? nullptr : *object;
  }

  simulator::World world_;
  const Story& story_;
  RecordingHiding& hiding_;
  std::u16string subject_;
  Answers<std::u16string> differences_;
};

}  // namespace

std::vector<std::u16string> Rehearse(std::string_view scenario, const Story& story, RecordingHiding& hiding) {
  return Rehearsal(scenario, story, hiding).Run();
}

}  // namespace wendrill::recording
