#include "record_file.h"

#include <chrono>
#include <fstream>
#include <ostream>
#include <stdexcept>
#include <thread>

#include "desktop_fixture.h"

namespace wendrill::com::testing {
namespace {

constexpr std::string_view kErrorMark = "error ";

Record RecordHeaded(const std::string& line) {
  const auto blank = line.rfind(' ');
  if (line.back() != ']' || blank == std::string::npos) {
    throw std::runtime_error("no heading: " + line);
  }
  Record record;
  record.name = line.substr(1, blank - 1);
  record.index = static_cast<short>(std::stoi(line.substr(blank + 1)));
  return record;
}

void AddLine(const std::string& line, Record& record) {
  if (line.starts_with(kErrorMark)) {
    record.error = std::stoi(line.substr(kErrorMark.size()));
  } else {
    record.keys += line + "\n";
  }
}

std::wstring ExpectedMessage(int error) {
  return error == 9 ? L"Subscript out of range" : L"An error has occurred while retrieving a PNR element/segment.";
}

}  // namespace

std::ostream& operator<<(std::ostream& out, const Record& record) {
  return out << record.name << " " << record.index;
}

std::filesystem::path InClone(const std::string& path) {
  return (std::filesystem::path(TEST_DATA) / path).make_preferred();
}

namespace {

// Scripts that run side by side with this open the file for themselves alone: it is tried for some seconds.
std::ifstream Opened(const std::filesystem::path& path) {
  std::ifstream file(path);
  for (int attempt = 1; !file && attempt < 300; ++attempt) {
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
    file.open(path);
  }
  return file;
}

}  // namespace

std::vector<Record> RecordsIn(const std::string& name) {
  std::ifstream file = Opened(InClone("tests/com/records/" + name + ".records"));
  std::vector<Record> records;
  for (std::string line; std::getline(file, line);) {
    if (line.starts_with('[')) {
      records.push_back(RecordHeaded(line));
    } else if (!line.empty() && !line.starts_with('#')) {
      AddLine(line, records.at(records.size() - 1));
    }
  }
  if (records.empty()) {
    throw std::runtime_error(name + " has no records");
  }
  return records;
}

void ExpectStatusOf(const Record& record, long status) {
  if (record.error == 0) {
    EXPECT_EQ(S_OK, status);
    return;
  }
  EXPECT_EQ(static_cast<HRESULT>(0x800A0000 + record.error), status);
  const ErrorOnThread error = TakeError();
  EXPECT_EQ(L"Wendrill23", error.source);
  EXPECT_EQ(ExpectedMessage(record.error), error.description);
}

}  // namespace wendrill::com::testing
