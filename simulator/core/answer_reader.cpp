#include "common/text.h"
#include "core/scenario_parts.h"

namespace wendrill::simulator {
namespace {

constexpr char16_t kNoScreen[] = u"";

// The texts of the screens that an answer shows. They depend on the key that the table has:
//   - `screen`: its text;
//   - `pages`: the text of each page;
//   - `never`: one empty text;
//   - `error`: no text (an empty vector);
//   - none of these keys: one text, `fallback`.
std::vector<PlacedText> ReadShown(const TableReader& table, const char16_t* fallback) {
  if (auto screen = table.Block(u"screen")) {
    return {std::move(*screen)};
  }
  if (table.Has(u"pages")) {
    return table.Blocks(u"pages");
  }
  if (table.Flag(u"never")) {
    return {{kNoScreen, 0, 0}};
  }
  if (table.Failure(u"error") != 0) {
    return {};
  }
  return {{fallback, 0, 0}};
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

std::shared_ptr<ScenarioAnswer> ReadAnswer(const TableReader& table, const char16_t* fallback) {
  auto answer = std::make_shared<ScenarioAnswer>();
  answer->line = table.Line();
  answer->type = table.Whole(u"type");
  answer->text = table.OptionalText(u"text");
  answer->columns = static_cast<std::int16_t>(table.Whole(u"columns"));
  answer->lines = static_cast<std::int16_t>(table.Whole(u"lines"));
  answer->late = table.Whole(u"late");
  answer->after = table.Number(u"after");
  answer->never = table.Flag(u"never");
  answer->error = table.Failure(u"error");
  const bool raw = table.Flag(u"raw");
  for (const PlacedText& block : ReadShown(table, fallback)) {
    answer->pages.push_back(ScreenOf(table, block, static_cast<std::size_t>(answer->columns), raw));
  }
  return answer;
}

Circumstances ReadCircumstances(const TableReader& table) {
  return {table.OptionalText(u"session"), table.OptionalText(u"when")};
}

}  // namespace wendrill::simulator
