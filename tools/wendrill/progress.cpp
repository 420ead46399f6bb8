#include "progress.h"

#include <algorithm>
#include <cstdio>
#include <string>

#ifdef _WIN32
#include <io.h>
#else
#include <unistd.h>
#endif

namespace wendrill::tool {
namespace {

using std::chrono::steady_clock;
using namespace std::chrono_literals;

constexpr auto kBetweenShows = 100ms;
constexpr std::size_t kWidth = 40;

bool StandardErrorIsTerminal() {
#ifdef _WIN32
  return _isatty(_fileno(stderr)) != 0;
#else
  return isatty(STDERR_FILENO) != 0;
#endif
}

}  // namespace

Progress::Progress(const DisplaySource& source)
    : source_(source), isTerminal_(StandardErrorIsTerminal()), next_(steady_clock::now() + kBetweenShows) {}

void Progress::Show(std::uint64_t displays) {
  if (!isTerminal_ || steady_clock::now() < next_) {
    return;
  }
  next_ = steady_clock::now() + kBetweenShows;
  isShown_ = true;
  std::string line = "\r" + std::to_string(displays) + " displays";
  if (source_.BytesInAll() > 0) {
    const std::uint64_t taken = std::min(source_.BytesTaken(), source_.BytesInAll());
    const auto marks = static_cast<std::size_t>(taken * kWidth / source_.BytesInAll());
    line = "\r[" + std::string(marks, '=') + std::string(kWidth - marks, ' ') + "] " +
           std::to_string(taken * 100 / source_.BytesInAll()) + " %  " + line.substr(1);
  }
  std::fputs(line.c_str(), stderr);
  std::fflush(stderr);
}

void Progress::Clear() {
  if (isShown_) {
    constexpr int kLongest = 79;
    std::fprintf(stderr, "\r%*s\r", kLongest, "");
  }
}

}  // namespace wendrill::tool
