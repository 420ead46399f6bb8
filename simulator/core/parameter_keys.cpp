#include "core/parameter_keys.h"

#include <algorithm>
#include <span>
#include <vector>

#include "core/nearest.h"

namespace wendrill::simulator {
namespace {

// kReadKeys are the keys that the library reads from a parameter bag. kKinds are the kinds of elements that the library
// knows. The unit tests compare both lists with the library's source.
constexpr std::u16string_view kReadKeys[] = {
    u"blnKeyClear", u"blnKeyGetAll",  u"blnKeyPNR",    u"blnKeyTST",
    u"intKeyIndex", u"strKeyCommand", u"strKeyFind()", u"strKeyPNRElement",
};

constexpr std::u16string_view kKinds[] = {
    u"ALL", u"ATX", u"ES", u"FA", u"FE", u"FH", u"FS", u"HTL", u"INS", u"MCO", u"MIS", u"OSI", u"SSR", u"SUR", u"* SP",
};

std::u16string WithNearest(const std::u16string& text, std::u16string_view name,
                           std::span<const std::u16string_view> known) {
  const auto nearest = NearestName(name, known);
  return nearest.empty() ? text : text + u"; nearest: " + std::u16string(nearest);
}

}  // namespace

bool IsParameterKey(std::u16string_view key) {
  return std::find(std::begin(kReadKeys), std::end(kReadKeys), key) != std::end(kReadKeys);
}

std::u16string UnreadKeyWarning(std::u16string_view key) {
  return WithNearest(u"nothing reads " + std::u16string(key), key, kReadKeys);
}

std::u16string UnknownKindWarning(const Value& kind) {
  const auto* name = kind.As<std::u16string>();
  if (name == nullptr || std::find(std::begin(kKinds), std::end(kKinds), *name) != std::end(kKinds)) {
    return {};
  }
  return WithNearest(u"there is no kind of element " + *name, *name, kKinds);
}

}  // namespace wendrill::simulator
