// The screens of a run: which rows of one changed, and which screen an event repeats.
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

// A screen beside the one that its session showed before.
struct ShownScreen {
  std::shared_ptr<const Rows> rows;
  bool isFirst = false;              // of its session: no row counts as changed
  std::vector<std::size_t> changed;  // rows, counted from 1, in ascending order; rows that went are counted too
};

// A row, counted from 0, without the blanks at its end; empty after the last.
std::string_view RowAt(const Rows& rows, std::size_t at);

// The rows that differ, counted from 1. Blanks at the end of a row do not count.
std::vector<std::size_t> ChangedRows(const Rows& before, const Rows& after);

// 1, 3 to 5
std::string RowList(const std::vector<std::size_t>& rows);

class Screens {
 public:
  // The screen of event `number`, which becomes the one that its session shows.
  ShownScreen Show(std::string_view session, std::optional<std::int64_t> number, Rows rows);

  // The screen of event `same` again, for event `number`; nullopt when there is no such event.
  std::optional<ShownScreen> ShowAgain(std::string_view session, std::optional<std::int64_t> number, std::int64_t same);

 private:
  ShownScreen Show(std::string_view session, std::optional<std::int64_t> number, std::shared_ptr<const Rows> rows);

  std::map<std::string, std::shared_ptr<const Rows>, std::less<>> current_;
  std::map<std::int64_t, std::shared_ptr<const Rows>> byNumber_;
};

}  // namespace wendrill::transcript
