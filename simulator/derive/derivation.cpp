#include "derive/derivation.h"

#include <algorithm>
#include <bitset>
#include <span>
#include <string_view>
#include <utility>

#include "derive/dates.h"
#include "derive/own_layout.h"
#include "derive/rows.h"
#include "derive/segments.h"
#include "derive/words.h"

namespace wendrill::simulator {
namespace {

constexpr TextView kNameKeyword = u"NAME";
constexpr TextView kAirKeyword = u"AIR";

std::u16string Quoted(TextView text) {
  return u"\"" + std::u16string(text) + u"\"";
}

const Keyword* FindIn(std::span<const Keyword> table, TextView word) {
  const auto found = std::ranges::find(table, word, &Keyword::word);
  return found == table.end() ? nullptr : &*found;
}

const Keyword* FindKnown(TextView word) {
  static constexpr Keyword kManualTicket = {kManualTicketKeyword, kInElementsAlone};
  if (StartsWith(word, kManualTicketKeyword)) {
    return &kManualTicket;
  }
  const Keyword* required = FindIn(kRequiredKeywords, word);
  return required != nullptr ? required : FindIn(kOwnKeywords, word);
}

const ObjectType& TypeOf(std::int32_t collection) {
  const auto* found = std::ranges::find(kCollections, collection, &Collection::id);
  return found == std::end(kCollections) ? kPlainElement : found->elementType;
}

// Reads a creation line: office, agent and date, separated by slashes. nullopt for a row that does not match the
// pattern "?????????/?*/##AAA##", in which ? is any character, * any number of characters, # a digit and A a letter.
std::optional<DerivedCreation> CreationIn(TextView row) {
  const std::size_t lastSlash = row.rfind(u'/');
  const bool hasThreeFields = row.size() > kCreationOfficeWidth && row[kCreationOfficeWidth] == u'/' &&
                              lastSlash > kCreationOfficeWidth + 1 && lastSlash != TextView::npos;
  if (!hasThreeFields) {
    return std::nullopt;
  }
  constexpr std::size_t kDateWidth = 7;
  const auto day = WholeDay(row.substr(lastSlash + 1));
  if (!day || !day->year || day->width != kDateWidth) {
    return std::nullopt;
  }
  return DerivedCreation{
      .office = row.substr(0, kCreationOfficeWidth),
      .agent = row.substr(kCreationOfficeWidth + 1, lastSlash - kCreationOfficeWidth - 1),
      .date = Years(std::nullopt).DateNear(*day, 0),
  };
}

bool IsLocator(TextView text) {
  return std::ssize(text) == kLocatorColumns.count &&
         std::ranges::all_of(text, [](char16_t each) { return IsCapital(each) || IsDigit(each); });
}

class Derivation {
 public:
  Derivation(TextView display, const DerivationSettings& settings, DerivedPnr& pnr)
      : display_(display), settings_(settings), pnr_(pnr), prompts_(display, kPrompt) {}

  void Run() {
    for (DisplayLines lines(display_); !lines.AtEnd();) {
      ++row_;
      ReadRow(lines.Next());
    }
    FinishPending();
    if (pnr_.header.row == 0) {
      pnr_.header.line = TrimmedRight(DisplayLines(display_).Next());
      Warn(1, u"no row begins with \"RP/\": the display has no header");
    }
  }

 private:
  enum class Pending { None, Names, Element, Ignored };

  void Warn(std::int32_t row, std::u16string text) { pnr_.warnings.push_back({row, std::move(text)}); }

  // --- Rows ----------------------------------------------------------------------------------------------------------

  void ReadRow(TextView line) {
    WarnOfPrompt(line);
    const TextView row = TrimmedRight(line);
    const bool followsSecurity = securityRows_ > 0;
    securityRows_ -= followsSecurity ? 1 : 0;
    if (row.empty()) {
      FinishPending();
    } else if (!Continues(row) && !BeginsPart(row) && !IsWithoutElement(row) && !followsSecurity) {
      FinishPending();
      Warn(row_, u"the row is neither an element nor a name nor a continuation: " + Quoted(row));
    }
  }

  // Warns of a prompt that comes before the first empty line of the display: such a prompt makes the library's counts
  // of SSR and FS elements 0. Warns at most once. A prompt in the first line of the display causes no warning.
  void WarnOfPrompt(TextView line) {
    hasEnded_ = hasEnded_ || line.empty();
    if (!hasEnded_ && row_ > 1 && prompts_.IsIn(line)) {
      hasEnded_ = true;
      Warn(row_, u"the row has the prompt \"> \": the counts of SSR and FS will be 0, as required");
    }
  }

  bool Continues(TextView row) {
    const bool isIndented = StartsWith(row, kContinuationIndent);
    if (pending_ == Pending::None || !(isIndented || IsTicketingOfDocument(row))) {
      return false;
    }
    if (pending_ != Pending::Ignored) {
      Join(Trimmed(row));
    }
    return true;
  }

  // Whether the element that is being read is an MCO document and the row is one of its ticketing rows. A ticketing row
  // is indented by at least three blanks and has no number. An indented row with a number is an element of its own.
  bool IsTicketingOfDocument(TextView row) const {
    return pending_ == Pending::Element && StartsWith(row, kTicketingIndent) && !NumberedRowOf(row) &&
           StartsWith(TrimmedLeft(text_.substr(number_.size())), kGluedKeyword);
  }

  bool BeginsPart(TextView row) {
    if (StartsWith(row, kContinuationIndent)) {
      return false;
    }
    const auto numbered = NumberedRowOf(row);
    if (!numbered) {
      return false;
    }
    if (BeginsGroup(numbered->rest)) {
      Begin(Pending::Ignored, row, {});
    } else if (BeginsName(numbered->rest)) {
      Begin(Pending::Names, row, numbered->number);
    } else if (BeginsElement(numbered->rest)) {
      Begin(Pending::Element, row, numbered->number);
    } else {
      return false;
    }
    return true;
  }

  // Returns true when the row is of a kind that contains no element: header, creation line, split party, security
  // entries, status row or prompt. A header or a creation line is also read into pnr_. Returns false, without any
  // effect, for any other row.
  bool IsWithoutElement(TextView row) {
    if (pnr_.header.row == 0 && StartsWith(row, kHeaderMark)) {
      FinishPending();
      ReadHeader(row);
      return true;
    }
    if (row_ == pnr_.header.row + 1 && pnr_.header.row > 0) {
      if (auto creation = CreationIn(row)) {
        pnr_.creation = *creation;
        return true;
      }
    }
    if (StartsWith(row, kSecurityMark)) {
      Begin(Pending::Ignored, row, {});
      securityRows_ = std::ranges::count(row, u'/') < 2 ? kMostSecurityEntries - 1 : 0;
      return true;
    }
    if (StartsWith(TrimmedLeft(row), kSplitPartyMark)) {
      Begin(Pending::Ignored, row, {});
      return true;
    }
    const bool isStatus = pnr_.header.row == 0 && StartsWith(row, kStatusMark);
    if (isStatus || row.front() == kPrompt.front()) {
      FinishPending();
      return true;
    }
    return false;
  }

  void ReadHeader(TextView row) {
    DerivedHeader& header = pnr_.header;
    header.row = row_;
    header.line = row;
    header.officeId = Trimmed(Columns(row, kOfficeColumns));
    header.queueOffice = Trimmed(Columns(row, kQueueOfficeColumns));
    header.updateTime = Trimmed(Columns(row, kUpdateTimeColumns));
    if (const TextView locator = Columns(row, kLocatorColumns); IsLocator(locator)) {
      header.recordLocator = locator;
    }
    const TextView written = Trimmed(Columns(row, kHeaderDateColumns));
    if (const auto day = WholeDay(written); day && day->year) {
      header.date = Years(std::nullopt).DateNear(*day, 0);
      if (!header.date) {
        Warn(row_, Quoted(written) + u" is no date");
      }
    }
  }

  // --- Parts: one name row or element with its continuations ---------------------------------------------------------

  void Begin(Pending what, TextView row, TextView number) {
    FinishPending();
    pending_ = what;
    text_ = TrimmedLeft(row);
    number_ = number;
    firstRow_ = row_;
    joined_ = nullptr;
  }

  void Join(TextView row) {
    if (joined_ == nullptr) {
      joined_ = &pnr_.joined.emplace_back(text_);
      joining_ = pending_ == Pending::Element ? JoiningOf(text_.substr(number_.size())) : Joining::OneBlank;
    }
    if (joining_ == Joining::Padded) {
      joined_->resize((joined_->size() + kRowWidth - 1) / kRowWidth * kRowWidth, kBlank);
    } else {
      joined_->push_back(kBlank);
    }
    joined_->append(row);
  }

  static Joining JoiningOf(TextView body) {
    const Keyword* keyword = FindKnown(LettersAtStartOf(WordAtStartOf(TrimmedLeft(body))));
    return keyword == nullptr ? Joining::OneBlank : keyword->joining;
  }

  void FinishPending() {
    const Pending finished = std::exchange(pending_, Pending::None);
    if (joined_ != nullptr) {
      text_ = *joined_;
      joined_ = nullptr;
    }
    if (finished == Pending::Names) {
      FinishNames();
    } else if (finished == Pending::Element) {
      FinishElement();
    }
  }

  DerivedElement& Add(TextView text, TextView number) {
    CheckNumber(number);
    DerivedElement& element = pnr_.elements.emplace_back();
    element.row = firstRow_;
    element.contents[0] = text;
    element.contents[1] = number;
    return element;
  }

  void CheckNumber(TextView text) {
    std::int32_t number = 0;
    for (const char16_t digit : text) {
      number = number * 10 + (digit - u'0');
    }
    auto seen = seen_[static_cast<std::size_t>(number)];
    if (seen) {
      Warn(firstRow_, u"the number " + std::u16string(text) + u" is there twice");
    } else if (number != last_ + 1) {
      Warn(firstRow_, u"the number " + std::u16string(text) + u" comes after " + DecimalText(last_));
    }
    seen = true;
    last_ = number;
  }

  // --- Names ---------------------------------------------------------------------------------------------------------

  void FinishNames() {
    TextView rest = text_;
    while (!rest.empty()) {
      const std::size_t end = EndOfName(rest);
      AddName(TrimmedRight(rest.substr(0, end)));
      rest.remove_prefix(end);
    }
  }

  // The index at which the second name in `names` begins; the length of `names` when there is no second name. The
  // second name begins with a number of at most three digits and a point. At least one blank precedes the number;
  // inside parentheses, at least two blanks.
  static std::size_t EndOfName(TextView names) {
    int depth = 0;
    for (std::size_t at = EndOfDigits(names) + 1; at < names.size(); ++at) {
      depth += names[at] == u'(' ? 1 : 0;
      depth -= names[at] == u')' && depth > 0 ? 1 : 0;
      const bool afterBlank = names[at - 1] == kBlank && (depth == 0 || names[at - 2] == kBlank);
      if (afterBlank && IsDigit(names[at])) {
        constexpr std::size_t kMostDigits = 3;
        const TextView rest = names.substr(at);
        const std::size_t digits = EndOfDigits(rest.substr(0, kMostDigits));
        if (BeginsName(rest.substr(digits))) {
          return at;
        }
      }
    }
    return names.size();
  }

  void AddName(TextView text) {
    const TextView number = text.substr(0, EndOfDigits(text));
    DerivedElement& element = Add(text, number);
    element.collection = kNamesCollection;
    element.type = &kNameElement;
    element.keyword = kNameKeyword;
    const TextView name = Trimmed(Before(text.substr(number.size() + 1), kPassengerTypeMark));
    element.contents[PlaceIn<kNameProperties>(u"LastName")] = Trimmed(Before(name, u"/"));
    if (const std::ptrdiff_t slash = ColumnOf(name, u"/"); slash > 0) {
      element.contents[PlaceIn<kNameProperties>(u"Initial")] = Trimmed(FromColumn(name, slash + 1));
    }
  }

  // --- Elements ------------------------------------------------------------------------------------------------------

  void FinishElement() {
    const TextView afterNumber = text_.substr(number_.size());
    const TextView body = TrimmedLeft(afterNumber);
    DerivedElement& element = Add(text_, number_);
    if (StartsWith(afterNumber, kAirIndent)) {
      if (const auto air = AirSegmentIn(body)) {
        element.keyword = kAirKeyword;
        element.collection = kAllAirSegments;
        element.type = &kAirSegment;
        StoreAirSegment(*air, element);
        return;
      }
    }
    const TextView word = WordAtStartOf(body);
    element.keyword = word;
    element.collection = CollectionOf(word);
    if (element.collection != kInElementsAlone) {
      element.type = &TypeOf(element.collection);
      StoreProperties(TrimmedLeft(body.substr(word.size())), element);
    }
  }

  // The DISPID of the collection for the keyword `word`. The first rule that finds a collection decides:
  // - settings_.keywords has the whole word;
  // - settings_.keywords has the capital letters at the start of the word;
  // - FindKnown knows these letters.
  //
  // Otherwise, adds a warning of an unknown keyword and returns kInElementsAlone.
  std::int32_t CollectionOf(TextView word) {
    if (const auto set = settings_.keywords.find(word); set != settings_.keywords.end()) {
      return set->second;
    }
    const TextView letters = LettersAtStartOf(word);
    if (const auto set = settings_.keywords.find(letters); set != settings_.keywords.end()) {
      return set->second;
    }
    const Keyword* known = FindKnown(letters);
    if (known == nullptr) {
      Warn(firstRow_, word.empty() ? u"the element has no keyword: it is in Elements alone"
                                   : u"unknown keyword " + Quoted(word) + u": the element is in Elements alone");
      return kInElementsAlone;
    }
    return known->collection;
  }

  void StoreAirSegment(const AirSegmentParts& parts, DerivedElement& element) {
    element.kind = parts.kind;
    StoreIfShown<kAirProperties>(u"BoardPoint", parts.boardPoint, element);
    StoreIfShown<kAirProperties>(u"OffPoint", parts.offPoint, element);
    StoreIfShown<kAirProperties>(u"Class", parts.bookingClass, element);
    StoreIfShown<kAirProperties>(u"DepartureTime", parts.departureTime, element);
    StoreIfShown<kAirProperties>(u"ArrivalTime", parts.arrivalTime, element);
    StoreIfShown<kAirProperties>(u"DayChange", parts.dayChange, element);
    StoreDate<kAirProperties>(u"DepartureDate", parts.date, element, parts.weekday);
  }

  // Stores in `element` those properties of the element's type that `body`, the text after the keyword, shows.
  void StoreProperties(TextView body, DerivedElement& element) {
    if (element.type == &kCarSegment) {
      StoreCar(body, element);
    } else if (element.type == &kHotelSegment) {
      StoreHotel(body, element);
    } else if (element.type == &kTicketElement) {
      const TicketParts parts = TicketPartsIn(body);
      StoreIfShown<kTicketProperties>(u"Action", parts.action, element);
      StoreDate<kTicketProperties>(u"Date", parts.date, element);
    } else if (element.type == &kCommissionElement) {
      StoreIfShown<kCommissionProperties>(u"Percent", PercentIn(body), element);
    } else if (element.type == &kRemarkElement) {
      element.contents[PlaceIn<kRemarkProperties>(u"FreeFlow")] = body;
    } else if (element.type == &kAirSegment) {
      element.kind = SegmentKind::Other;
    }
  }

  void StoreCar(TextView body, DerivedElement& element) {
    CarParts parts = CarPartsIn(body);
    StoreIfShown<kCarProperties>(u"PickUpCity", parts.city, element);
    StoreDate<kCarProperties>(u"PickUpDate", parts.pickUp, element);
    StoreDate<kCarProperties>(u"DropOffDate", parts.dropOff, element);
    StoreIfShown<kCarProperties>(u"CarType", parts.type, element);
    StoreIfShown<kCarProperties>(u"ConfirmationNo", ConfirmationIn(body), element);
    element.contents[PlaceIn<kCarProperties>(u"Passengers")] = PassengersIn(body);
  }

  void StoreHotel(TextView body, DerivedElement& element) {
    const HotelParts parts = HotelPartsIn(body);
    StoreIfShown<kHotelProperties>(u"City", parts.city, element);
    StoreDate<kHotelProperties>(u"CheckinDate", parts.checkIn, element);
    StoreDate<kHotelProperties>(u"CheckoutDate", parts.checkOut, element);
    StoreIfShown<kHotelProperties>(u"RoomRateCode", parts.rateCode, element);
    StoreIfShown<kHotelProperties>(u"ConfirmationNo", ConfirmationIn(body), element);
  }

  template <const auto& Properties>
  static void StoreIfShown(PropertyName<Properties> name, TextView text, DerivedElement& element) {
    if (!text.empty()) {
      element.contents[name.Place()] = text;
    }
  }

  // --- Dates ---------------------------------------------------------------------------------------------------------

  // Stores the date of `written`, a day as the display shows it, under the property `name`. Stores nothing when
  // `written` is not a day. Adds a warning and stores nothing when the year of the day cannot be found or the date does
  // not exist.
  template <const auto& Properties>
  void StoreDate(PropertyName<Properties> name, TextView written, DerivedElement& element, std::int32_t weekday = 0) {
    const auto day = WholeDay(written);
    if (!day) {
      return;
    }
    if (!years_) {
      years_.emplace(DateOfDisplay());
    }
    if (const auto date = years_->DateNear(*day, weekday)) {
      element.contents[name.Place()] = *date;
    } else {
      WarnOfDate(written, *day, weekday);
    }
  }

  std::optional<CalendarDay> DateOfDisplay() const {
    if (settings_.date) {
      return settings_.date;
    }
    const auto& date = pnr_.header.date ? pnr_.header.date : pnr_.creation.date;
    return date ? std::optional(DayOf(*date)) : std::nullopt;
  }

  void WarnOfDate(TextView written, const WrittenDay& day, std::int32_t weekday) {
    constexpr std::int32_t kSomeLeapYear = 2000;
    const WrittenDay inLeapYear = {.day = day.day, .month = day.month, .year = kSomeLeapYear};
    if (day.year || !years_->DateNear(inLeapYear, 0)) {
      Warn(firstRow_, Quoted(written) + u" is no date");
    } else if (!years_->HasDate()) {
      Warn(firstRow_, u"the year of " + Quoted(written) + u" is not known: the display has no date");
    } else if (weekday != 0) {
      Warn(firstRow_, u"in no year near the date of the display " + Quoted(written) + u" is day " +
                          DecimalText(weekday) + u" of the week");
    } else {
      Warn(firstRow_, u"no year near the date of the display has a " + Quoted(written));
    }
  }

  static constexpr std::int32_t kNamesCollection = 2;
  static constexpr std::size_t kNumbers = 10000;  // element numbers have at most four digits

  TextView display_;
  const DerivationSettings& settings_;
  DerivedPnr& pnr_;
  MarkInLines prompts_;
  bool hasEnded_ = false;  // an empty line or a prompt was found: WarnOfPrompt searches no further
  std::int32_t row_ = 0;
  std::int32_t securityRows_ = 0;  // how many of the next rows may contain security entries

  // The part that is being read: a name row with its continuations, an element with its continuations, or ignored rows.
  Pending pending_ = Pending::None;
  TextView text_;    // the first row of the part; when the part is finished, all its rows
  TextView number_;  // the number of the element, or of the first name in the row
  std::int32_t firstRow_ = 0;
  std::u16string* joined_ = nullptr;  // the rows of the part so far, joined; null while the part has only one row
  Joining joining_ = Joining::OneBlank;

  std::bitset<kNumbers> seen_;  // the element numbers read so far
  std::int32_t last_ = 0;       // the element number read last
  std::optional<Years> years_;  // nullopt until the first date is read
};

}  // namespace

DerivedPnr Derive(TextView display, const DerivationSettings& settings) {
  DerivedPnr pnr;
  Derivation(display, settings, pnr).Run();
  return pnr;
}

bool Holds(const Collection& collection, const DerivedElement& element) {
  if (collection.id == kAllElements) {
    return true;
  }
  if (collection.kind != SegmentKind::None) {
    return collection.kind == element.kind;
  }
  return collection.id == element.collection;
}

std::int32_t CollectionOfKeywords(std::u16string_view name) {
  const auto* found = std::ranges::find(kCollections, name, &Collection::name);
  if (found == std::end(kCollections)) {
    return kInElementsAlone;
  }
  const auto brings = [found](const Keyword& keyword) { return keyword.collection == found->id; };
  return std::ranges::any_of(kRequiredKeywords, brings) || std::ranges::any_of(kOwnKeywords, brings) ? found->id
                                                                                                     : kInElementsAlone;
}

}  // namespace wendrill::simulator
