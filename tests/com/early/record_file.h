// The records under tests/com/records/: what each member of IGet and each kind of IGetPNR makes of a bag, on the PNR of
// simulator/scenarios/rich_pnr.toml.
//
//   [RemarkElement 0]
//   strKeyElement = "28 RM PAY AT AIRPORT/S5/P1"
//   strKeyPasAsso = "1"
//
// A member or a kind, the index, and all keys in the order in which they are set. A last line "error 2229" stands for
// what the call raises. Lines that begin with "#" and empty lines say nothing.
#pragma once

#include <filesystem>
#include <iosfwd>
#include <string>
#include <vector>

namespace wendrill::com::testing {

struct Record {
  std::string name;
  short index = 0;
  std::string keys;  // a line each
  int error = 0;     // 0 for none
};
std::ostream& operator<<(std::ostream& out, const Record& record);

// A file of the clone, as Windows programs name it.
std::filesystem::path InClone(const std::string& path);

// The records of a file, by its name without folder and ending. Throws std::runtime_error with what is wrong in it.
std::vector<Record> RecordsIn(const std::string& name);

// The call that a record stands for returned `status`: S_OK, or the record's error with its source and its message.
void ExpectStatusOf(const Record& record, long status);

}  // namespace wendrill::com::testing
