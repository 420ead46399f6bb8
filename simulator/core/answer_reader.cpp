#include "common/text.h"
#include "core/scenario_parts.h"

namespace wendrill::simulator {
namespace {

constexpr std::int32_t kLargestScreen = 32767;  // columns and lines are 16-bit
constexpr std::int32_t kMostLateReads = 1'000'000;

// The blocks of text of an answer: its pages, or its one screen.
struct Shown {
  std::optional<PlacedText> screen;
  std::vector<PlacedText> pages;
  bool paged = false;
};

Shown ReadShown(TableReader& table) {
  Shown shown;
  shown.screen = table.Block(u"screen");
  shown.paged = table.Has(u"pages");
  shown.pages = table.Blocks(u"pages");
  if (shown.screen) {
    shown.pages.insert(shown.pages.begin(), *shown.screen);
  }
  return shown;
}

void CheckOneOfThem(const TableReader& table, const Shown& shown, bool fails, const char16_t* fallback) {
  const int given = int{shown.screen.has_value()} + int{shown.paged} + int{fails};
  if (given > 1 || (given == 0 && fallback == nullptr)) {
    table.Refuse(table.Title() + u" needs one of \"screen\", \"pages\" and \"error\", and no more than one");
  }
  if (shown.paged && shown.pages.empty()) {
    table.RefuseKey(u"pages", u"must hold at least one page");
  }
}

void CheckWidth(const TableReader& table, const PlacedText& block, std::size_t columns) {
  if (const auto wide = FirstLineWiderThan(block.text, columns)) {
    const auto width = static_cast<std::int64_t>(LinesOfBlock(block.text)[*wide].size());
    table.RefuseAt(block.LineOfFile(*wide), u"row " + DecimalText(static_cast<std::int64_t>(*wide) + 1) +
                                                u" of a screen in " + table.Title() + u" has " + DecimalText(width) +
                                                u" characters, the screen " +
                                                DecimalText(static_cast<std::int64_t>(columns)) + u" columns");
  }
}

Screen ScreenOf(const TableReader& table, const PlacedText& block, std::size_t columns, bool raw) {
  if (raw) {
    return RawScreen(block.text, columns);
  }
  CheckWidth(table, block, columns);
  return PaddedScreen(block.text, columns);
}

}  // namespace

std::shared_ptr<const ScenarioAnswer> ReadAnswer(TableReader& table, const char16_t* fallback) {
  auto answer = std::make_shared<ScenarioAnswer>();
  Shown shown = ReadShown(table);
  answer->type = table.Whole(u"type", answer->type);
  answer->text = table.OptionalText(u"text");
  answer->columns = static_cast<std::int16_t>(table.Whole(u"columns", answer->columns, 1, kLargestScreen));
  answer->lines = static_cast<std::int16_t>(table.Whole(u"lines", answer->lines, 0, kLargestScreen));
  answer->late = table.Whole(u"late", answer->late, 0, kMostLateReads);
  answer->error = table.Failure(u"error");
  const bool raw = table.Flag(u"raw", false);
  table.Finish();
  CheckOneOfThem(table, shown, answer->error != 0, fallback);
  if (shown.pages.empty() && answer->error == 0) {
    shown.pages.push_back({fallback, 0, 0});
  }
  for (const PlacedText& block : shown.pages) {
    answer->pages.push_back(ScreenOf(table, block, static_cast<std::size_t>(answer->columns), raw));
  }
  return answer;
}

}  // namespace wendrill::simulator
