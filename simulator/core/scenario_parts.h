// The readers of a scenario's tables.
#pragma once

#include <memory>

#include "core/scenario.h"
#include "core/table_reader.h"

namespace wendrill::simulator {

// Reads the keys that every table with an answer has. They are the last keys of the table: this function also finishes
// the table. `fallback` is the screen for a table that has neither screen, pages nor error; without a fallback such a
// table is rejected.
std::shared_ptr<const ScenarioAnswer> ReadAnswer(TableReader& table, const char16_t* fallback);

// One [[pnr]] with all its collections.
ScenarioPnr ReadPnr(TableReader& table);

}  // namespace wendrill::simulator
