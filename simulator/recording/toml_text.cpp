#include "recording/toml_text.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <limits>

#include "common/host_date.h"
#include "common/text.h"
#include "core/gate.h"
#include "core/screen.h"

namespace wendrill::recording {
namespace {

constexpr std::string_view kLiteralQuotes = "'''";
constexpr std::string_view kBasicQuotes = R"(""")";

bool IsControl(char16_t character) {
  return character < 0x20 || character == 0x7F;
}

// Returns the text with an escape for each double quote, backslash and control character, as TOML needs it between
// double quotes. A tab is escaped too, although TOML permits it.
std::u16string Escaped(std::u16string_view text) {
  constexpr std::u16string_view kHexDigits = u"0123456789ABCDEF";
  std::u16string escaped;
  for (const char16_t each : text) {
    if (each == u'"' || each == u'\\') {
      escaped.append(1, u'\\').append(1, each);
    } else if (each == u'\n') {
      escaped.append(u"\\n");
    } else if (each == u'\r') {
      escaped.append(u"\\r");
    } else if (IsControl(each)) {
      escaped.append(u"\\u00").append(1, kHexDigits[each >> 4U]).append(1, kHexDigits[each & 0xFU]);
    } else {
      escaped.push_back(each);
    }
  }
  return escaped;
}

bool FitsLiteral(std::u16string_view row) {
  return !Contains(row, u"'''") && std::none_of(row.begin(), row.end(), IsControl);
}

std::string DoubleLiteral(double number) {
  if (std::isnan(number)) {
    return "nan";
  }
  if (std::isinf(number)) {
    return number < 0 ? "-inf" : "inf";
  }
  char digits[32];
  const auto end = std::to_chars(std::begin(digits), std::end(digits), number).ptr;
  std::string text(std::begin(digits), end);
  return text.find_first_of(".e") == std::string::npos ? text + ".0" : text;
}

// A time of day: the number of units since midnight (`parts`), and the number of units in a second (`partsPerSecond`).
struct TimeOfDay {
  std::int64_t parts;
  std::int64_t partsPerSecond;

  // The time as a fraction of a day, calculated exactly as the reader of scenarios calculates it.
  double Fraction() const {
    constexpr double kSecondsPerDay = 86400;
    constexpr std::int64_t kNanosecondsPerSecond = 1'000'000'000;
    const std::int64_t seconds = parts / partsPerSecond;
    const std::int64_t nanoseconds = parts % partsPerSecond * (kNanosecondsPerSecond / partsPerSecond);
    return (static_cast<double>(seconds) +
            static_cast<double>(nanoseconds) / static_cast<double>(kNanosecondsPerSecond)) /
           kSecondsPerDay;
  }

  std::string Text() const {
    const std::int64_t seconds = parts / partsPerSecond;
    char text[16];
    std::snprintf(text, sizeof text, "%02d:%02d:%02d", static_cast<int>(seconds / 3600),
                  static_cast<int>(seconds / 60 % 60), static_cast<int>(seconds % 60));
    std::string result = text;
    if (partsPerSecond > 1) {
      std::string fraction = std::to_string(partsPerSecond + parts % partsPerSecond);
      fraction.front() = '.';
      result += fraction;
    }
    return result;
  }
};

// Returns the shortest TOML value that the reader of scenarios converts to exactly this date. If there is no such
// value, returns the nearest value with nanoseconds. On day 0 (30 December 1899), a time other than midnight becomes a
// time of day without a date. Returns nullopt for a date outside the years 1 to 9999.
std::optional<std::string> DateLiteral(const Date& date) {
  constexpr double kFirstDay = -693593;  // 1 January of the year 1
  constexpr double kLastDay = 2958465;   // 31 December 9999
  constexpr double kSecondsPerDay = 86400;
  const double day = std::trunc(date.days);
  if (!(day >= kFirstDay && day <= kLastDay)) {  // this condition is also true for NaN
    return std::nullopt;
  }
  const double fraction = std::abs(date.days - day);
  TimeOfDay time{};
  for (const std::int64_t perSecond : {1LL, 1'000LL, 1'000'000LL, 1'000'000'000LL}) {
    const auto most = static_cast<std::int64_t>(kSecondsPerDay) * perSecond - 1;
    time = {std::min<std::int64_t>(std::llround(fraction * kSecondsPerDay * static_cast<double>(perSecond)), most),
            perSecond};
    if ((day < 0 ? day - time.Fraction() : day + time.Fraction()) == date.days) {
      break;
    }
  }
  if (day == 0 && fraction != 0) {
    return time.Text();
  }
  const CalendarDay calendar = DayOf(Date{day});
  char text[16];
  std::snprintf(text, sizeof text, "%04d-%02d-%02d", calendar.year, calendar.month, calendar.day);
  return fraction == 0 ? std::string(text) : std::string(text) + "T" + time.Text();
}

std::string RowsText(std::u16string_view buffer, std::size_t columns) {
  std::vector<std::u16string_view> rows;
  for (; !buffer.empty(); buffer.remove_prefix(columns)) {
    rows.push_back(TrimmedRight(buffer.substr(0, columns)));
  }
  if (rows.size() == 1 && !rows.front().empty()) {
    return Quoted(rows.front());
  }
  return Block(rows);
}

}  // namespace

std::string Quoted(std::u16string_view text) {
  return "\"" + ToUtf8(Escaped(text)) + "\"";
}

std::string Block(const std::vector<std::u16string_view>& rows) {
  if (rows.empty()) {
    return "''";
  }
  const bool isLiteral = std::all_of(rows.begin(), rows.end(), FitsLiteral);
  const std::string_view quotes = isLiteral ? kLiteralQuotes : kBasicQuotes;
  std::string text(quotes);
  text += "\n";
  for (const std::u16string_view row : rows) {
    text += ToUtf8(isLiteral ? std::u16string(row) : Escaped(row)) + "\n";
  }
  return text.append(quotes);
}

std::optional<std::string> Literal(const Value& value) {
  if (const auto* text = value.As<std::u16string>()) {
    return Quoted(*text);
  }
  if (const auto* truth = value.As<bool>()) {
    return *truth ? "true" : "false";
  }
  if (const auto* number = value.As<std::int16_t>()) {
    return std::to_string(*number);
  }
  if (const auto* number = value.As<std::int32_t>()) {
    return std::to_string(*number);
  }
  if (const auto* number = value.As<double>()) {
    return DoubleLiteral(*number);
  }
  if (const auto* date = value.As<Date>()) {
    return DateLiteral(*date);
  }
  return std::nullopt;
}

std::optional<std::string> ErrorLiteral(std::int32_t number) {
  if (simulator::FailureNumber(number) != number || number == 0) {
    return std::nullopt;
  }
  if (number > 0) {
    return std::to_string(number);
  }
  char text[16];
  std::snprintf(text, sizeof text, "0x%08X", static_cast<unsigned>(number));
  return text;
}

bool IsOfWholeRows(std::u16string_view buffer, std::size_t columns) {
  return columns > 0 && buffer.size() % columns == 0 && !HasLineBreak(buffer);
}

std::string TextOfScreen(std::u16string_view buffer, std::size_t columns, bool raw) {
  return raw ? Quoted(buffer) : RowsText(buffer, columns);
}

DisplayText TextOfDisplay(std::u16string_view display) {
  if (HasLineBreak(display)) {
    return {Block(simulator::LinesOfBlock(display)), true};
  }
  std::u16string padded(display);
  padded.resize((padded.size() + kRowWidth - 1) / kRowWidth * kRowWidth, kBlank);
  return {RowsText(padded, kRowWidth), false};
}

}  // namespace wendrill::recording
