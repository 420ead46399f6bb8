// The rows of the table that script/bench prints, and the JSON file through which script/bench receives them.
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace wendrill::bench {

struct Costs {
  double ours = 0;  // the time of the library's work
  double reference = 0;
};

struct Row {
  std::string what;    // the library's work that is measured
  std::string beside;  // the reference's work that it is compared with
  Costs costs;
  std::optional<double> atMost = std::nullopt;  // the limit of ours / reference; nullopt when there is no limit
  const char* unit = "ns";
};

// Writes the rows as JSON. Returns false when the file cannot be written.
bool WriteRows(const std::vector<Row>& rows, const std::string& path);

}  // namespace wendrill::bench
