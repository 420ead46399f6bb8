#include "core/toml_document.h"

#include <algorithm>

#include "common/error.h"
#include "common/host_date.h"
#include "common/text.h"
#include "core/gate.h"

#define TOML_EXCEPTIONS 1
#define TOML_ENABLE_FORMATTERS 0
#define TOML_ENABLE_WINDOWS_COMPAT 0  // the value 1 would include windows.h
#include <toml++/toml.h>

namespace wendrill::simulator {
namespace {

TomlNode NodeOf(const toml::node& node);

std::int32_t LineOfPosition(const toml::source_position& position) {
  return static_cast<std::int32_t>(position.line);
}

Date DayPart(const toml::date& date) {
  return DateOf({date.year, date.month, date.day});
}

double DayFraction(const toml::time& time) {
  constexpr double kSecondsPerDay = 86400;
  constexpr double kNanosecondsPerSecond = 1e9;
  return (time.hour * 3600 + time.minute * 60 + time.second + time.nanosecond / kNanosecondsPerSecond) / kSecondsPerDay;
}

// The automation date of a day and a time. Automation counts days from 30 December 1899. For an earlier day, the count
// is negative, and the time of day is subtracted from the count instead of added.
Date Moment(const toml::date& date, const toml::time& time) {
  const double day = DayPart(date).days;
  return {day < 0 ? day - DayFraction(time) : day + DayFraction(time)};
}

TomlTable TableOf(const toml::table& table) {
  struct Placed {
    toml::source_position position;
    TomlEntry entry;
  };
  std::vector<Placed> placed;
  for (const auto& [key, node] : table) {
    const toml::source_position position = key.source().begin;
    placed.push_back({position, {FromUtf8(key.str()), LineOfPosition(position), NodeOf(node)}});
  }
  std::stable_sort(placed.begin(), placed.end(),
                   [](const Placed& left, const Placed& right) { return left.position < right.position; });
  TomlTable entries;
  for (Placed& each : placed) {
    entries.push_back(std::move(each.entry));
  }
  return entries;
}

TomlArray ArrayOf(const toml::array& array) {
  TomlArray nodes;
  for (const toml::node& node : array) {
    nodes.push_back(NodeOf(node));
  }
  return nodes;
}

struct ContentOf {
  TomlNode& target;

  void operator()(const toml::table& table) const { target.content = TableOf(table); }
  void operator()(const toml::array& array) const { target.content = ArrayOf(array); }
  void operator()(const toml::value<std::string>& text) const { target.content = FromUtf8(text.get()); }
  void operator()(const toml::value<std::int64_t>& number) const { target.content = number.get(); }
  void operator()(const toml::value<double>& number) const { target.content = number.get(); }
  void operator()(const toml::value<bool>& truth) const { target.content = truth.get(); }
  void operator()(const toml::value<toml::date>& date) const { target.content = DayPart(date.get()); }
  void operator()(const toml::value<toml::time>& time) const { target.content = Date{DayFraction(time.get())}; }
  void operator()(const toml::value<toml::date_time>& moment) const {
    target.content = Moment(moment.get().date, moment.get().time);
  }
};

TomlNode NodeOf(const toml::node& node) {
  TomlNode result;
  result.line = LineOfPosition(node.source().begin);
  result.lastLine = LineOfPosition(node.source().end);
  node.visit(ContentOf{result});
  return result;
}

}  // namespace

void TomlSource::Refuse(std::int32_t line, std::u16string_view wrong) const {
  Fail(static_cast<std::int32_t>(RunTimeError::InvalidCall),
       name + u", line " + DecimalText(line) + u": " + std::u16string(wrong));
}

TomlTable ParseToml(std::string_view text, const TomlSource& source) {
  try {
    return TableOf(toml::parse(text));
  } catch (const toml::parse_error& error) {
    source.Refuse(LineOfPosition(error.source().begin), FromUtf8(error.description()));
  }
}

}  // namespace wendrill::simulator
