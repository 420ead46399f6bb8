#include "core/packed_entry.h"

#include <algorithm>

#include "common/text.h"

namespace wendrill::simulator {
namespace {

constexpr char16_t kSeparator = u';';
constexpr std::u16string_view kNeverPacked[] = {u"RC", u"OS", u"SR"};

}  // namespace

std::vector<std::u16string_view> PartsOf(std::u16string_view entry) {
  const bool isPacked =
      HoldsSeparator(entry) && std::none_of(std::begin(kNeverPacked), std::end(kNeverPacked),
                                            [entry](std::u16string_view head) { return StartsWith(entry, head); });
  std::vector<std::u16string_view> parts;
  while (isPacked && !entry.empty()) {
    const std::size_t end = std::min(entry.find(kSeparator), entry.size());
    if (end > 0) {
      parts.push_back(entry.substr(0, end));
    }
    entry.remove_prefix(std::min(end + 1, entry.size()));
  }
  return parts;
}

bool HoldsSeparator(std::u16string_view text) {
  return text.find(kSeparator) != std::u16string_view::npos;
}

}  // namespace wendrill::simulator
