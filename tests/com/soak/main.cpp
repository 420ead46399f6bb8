// A long run: mixed calls of every class in one process, early and late bound, of which some fail. At the end nothing
// may live any more; the process may hold at most one percent more private memory than after the first thousand calls,
// and one per mille more on its heaps, which are counted to the byte.
//
//   soak.exe [--calls N]
#include <ole2.h>
#include <windows.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <exception>

#include "memory.h"
#include "soak_actions.h"

namespace wendrill::soak {
namespace {

constexpr std::int64_t kCallsUnlessTold = 1'000'000;
constexpr std::int64_t kWarmUp = 1'000;
constexpr int kReports = 20;
constexpr double kGrowthAllowed = 1.0;      // percent
constexpr double kHeapGrowthAllowed = 0.1;  // percent

double Megabytes(std::size_t bytes) {
  return static_cast<double>(bytes) / (1024 * 1024);
}

// In percent of what was there before.
double Growth(std::size_t before, std::size_t after) {
  return (static_cast<double>(after) / static_cast<double>(before) - 1) * 100;
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

}  // namespace
}  // namespace wendrill::soak

int main(int count, char** arguments) {
  std::int64_t calls = wendrill::soak::kCallsUnlessTold;
  if (count == 3 && std::strcmp(arguments[1], "--calls") == 0) {
    calls = std::atoll(arguments[2]);
  }
  if ((count != 1 && count != 3) || calls <= wendrill::soak::kWarmUp) {
    std::printf("usage: soak.exe [--calls N], more than %lld\n", wendrill::soak::kWarmUp);
    return 2;
  }
  CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
  bool passed = false;
  try {
    passed = wendrill::soak::RunOnDesktop(calls);
  } catch (const std::exception& exception) {
    std::puts(exception.what());
  }
  std::puts(passed ? "soak: passed" : "soak: FAILED");
  CoUninitialize();
  return passed ? 0 : 1;
}
