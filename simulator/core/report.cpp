#include "core/report.h"

#include <algorithm>

namespace wendrill::simulator {

std::u16string RunReport::Text() const {
  return {};
}

std::vector<std::u16string> RunReport::Unanswered() const {
  return {};
}

std::vector<std::u16string> RunReport::Unused() const {
  return {};
}

std::vector<std::u16string> RunReport::Warnings() const {
  return warnings_;
}

std::int32_t RunReport::Findings() const {
  return static_cast<std::int32_t>(warnings_.size());
}

bool RunReport::StrictAsked() const {
  return false;
}

void RunReport::Warn(std::u16string_view warning) {
  if (std::find(warnings_.begin(), warnings_.end(), warning) == warnings_.end()) {
    warnings_.emplace_back(warning);
  }
}

}  // namespace wendrill::simulator
