// A desktop for one test, and the error that a refusal leaves.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "common/text.h"
#include "core/world.h"
#include "support/raises.h"

namespace wendrill::simulator {

using wendrill::testing::ErrorOf;
using wendrill::testing::RaisesNumber;

inline constexpr std::int32_t kUnspecifiedFailure = static_cast<std::int32_t>(0x80004005);

class SimulatedWorld : public ::testing::Test {
 protected:
  void Load(std::u16string_view toml) { world.LoadText(toml, u"test.toml"); }

  // A row of the screen.
  static std::u16string Row(std::u16string_view text, std::size_t columns = 80) {
    std::u16string row(text);
    row.resize(columns, u' ');
    return row;
  }

  World world;
};

// The description of the simulator's own error that the work raises; what is wrong when it raises another or none.
template <typename Work>
std::string Refusal(std::int32_t number, Work work) {
  const auto error = ErrorOf(std::move(work));
  if (!error) {
    return "nothing was raised";
  }
  if (error->Number() != number || error->Source() != u"QuilletSimulator") {
    return "raised " + std::to_string(error->Number()) + " from " + ToUtf8(error->Source());
  }
  return ToUtf8(error->Description());
}

}  // namespace wendrill::simulator
