#include "core/printed_checks.h"

#include <algorithm>
#include <nlohmann/json.hpp>
#include <string_view>

namespace wendrill::doctor {
namespace {

constexpr const char* kStates[] = {"ok", "warn", "missing"};

const char* NameOf(State state) {
  return kStates[static_cast<int>(state)];
}

std::string Padded(std::string text, std::size_t width) {
  text.resize(std::max(text.size(), width), ' ');
  return text;
}

// The text with blanks inserted at the start of every line but the first.
std::string Indented(const std::string& text, std::size_t blanks) {
  std::string indented;
  for (const char letter : text) {
    indented += letter;
    if (letter == '\n') {
      indented.append(blanks, ' ');
    }
  }
  return indented;
}

std::string Counted(std::ptrdiff_t count, const char* one, const char* many) {
  return std::to_string(count) + " " + (count == 1 ? one : many);
}

std::string ClosingLine(const Checks& checks) {
  const auto countOf = [&checks](State state) {
    return std::count_if(checks.begin(), checks.end(), [state](const Check& check) { return check.state == state; });
  };
  return Counted(countOf(State::Missing), "thing is", "things are") + " missing, " +
         Counted(countOf(State::Warn), "warning", "warnings") + ".\n";
}

}  // namespace

std::string Table(const Checks& checks) {
  std::size_t nameWidth = std::string_view("check").size();
  for (const Check& check : checks) {
    nameWidth = std::max(nameWidth, check.name.size());
  }
  constexpr std::size_t kStateWidth = 7;
  const auto row = [nameWidth](const std::string& name, const char* state, const std::string& found) {
    return Padded(name, nameWidth) + "  " + Padded(state, kStateWidth) + "  " + found + "\n";
  };
  std::string table = row("check", "state", "found") +
                      row(std::string(nameWidth, '-'), std::string(kStateWidth, '-').c_str(), std::string(5, '-'));
  for (const Check& check : checks) {
    table += row(check.name, NameOf(check.state), check.found);
    if (!check.whatToDo.empty()) {
      table += "    -> " + Indented(check.whatToDo, 7) + "\n";
    }
  }
  return table + "\n" + ClosingLine(checks);
}

std::string Json(const Checks& checks) {
  nlohmann::ordered_json report;
  report["checks"] = nlohmann::ordered_json::array();
  for (const Check& check : checks) {
    report["checks"].push_back({{"check", check.name},
                                {"found", check.found},
                                {"state", NameOf(check.state)},
                                {"what_to_do", check.whatToDo}});
  }
  report["status"] = static_cast<int>(StateOf(checks));
  // A path may contain an unpaired surrogate. JSON shows a replacement character for it.
  return report.dump(2, ' ', false, nlohmann::json::error_handler_t::replace) + "\n";
}

}  // namespace wendrill::doctor
