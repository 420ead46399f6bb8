#include "transcript/screens.h"

#include <algorithm>
#include <utility>

namespace wendrill::transcript {
std::string_view RowAt(const Rows& rows, std::size_t at) {
  const std::string_view row = at < rows.size() ? std::string_view(rows[at]) : std::string_view();
  return row.substr(0, row.find_last_not_of(' ') + 1);
}

std::vector<std::size_t> ChangedRows(const Rows& before, const Rows& after) {
  std::vector<std::size_t> changed;
  for (std::size_t at = 0; at < std::max(before.size(), after.size()); ++at) {
    if (RowAt(before, at) != RowAt(after, at)) {
      changed.push_back(at + 1);
    }
  }
  return changed;
}

std::string RowList(const std::vector<std::size_t>& rows) {
  std::string list;
  for (auto row = rows.begin(); row != rows.end();) {
    const std::size_t first = *row;
    std::size_t last = first;
    while (++row != rows.end() && *row == last + 1) {
      last = *row;
    }
    list += (list.empty() ? "" : ", ") + std::to_string(first);
    if (last > first) {
      list += (last == first + 1 ? ", " : " to ") + std::to_string(last);
    }
  }
  return list;
}

ShownScreen Screens::Show(std::string_view session, std::optional<std::int64_t> number,
                          std::shared_ptr<const Rows> rows) {
  std::shared_ptr<const Rows>& current = current_[std::string(session)];
  ShownScreen shown{rows, current == nullptr, current ? ChangedRows(*current, *rows) : std::vector<std::size_t>()};
  current = rows;
  if (number) {
    byNumber_[*number] = std::move(rows);
  }
  return shown;
}

ShownScreen Screens::Show(std::string_view session, std::optional<std::int64_t> number, Rows rows) {
  return Show(session, number, std::make_shared<const Rows>(std::move(rows)));
}

std::optional<ShownScreen> Screens::ShowAgain(std::string_view session, std::optional<std::int64_t> number,
                                              std::int64_t same) {
  const auto found = byNumber_.find(same);
  return found == byNumber_.end() ? std::nullopt : std::optional(Show(session, number, found->second));
}

}  // namespace wendrill::transcript
