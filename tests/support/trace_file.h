// A trace file for one test. If the environment variable WENDRILL_TRACES names a folder, the file is created and kept
// in that folder, where tests/schema validates every line. Otherwise the file is temporary and is deleted with this
// object.
#pragma once

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "trace/settings.h"

namespace wendrill::testing {

class TraceFile {
 public:
  TraceFile() {
    const auto& test = *::testing::UnitTest::GetInstance()->current_test_info();
    const char* folder = std::getenv("WENDRILL_TRACES");
    stays_ = folder != nullptr;
    path_ = (stays_ ? std::filesystem::path(folder) : std::filesystem::path(::testing::TempDir())) /
            (std::string(test.test_suite_name()) + "." + test.name() + ".jsonl");
  }
  ~TraceFile() {
    if (!stays_) {
      std::error_code unused;
      std::filesystem::remove(path_, unused);
    }
  }
  TraceFile(const TraceFile&) = delete;
  TraceFile& operator=(const TraceFile&) = delete;

  const std::filesystem::path& Path() const { return path_; }

  // The settings for a trace without times. Such a trace is equal in each run of the test.
  trace::Settings WithoutTimes() const { return {path_, false, {}}; }

  std::string Text() const {
    std::ifstream stream(path_, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
  }

  // All lines without their line breaks, including a last line that has no line break.
  std::vector<std::string> Lines() const {
    std::vector<std::string> lines;
    std::ifstream stream(path_, std::ios::binary);
    for (std::string line; std::getline(stream, line);) {
      lines.push_back(line);
    }
    return lines;
  }

 private:
  std::filesystem::path path_;
  bool stays_;
};

}  // namespace wendrill::testing
