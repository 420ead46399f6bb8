#include "report.h"

#include <fstream>

namespace wendrill::bench {
namespace {

// Writes a row as a JSON object. The texts of rows contain no characters that JSON escapes.
void WriteRow(std::ostream& out, const Row& row) {
  out << "  {\"what\": \"" << row.what << "\", \"beside\": \"" << row.beside << "\", \"unit\": \"" << row.unit
      << "\", \"ours\": " << row.costs.ours << ", \"reference\": " << row.costs.reference;
  if (row.atMost) {
    out << ", \"at_most\": " << *row.atMost;
  }
  out << '}';
}

}  // namespace

bool WriteRows(const std::vector<Row>& rows, const std::string& path) {
  std::ofstream out(path);
  const char* separator = "\n";
  out << '[';
  for (const Row& row : rows) {
    out << separator;
    WriteRow(out, row);
    separator = ",\n";
  }
  out << "\n]\n";
  return static_cast<bool>(out.flush());
}

}  // namespace wendrill::bench
