// Long runs, each of the given ones in turn. At the end nothing may live any more, and the process may hold at most one
// percent more memory than it did after the beginning.
//
//   soak.exe [--beside FILE.dll] [--loads N] [--rounds N] [--calls N]
//
//   --beside   loads a DLL first and keeps it
//   --loads    loads and unloads both DLLs, without any call and with a failing call each
//   --rounds   goes through rounds of calls in several apartments at once
//   --calls    makes mixed calls of every class, early and late bound, of which some fail; here the heaps, which are
//              counted to the byte, may grow by one per mille
#include <ole2.h>
#include <windows.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <exception>
#include <filesystem>
#include <iterator>

#include "apartments.h"
#include "growth.h"
#include "loads.h"
#include "soak_actions.h"

namespace wendrill::soak {
namespace {

constexpr std::int64_t kWarmUp = 1'000;
constexpr int kReports = 20;
constexpr double kGrowthAllowed = 1.0;      // percent
constexpr double kHeapGrowthAllowed = 0.1;  // percent

double Megabytes(std::size_t bytes) {
  return static_cast<double>(bytes) / (1024 * 1024);
}

class LongRun {
 public:
  explicit LongRun(_Control* control) : desk_(control) {}

  // Whether nothing was left behind.
  bool Run(std::int64_t calls);

 private:
  void RunUpTo(std::int64_t calls);
  Memory MemoryAtRest();
  void Report(const Memory& memory, std::int64_t calls) const;
  LONG LiveObjects() const;

  Desk desk_;
  std::size_t next_ = 0;
  DWORD began_ = GetTickCount();
};

// Every action comes up equally often, in turns that differ: each is done once, then actions are drawn.
void LongRun::RunUpTo(std::int64_t calls) {
  while (desk_.calls < calls) {
    Act(desk_, next_ < ActionCount() ? next_ : desk_.Below(static_cast<std::uint32_t>(ActionCount())));
    ++next_;
    desk_.Control()->ClearJournal();
  }
}

// Memory is compared where no object of the run lives.
Memory LongRun::MemoryAtRest() {
  desk_.ReleaseAll();
  return MemoryNow();
}

LONG LongRun::LiveObjects() const {
  LONG live = -1;
  desk_.Control()->get_LiveObjects(&live);
  return live;
}

void LongRun::Report(const Memory& memory, std::int64_t calls) const {
  std::printf(
      "%9lld of %lld calls, %lld of them failing as meant; %.2f MB private, %.3f MB in use on the heaps, %lu s\n",
      desk_.calls, calls, desk_.failures, Megabytes(memory.privateBytes), Megabytes(memory.heapBytes),
      (GetTickCount() - began_) / 1000);
  std::fflush(stdout);
}

bool LongRun::Run(std::int64_t calls) {
  Report(MemoryAtRest(), calls);  // whatever printing needs is there from now on
  RunUpTo(kWarmUp);
  const Memory before = MemoryAtRest();
  Report(before, calls);
  Memory after = before;
  for (int report = 1; report <= kReports; ++report) {
    RunUpTo(calls * report / kReports);
    after = MemoryAtRest();
    Report(after, calls);
  }
  const double privateGrowth = Growth(before.privateBytes, after.privateBytes);
  const double heapGrowth = Growth(before.heapBytes, after.heapBytes);
  const LONG live = LiveObjects();
  std::printf("since the first %lld calls: private memory %+.2f %%, heaps %+.2f %%; %ld objects live\n", kWarmUp,
              privateGrowth, heapGrowth, live);
  return privateGrowth <= kGrowthAllowed && heapGrowth <= kHeapGrowthAllowed && live == 0;
}

bool RunOnDesktop(std::int64_t calls) {
  Reference<_Control> control;
  if (FAILED(CoCreateInstance(CLSID_Control, nullptr, CLSCTX_INPROC_SERVER, IID__Control, control.ReceiveVoid())) ||
      FAILED(control->LoadText(Text(kScenario)))) {
    std::puts("the simulated desktop cannot be set up");
    return false;
  }
  return LongRun(control.Get()).Run(calls);
}

bool StayBeside(const char* file) {
  const auto path = std::filesystem::path(file).make_preferred();
  const bool loaded = LoadLibraryExW(path.c_str(), nullptr, LOAD_WITH_ALTERED_SEARCH_PATH) != nullptr;
  std::printf("%s is %s\n", file, loaded ? "loaded" : "not loaded");
  return loaded;
}

struct Run {
  const char* option;
  long long least;
  bool (*run)(const char* argument);
};

constexpr Run kRuns[] = {
    {"--beside", 0, StayBeside},
    {"--loads", 1, [](const char* times) { return LoadAndUnload(std::atoi(times)); }},
    {"--rounds", 1, [](const char* rounds) { return RunApartments(std::atoi(rounds)); }},
    {"--calls", kWarmUp + 1, [](const char* calls) { return RunOnDesktop(std::atoll(calls)); }},
};

const Run* FindRun(const char* option, const char* argument) {
  const auto* found =
      std::ranges::find_if(kRuns, [option](const Run& run) { return std::strcmp(option, run.option) == 0; });
  return found != std::end(kRuns) && std::atoll(argument) >= found->least ? found : nullptr;
}

// Whether the arguments are options, each with a number that it takes.
bool AreRuns(int count, char** arguments) {
  bool known = count > 1 && count % 2 == 1;
  for (int index = 1; known && index < count; index += 2) {
    known = FindRun(arguments[index], arguments[index + 1]) != nullptr;
  }
  return known;
}

bool RunAll(int count, char** arguments) {
  bool passed = true;
  for (int index = 1; passed && index < count; index += 2) {
    passed = FindRun(arguments[index], arguments[index + 1])->run(arguments[index + 1]);
  }
  return passed;
}

}  // namespace
}  // namespace wendrill::soak

int main(int count, char** arguments) {
  if (!wendrill::soak::AreRuns(count, arguments)) {
    std::printf("usage: soak.exe [--beside FILE.dll] [--loads N] [--rounds N] [--calls N, more than %lld]\n",
                wendrill::soak::kWarmUp);
    return 2;
  }
  CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
  bool passed = false;
  try {
    passed = wendrill::soak::RunAll(count, arguments);
  } catch (const std::exception& exception) {
    std::puts(exception.what());
  }
  std::puts(passed ? "soak: passed" : "soak: FAILED");
  CoUninitialize();
  return passed ? 0 : 1;
}
