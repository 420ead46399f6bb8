// The rows of the table, as script/bench reads them.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "measure.h"

namespace wendrill::com::bench {

struct Row {
  std::string what;
  std::string beside;  // what the reference is
  Costs costs;
  std::optional<double> atMost = std::nullopt;  // what our cost may be, as a multiple of the reference's
};

// Writes the rows as JSON; false when the file cannot be written.
bool WriteRows(const std::vector<Row>& rows, const std::string& path);

}  // namespace wendrill::com::bench
