#include "scan_bench_table.h"

#include <cstdio>

namespace wendrill::bench {
namespace {

constexpr int kFew = 100;
constexpr int kMany = 1000;
constexpr int kMost = 10000;

constexpr char kScan[] = "scan/";

std::string Figure(double numerator, double denominator, const char* format) {
  if (numerator == 0 || denominator == 0) {
    return "-";
  }
  char text[32];
  std::snprintf(text, sizeof text, format, numerator / denominator);
  return text;
}

std::string MillionRowsPerSecond(int rows, double seconds) {
  return Figure(rows / 1e6, seconds, "%.2f");
}

void PrintLine(const TimesReporter& times, const std::string& display) {
  const auto seconds = [&](const char* what, int rows) { return times.SecondsOf(NameOf(what, display, rows)); };
  const double most = seconds("scan", kMost);
  std::printf("%-36s %8s %8s %8s %9s %9s %9s %9s %8s\n", display.c_str(),
              MillionRowsPerSecond(kFew, seconds("scan", kFew)).c_str(),
              MillionRowsPerSecond(kMany, seconds("scan", kMany)).c_str(), MillionRowsPerSecond(kMost, most).c_str(),
              MillionRowsPerSecond(kMost, seconds("property", kMost)).c_str(),
              MillionRowsPerSecond(kMost, seconds("line_ends", kMost)).c_str(),
              Figure(most, seconds("line_ends", kMost), "%.2f").c_str(),
              Figure(seconds("reference", kMany), seconds("scan", kMany), "%.0f").c_str(),
              Figure(most, seconds("scan", kMany), "%.2f").c_str());
}

}  // namespace

std::string NameOf(const std::string& what, const std::string& display, int rows) {
  return what + "/" + display + "/" + std::to_string(rows);
}

void PrintTable(const TimesReporter& times) {
  std::printf("\nMillion rows a second, and times as multiples\n");
  std::printf("%-36s %8s %8s %8s %9s %9s %9s %9s %8s\n", "", "100", "1,000", "10,000", "property", "line ends",
              "ratio to", "reference", "growth");
  std::printf("%-36s %8s %8s %8s %9s %9s %9s %9s %8s\n", "display of the kind", "rows", "rows", "rows", "10,000",
              "10,000", "line ends", "is slower", "x 10");
  const std::string suffix = "/" + std::to_string(kMost);
  for (const auto& [name, seconds] : times.Seconds()) {
    const bool isScan = name.starts_with(kScan) && name.ends_with(suffix);
    if (isScan) {
      PrintLine(times, name.substr(sizeof kScan - 1, name.size() - suffix.size() - sizeof kScan + 1));
    }
  }
}

}  // namespace wendrill::bench
