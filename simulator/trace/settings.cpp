#include "trace/settings.h"

#include "common/error.h"

namespace wendrill::trace {
namespace {

[[noreturn]] void Reject(std::u16string description) {
  throw Error(static_cast<std::int32_t>(RunTimeError::InvalidCall), u"QuilletSimulator", std::move(description));
}

bool TimesAreOn(std::u16string_view text, std::u16string_view name) {
  if (text != u"on" && text != u"off" && !text.empty()) {
    Reject(std::u16string(name) + u" must be on or off, not \"" + std::u16string(text) + u"\".");
  }
  return text != u"off";
}

std::set<redaction::Kind> KeptKinds(std::u16string_view text, std::u16string_view name) {
  if (text.empty()) {
    return {};
  }
  std::u16string wrong;
  const auto kinds = redaction::KindsIn(text, wrong);
  if (!kinds) {
    Reject(std::u16string(name) + u" takes names, cards, contacts and remarks, joined with commas, not \"" + wrong +
           u"\".");
  }
  return *kinds;
}

}  // namespace

Settings SettingsOf(std::u16string_view file, std::u16string_view times, std::u16string_view kept,
                    std::u16string_view timesName, std::u16string_view keptName) {
  return {std::filesystem::path(std::u16string(file)), TimesAreOn(times, timesName), KeptKinds(kept, keptName)};
}

}  // namespace wendrill::trace
