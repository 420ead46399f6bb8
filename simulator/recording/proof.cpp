#include "recording/proof.h"

#include <algorithm>
#include <map>
#include <variant>
#include <vector>

#include "common/text.h"
#include "core/scenario.h"
#include "core/toml_document.h"
#include "recording/recording_hiding.h"
#include "recording/scenario_text.h"
#include "redaction/letters.h"
#include "redaction/pseudonyms.h"

namespace wendrill::recording {
namespace {

using simulator::TomlArray;
using simulator::TomlTable;

bool HoldsDigit(std::u16string_view text) {
  return std::ranges::any_of(text, IsDigit);
}

class Search {
 public:
  explicit Search(const std::set<std::u16string>& tokens) {
    for (const std::u16string& token : tokens) {
      if (HoldsDigit(token)) {
        numbers_[token.size()].insert(token);
      } else {
        names_.insert(token);
      }
    }
  }

  // Whether the text contains one of the numbers. Compares only at the digits of the text, because every number begins
  // with a digit.
  bool FindsNumber(std::u16string_view text) const {
    for (std::size_t begin = 0; begin < text.size(); ++begin) {
      const auto isHere = [&](const auto& numbers) {
        return numbers.second.contains(text.substr(begin, numbers.first));
      };
      if (IsDigit(text[begin]) && std::ranges::any_of(numbers_, isHere)) {
        return true;
      }
    }
    return false;
  }

  bool FindsName(std::u16string_view text) const {
    redaction::LetterWords words(text);
    for (auto word = words.Next(); word; word = words.Next()) {
      if (names_.contains(redaction::Capitals(word->In(text)))) {
        return true;
      }
    }
    return false;
  }

  // Visitors for the values of a TOML document: whether a string, or a string in an array or table, contains a token.
  bool operator()(const std::u16string& text) const { return FindsName(text) || FindsNumber(text); }
  bool operator()(const TomlArray& array) const {
    return std::ranges::any_of(array, [this](const auto& node) { return std::visit(*this, node.content); });
  }
  bool operator()(const TomlTable& table) const {
    return std::ranges::any_of(table, [this](const auto& entry) { return std::visit(*this, entry.node.content); });
  }
  template <typename Other>
  bool operator()(const Other& /*content*/) const {
    return false;
  }

 private:
  std::set<std::u16string> names_;
  std::map<std::size_t, redaction::TextSet> numbers_;  // by length
};

bool IsInScreens(const simulator::Scenario& scenario, const Search& search) {
  const auto isIn = [&search](std::u16string_view buffer, std::size_t columns) {
    const std::u16string lines = RowsAsLines(buffer, columns);
    return search.FindsNumber(lines) || search.FindsName(lines);
  };
  for (const simulator::ScenarioReply& reply : scenario.replies) {
    for (const auto& answer : reply.answers) {
      for (const simulator::Screen& page : answer->pages) {
        if (isIn(page.buffer, static_cast<std::size_t>(answer->columns))) {
          return true;
        }
      }
    }
  }
  return std::ranges::any_of(scenario.pnrs,
                             [&isIn](const simulator::ScenarioPnr& pnr) { return isIn(pnr.display, kRowWidth); });
}

bool IsInComments(std::u16string_view text, const Search& search) {
  const std::u16string head = FromUtf8(kNotReproduced);
  for (DisplayLines lines(text); !lines.AtEnd();) {
    const TextView line = lines.Next();
    if (StartsWith(line, head) && search.FindsName(line.substr(head.size()))) {
      return true;
    }
  }
  return false;
}

}  // namespace

bool HoldsToken(std::string_view scenario, const std::set<std::u16string>& tokens) {
  const Search search(tokens);
  const std::u16string text = FromUtf8(scenario);
  constexpr std::u16string_view kName = u"recording";
  return search.FindsNumber(text) || IsInComments(text, search) ||
         search(simulator::ParseToml(scenario, simulator::TomlSource{std::u16string(kName)})) ||
         IsInScreens(*simulator::ParseScenario(scenario, kName), search);
}

}  // namespace wendrill::recording
