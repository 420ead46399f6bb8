#include "times_reporter.h"

namespace wendrill::bench {
namespace {

// Whether the run failed. The member that says so depends on the version of Google Benchmark.
template <typename Run>
bool Failed(const Run& run) {
  if constexpr (requires { run.error_occurred; }) {
    return run.error_occurred;
  } else {
    return run.skipped != decltype(run.skipped){};  // the first enumerator means "not skipped"
  }
}

}  // namespace

void TimesReporter::ReportRuns(const std::vector<Run>& runs) {
  ConsoleReporter::ReportRuns(runs);
  for (const Run& run : runs) {
    if (run.run_type == Run::RT_Iteration && !Failed(run)) {
      const benchmark::BenchmarkName& name = run.run_name;
      seconds_[name.args.empty() ? name.function_name : name.function_name + "/" + name.args] =
          run.cpu_accumulated_time / static_cast<double>(run.iterations);
    }
  }
}

double TimesReporter::SecondsOf(const std::string& benchmark) const {
  const auto found = seconds_.find(benchmark);
  return found == seconds_.end() ? 0 : found->second;
}

}  // namespace wendrill::bench
