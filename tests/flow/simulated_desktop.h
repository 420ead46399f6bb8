// A simulated desktop with the library on it.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <string>
#include <string_view>

#include "common/module_state.h"
#include "common/text.h"
#include "core/world.h"
#include "session/quillet.h"
#include "support/raises.h"

namespace wendrill::flow {

using testing::ErrorOf;
using testing::Raises;
using testing::RaisesNumber;

inline constexpr std::int32_t kUnspecifiedFailure = static_cast<std::int32_t>(0x80004005);

class SimulatedDesktop : public ::testing::Test {
 protected:
  void LoadText(std::u16string_view toml) { world.LoadText(toml, u"flow.toml"); }

  // One of the scenario files that come with the simulator.
  void LoadFile(const std::string& name) {
    world.Load((std::filesystem::path(TEST_DATA) / (name + ".toml")).u16string());
  }

  // A row of the screen.
  static std::u16string Row(std::u16string_view text) {
    std::u16string row(text);
    row.resize(kRowWidth, kBlank);
    return row;
  }

  // The journal's lines since it was last asked for, joined with "; ".
  std::string NewJournal() {
    std::u16string lines = world.Journal();
    world.ClearJournal();
    if (!lines.empty()) {
      lines.resize(lines.size() - 2);
    }
    return ToUtf8(Replaced(lines, u"\r\n", u"; "));
  }

  simulator::World world;
  ModuleState module{world.Ports(), world.Time(), world.Pump(), world.Texts()};
};

}  // namespace wendrill::flow
