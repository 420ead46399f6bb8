#include "records.h"

#include <algorithm>

#include "common/error.h"
#include "common/param_bag.h"
#include "common/text_forms.h"
#include "derive/dates.h"
#include "pnr/creation_line.h"
#include "pnr/header.h"
#include "pnr_object.h"
#include "scan/display_scans.h"
#include "toolkit/clock.h"
#include "toolkit/message_pump.h"
#include "toolkit/platform.h"

namespace wendrill::tool {
namespace {

using simulator::DerivedElement;
using simulator::SegmentKind;

// A parameter bag that appends every key and value it receives to a record.
class RecordBag final : public ParamBag {
 public:
  explicit RecordBag(Record& record) : record_(record) {}
  void Set(std::u16string_view key, const Value& value) override { record_.emplace_back(key, value); }
  Value Get(std::u16string_view /*key*/) override { return {}; }

 private:
  Record& record_;
};

std::u16string TwoDigits(std::int32_t number) {
  return {static_cast<char16_t>(u'0' + number / 10), static_cast<char16_t>(u'0' + number % 10)};
}

TextView NameOf(SegmentKind kind) {
  switch (kind) {
    case SegmentKind::Timed:
      return u"timed";
    case SegmentKind::Open:
      return u"open";
    case SegmentKind::Flown:
      return u"flown";
    default:
      return u"other";
  }
}

// The text helper service that formats dates: with Keys::Bag as the host writes them, which is what the library
// expects; with Keys::Plain as in ISO 8601 (2008-06-15). Text that is not a date stays unchanged with Keys::Plain.
class DateHelper final : public TextHelperService {
 public:
  explicit DateHelper(Keys keys) : keys_(keys) {}

  std::int32_t TerminalReady() override { return 0; }
  std::int32_t HostReady() override { return 0; }
  std::u16string TerminalVersion() override { return {}; }
  std::u16string HostDateText(const Value& date) override {
    if (keys_ == Keys::Bag) {
      return HostDateTextOf(date, UsTextForms());
    }
    if (const auto* day = date.As<Date>()) {
      return IsoDate(*day);
    }
    std::u16string text = ToText(date, UsTextForms());
    const auto day = UsTextForms().DateOf(text);
    return day ? IsoDate(*day) : text;
  }

 private:
  Keys keys_;
};

}  // namespace

// The ports that the library's accessors need besides a PNR. Only the text helper works: there is no terminal, so that
// creating any other object raises RunTimeError::CannotCreateObject.
class RecordReader::Environment final : public Platform, public Clock, public MessagePump {
 public:
  explicit Environment(Keys keys) : keys_(keys) {}

  ModuleState& State() { return state_; }

  std::shared_ptr<HostSessionList> CreateSessionList() override { Raise(RunTimeError::CannotCreateObject); }
  std::shared_ptr<HostSession> CreateSession() override { Raise(RunTimeError::CannotCreateObject); }
  ObjectRef CreatePnr() override { Raise(RunTimeError::CannotCreateObject); }
  std::shared_ptr<AlarmManager> CreateAlarmManager() override { Raise(RunTimeError::CannotCreateObject); }
  std::shared_ptr<TextHelperService> CreateTextHelper() override { return std::make_shared<DateHelper>(keys_); }
  ParamBagRef CreateParamBag() override { Raise(RunTimeError::CannotCreateObject); }
  double SecondsSinceMidnight() override { return 0; }
  void Sleep(std::chrono::milliseconds /*duration*/) override {}
  bool RunOnce() override { return false; }

 private:
  Keys keys_;
  ModuleState state_{*this, *this, *this, UsTextForms()};
};

std::u16string IsoDate(const Date& date) {
  const CalendarDay day = DayOf(date);
  std::u16string year = DecimalText(day.year);
  year.insert(0, 4 - std::min<std::size_t>(year.size(), 4), u'0');
  return year + u"-" + TwoDigits(day.month) + u"-" + TwoDigits(day.day);
}

RecordReader::RecordReader(Keys keys) : keys_(keys), environment_(std::make_unique<Environment>(keys)) {
  for (const DisplayKind* kind : kDisplayKinds) {
    arrays_.emplace_back(kind->keys);
  }
}

RecordReader::~RecordReader() = default;

std::optional<Unreadable> RecordReader::Read(TextView display) {
  constexpr std::size_t kMostRows = 32767;  // the library's row numbers are signed 16-bit integers
  if (display.size() > kMostRows * kRowWidth) {
    return Unreadable{0, u"the display has more than 32,767 rows"};
  }
  display_ = display;
  pnr_ = simulator::Derive(display);
  if (pnr_.header.row == 0) {
    return Unreadable{1, u"no row begins with \"RP/\": this is no display of a PNR"};
  }
  const auto& date = pnr_.header.date ? pnr_.header.date : pnr_.creation.date;
  date_ = date ? std::optional(DayOf(*date)) : std::nullopt;
  environment_->State().gobjPNR = PnrObject(display_, pnr_);
  return std::nullopt;
}

std::span<const Record> RecordReader::RecordsOf(const Section& section) {
  inUse_ = 0;
  if (const auto* accessor = std::get_if<const Accessor*>(&section.source)) {
    ReadWith(**accessor, keys_ == Keys::Plain);
  } else if (const auto* kind = std::get_if<const DisplayKind*>(&section.source)) {
    if (Contains(display_, section.mark)) {
      ReadWith(**kind);
    }
  } else {
    ReadWith(std::get<NumberAndText>(section.source));
  }
  return std::span(records_).first(inUse_);
}

Record& RecordReader::NewRecord() {
  if (inUse_ == records_.size()) {
    records_.emplace_back();
  }
  Record& record = records_[inUse_++];
  record.clear();
  return record;
}

// Reads the elements of the accessor's collection: all of them when `everyElement` is true, else those that the
// accessor counts. With `everyElement`, the record of an air segment also has its kind, and a segment of the kind Other
// has only text and number: it has no columns of a flight.
void RecordReader::ReadWith(const Accessor& accessor, bool everyElement) {
  const auto* collection = std::ranges::find(simulator::kCollections, static_cast<std::int32_t>(accessor.collection),
                                             &simulator::Collection::id);
  for (const DerivedElement& element : pnr_.elements) {
    if (!Holds(*collection, element)) {
      continue;
    }
    const ObjectRef object = ElementObject(element);
    if (!everyElement && !accessor.counted(*object)) {
      continue;
    }
    Record& record = NewRecord();
    if (everyElement && element.kind != SegmentKind::None) {
      record.emplace_back(kKindKey, NameOf(element.kind));
    }
    if (everyElement && element.kind == SegmentKind::Other) {
      record.emplace_back(u"strKeySegment", element.Text());
      record.emplace_back(u"strKeySegmentNr", element.Number());
      continue;
    }
    RecordBag bag(record);
    try {
      StoreRecord(environment_->State(), accessor, object, bag);
    } catch (const Error& error) {
      pnr_.warnings.push_back(
          {element.row, u"reading the element raises " + DecimalText(error.Number()) + u": " + error.Description()});
    }
  }
}

void RecordReader::ReadWith(const DisplayKind& kind) {
  ElementArrays& arrays =
      arrays_[static_cast<std::size_t>(std::ranges::find(kDisplayKinds, &kind) - kDisplayKinds.begin())];
  arrays.Reset();
  std::int32_t count = 0;
  try {
    DisplayReader reader(display_);
    count = RunScan(kind, reader, environment_->State(), arrays);
  } catch (const Error& error) {
    pnr_.warnings.push_back({0, u"counting " + FromUtf8(kind.Name()) + u" raises " + DecimalText(error.Number()) +
                                    u": " + error.Description()});
  }
  // The arrays of some kinds begin at index 1: element 0 is empty.
  const std::int32_t first = count > 0 && arrays.UpperBound() == count ? 1 : 0;
  for (std::int32_t index = first; index < first + count; ++index) {
    Record& record = NewRecord();
    for (std::size_t key = 0; key < kind.keys.size(); ++key) {
      record.emplace_back(kind.keys[key].name, arrays.At(key, index));
    }
  }
}

void RecordReader::ReadWith(const NumberAndText& source) {
  for (const DerivedElement& element : pnr_.elements) {
    if (element.collection == source.collection) {
      Record& record = NewRecord();
      record.emplace_back(u"strKeyElement", element.Text());
      record.emplace_back(u"strKeyElementNr", element.Number());
    }
  }
}

Record RecordReader::HeaderRecord() {
  Record record;
  StorePnrHeader(environment_->State(), std::make_shared<RecordBag>(record));
  return record;
}

TextView RecordReader::CreationLine() const {
  return CreationLineIn(display_);
}

std::optional<std::u16string> RecordReader::IsoDay(TextView written) const {
  const auto day = simulator::WholeDay(written);
  const auto date = day ? simulator::Years(date_).DateNear(*day, 0) : std::nullopt;
  return date ? std::optional(IsoDate(*date)) : std::nullopt;
}

}  // namespace wendrill::tool
