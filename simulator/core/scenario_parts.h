// The readers of a scenario's tables.
#pragma once

#include <memory>

#include "core/scenario.h"
#include "core/table_reader.h"

namespace wendrill::simulator {

// What stands in every table that answers an entry. Asks for the table's last keys and finishes it. `fallback` is the
// screen of a table that gives neither screen, pages nor error; without a fallback such a table is refused.
std::shared_ptr<const ScenarioAnswer> ReadAnswer(TableReader& table, const char16_t* fallback);

// One [[pnr]] with all its collections.
ScenarioPnr ReadPnr(TableReader& table);

}  // namespace wendrill::simulator
