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

// A screen, compared with the screen that its session showed before.
struct ShownScreen {
  std::shared_ptr<const Rows> rows;
  bool isFirst = false;              // the first screen of its session: no row counts as changed
  std::vector<std::size_t> changed;  // the numbers of the changed and the removed rows, from 1, ascending
};

// The row with the index `at`, counted from 0, without the blanks at its end; empty when there is no such row.
std::string_view RowAt(const Rows& rows, std::size_t at);

// The numbers of the rows that differ, counted from 1, in ascending order. Blanks at the end of a row are ignored.
std::vector<std::size_t> ChangedRows(const Rows& before, const Rows& after);

// Row numbers as text, with consecutive numbers joined: 1, 3 to 5
std::string RowList(const std::vector<std::size_t>& rows);

class Screens {
 public:
  // Records the screen of event `number` as the one that the session shows now. Returns the screen, compared with the
  // one that the session showed before.
  ShownScreen Show(std::string_view session, std::optional<std::int64_t> number, Rows rows);

  // Does what Show does, with the screen of event `same`; nullopt when no event of the number `same` has a screen.
  std::optional<ShownScreen> ShowAgain(std::string_view session, std::optional<std::int64_t> number, std::int64_t same);

 private:
  ShownScreen Show(std::string_view session, std::optional<std::int64_t> number, std::shared_ptr<const Rows> rows);

  std::map<std::string, std::shared_ptr<const Rows>, std::less<>> current_;
  std::map<std::int64_t, std::shared_ptr<const Rows>> byNumber_;
};

}  // namespace wendrill::transcript
