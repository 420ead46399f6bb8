// The rows of the table that script/bench prints, and the JSON file through which script/bench receives them.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "measure.h"

namespace wendrill::com::bench {

struct Row {
  std::string what;    // the library's work that is measured
  std::string beside;  // the reference's work that it is compared with
  Costs costs;
  std::optional<double> atMost = std::nullopt;  // the limit of ours / reference; nullopt when there is no limit
};

// Writes the rows as JSON. Returns false when the file cannot be written.
bool WriteRows(const std::vector<Row>& rows, const std::string& path);

}  // namespace wendrill::com::bench
