// The readers of a scenario's tables.
#pragma once

#include <memory>

#include "core/scenario.h"
#include "core/table_reader.h"

namespace wendrill::simulator {

// Reads the keys that every table with an answer has. `fallback` is the screen for a table that has none of screen,
// pages, never and error.
std::shared_ptr<ScenarioAnswer> ReadAnswer(const TableReader& table, const char16_t* fallback);

// The keys that say in which session and state a reply or PNR answers.
Circumstances ReadCircumstances(const TableReader& table);

// One [[pnr]] with all its collections.
ScenarioPnr ReadPnr(const TableReader& table);

}  // namespace wendrill::simulator
