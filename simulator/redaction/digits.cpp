#include "redaction/digits.h"

#include <algorithm>

#include "derive/required_layout.h"

namespace wendrill::redaction {
namespace {

constexpr std::size_t kLeastDigits = 13;
constexpr std::size_t kMostDigits = 19;

bool IsBreak(char16_t character) {
  return character == u'\r' || character == u'\n';
}

}  // namespace

std::u16string DigitRun::In(TextView text) const {
  std::u16string digits;
  for (const std::size_t place : places) {
    digits += text[place];
  }
  return digits;
}

std::optional<DigitRun> DigitRuns::Next() {
  while (position_ < text_.size() && !IsDigitAt(position_)) {
    ++position_;
  }
  if (position_ == text_.size()) {
    return std::nullopt;
  }
  DigitRun run;
  run.groups.push_back(0);
  for (;;) {
    const bool isInRow = run.places.empty() || !BeginsRow(position_);
    const bool isJoint =
        isInRow && position_ < text_.size() && (text_[position_] == kBlank || text_[position_] == u'-');
    if (isInRow && IsDigitAt(position_)) {
      run.places.push_back(position_++);
      ++run.groups.back();
    } else if (isJoint && IsDigitAt(position_ + 1) && !BeginsRow(position_ + 1)) {
      run.groups.push_back(0);
      ++position_;
    } else if (const std::size_t next = InNextRow(position_, run.groups.back()); next > 0) {
      position_ = next;
      while (IsDigitAt(position_) && !(position_ > next && BeginsRow(position_))) {
        run.places.push_back(position_++);
        ++run.groups.back();
      }
    } else {
      return run;
    }
  }
}

// The index at which a group of digits continues in the next row; 0 when the group does not continue in the next row.
// `end` is the index after the last digit of the group, and `digits` is the number of digits of the group before `end`.
std::size_t DigitRuns::InNextRow(std::size_t end, std::size_t digits) const {
  std::size_t next = layout_ == Layout::OneLine ? TextView::npos : text_.find_first_not_of(kBlank, end);
  if (next == TextView::npos) {
    return 0;
  }
  std::size_t row = (end + kRowWidth - 1) / kRowWidth * kRowWidth;
  if (layout_ == Layout::Lines) {
    if (!IsBreak(text_[next])) {
      return 0;
    }
    row = next + (text_.substr(next, 2) == u"\r\n" ? 2 : 1);
    next = text_.find_first_not_of(kBlank, row);
  }
  const bool isIndented = next != TextView::npos && next >= row + simulator::kContinuationIndent.size() &&
                          (layout_ == Layout::Lines || next < row + kRowWidth);
  for (std::size_t at = next; isIndented && IsDigitAt(at) && digits <= kMostDigits; ++at) {
    ++digits;
  }
  return isIndented && IsDigitAt(next) && digits >= kLeastDigits && digits <= kMostDigits ? next : 0;
}

std::vector<DigitPart> CardParts(const std::vector<std::size_t>& groups) {
  constexpr std::size_t kLeastFirst = 4;
  constexpr std::size_t kLeastInGroup = 3;
  constexpr std::size_t kMostInGroup = 8;
  std::vector<DigitPart> parts;
  std::size_t first = 0;
  for (std::size_t at = 0; at < groups.size();) {
    if (groups[at] >= kLeastDigits && groups[at] <= kMostDigits) {
      parts.push_back({first, groups[at], true});
    }
    std::size_t end = at;
    std::size_t total = 0;
    if (groups[at] >= kLeastFirst && groups[at] <= kMostInGroup) {
      for (; end < groups.size() && groups[end] >= kLeastInGroup && groups[end] <= kMostInGroup; ++end) {
        total += groups[end];
      }
      if (end < groups.size() && groups[end] < kLeastInGroup) {
        total += groups[end++];
      }
    }
    for (std::size_t group = at, begin = first; total >= kLeastDigits && group < end;) {
      std::size_t count = 0;
      for (; group < end && count + groups[group] <= kMostDigits; ++group) {
        count += groups[group];
      }
      parts.push_back({begin, count, count >= kLeastDigits});
      begin += count;
    }
    end = std::max(end, at + 1);
    for (; at < end; ++at) {
      first += groups[at];
    }
  }
  return parts;
}

}  // namespace wendrill::redaction
