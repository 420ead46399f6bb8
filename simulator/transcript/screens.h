// The screens of a run: which rows of a screen changed, and which earlier screen an event shows again.
#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace wendrill::transcript {

using Rows = std::vector<std::string>;

// A screen that an event shows, compared with the screen that its session showed before the event.
struct ShownScreen {
  std::shared_ptr<const Rows> rows;
  bool isFirst = false;              // true: the first screen of its session, of which no row counts as changed
  std::vector<std::size_t> changed;  // the numbers of changed, added and removed rows, counted from 1, ascending
};

// The row with the index `at`, counted from 0, without the blanks at its end; empty when `rows` has no such index.
std::string_view RowAt(const Rows& rows, std::size_t at);

// The numbers of the rows that differ between two screens, counted from 1, in ascending order. Blanks at the end of a
// row are ignored, and a row that only one screen has counts as blank in the other screen.
std::vector<std::size_t> ChangedRows(const Rows& before, const Rows& after);

// Row numbers as text, with three or more consecutive numbers shortened to a range, such as: 1, 3 to 5
std::string RowList(const std::vector<std::size_t>& rows);

// The screens of one run: the current screen of each session, and the screen of each event that has a screen and a
// number.
class Screens {
 public:
  // Shows a new screen: `rows` becomes the current screen of the session, and is stored as the screen of the event
  // `number` (not stored when `number` is nullopt). Returns the screen, compared with the screen that the session
  // showed before.
  ShownScreen Show(std::string_view session, std::optional<std::int64_t> number, Rows rows);

  // Shows the screen of the earlier event `same` again: this screen becomes the current screen of the session, and is
  // stored also as the screen of the event `number`. Returns the screen, compared with the screen that the session
  // showed before. Returns nullopt and changes nothing when no event with the number `same` has a screen.
  std::optional<ShownScreen> ShowAgain(std::string_view session, std::optional<std::int64_t> number, std::int64_t same);

 private:
  ShownScreen Show(std::string_view session, std::optional<std::int64_t> number, std::shared_ptr<const Rows> rows);

  std::map<std::string, std::shared_ptr<const Rows>, std::less<>> current_;  // keyed by the name of the session
  std::map<std::int64_t, std::shared_ptr<const Rows>> byNumber_;             // keyed by the number of the event
};

}  // namespace wendrill::transcript
