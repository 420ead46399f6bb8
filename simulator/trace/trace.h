// The trace of a run: a file that shows, line by line, what a script did and what the host answered.
//
// Each line is written as a whole and at once, so the file can be read at any time, even after a crash of the process.
// Personal data is hidden before a line is written.
//
// A trace never disturbs the run: only the constructor raises an error when the file cannot be written. When a later
// line cannot be written, no further line is written and IsWhole returns false.
//
// Thread-safe. Learn, Begin and Write wait at most one second for another thread that is using the trace. After this
// second they return without effect, because the other thread may have crashed while it held the lock. HasEnded and
// IsWhole wait without a limit.
#pragma once

#include <cstdint>
#include <fstream>
#include <functional>
#include <mutex>
#include <set>
#include <string>
#include <string_view>

#include "trace/lines.h"
#include "trace/settings.h"
#include "trace/trace_hiding.h"

namespace wendrill::trace {

class Trace {
 public:
  // A clock that returns the seconds since an arbitrary moment. Its value never decreases.
  using Watch = std::function<double()>;
  static double SteadySeconds();

  // Creates the file, or empties an existing file. Raises 75 (path or file access error) when the file cannot be opened
  // for writing.
  explicit Trace(const Settings& settings, Watch watch = SteadySeconds);
  ~Trace();
  Trace(const Trace&) = delete;
  Trace& operator=(const Trace&) = delete;

  // Collects from a text the names and the contact numbers that must be hidden. Every line that is written after this
  // call hides these names and numbers.
  void Learn(std::u16string_view text) noexcept;

  // Writes the first line. `script` and `scenario` are file names.
  void Begin(std::u16string_view script, std::u16string_view scenario) noexcept;

  // The seconds since the trace was created; 0 when the settings switch times off.
  double Seconds() const;

  // Each function writes one line; Write(Ended) writes the last line of the trace. Nothing is written in these cases:
  //   - The call of a simulated member is a repeated call (see Called::always).
  //   - Write(Ended) has already written the last line.
  //   - An earlier line could not be written.
  //   - Another thread uses the trace for longer than a second.
  void Write(const Sent& sent) noexcept;
  void Write(const KeyPressed& key) noexcept;
  void Write(const Typed& typed) noexcept;
  void Write(const AlarmSet& alarm) noexcept;
  void Write(const Retrieved& retrieved) noexcept;
  void Write(const EventDelivered& event) noexcept;
  void Write(const Called& called) noexcept;
  void Write(const Failed& failed) noexcept;
  void Write(const Expected& expected) noexcept;
  void Write(const Warned& warned) noexcept;
  void Write(const Ended& ended) noexcept;

  // Whether Write(Ended) has ended the trace, so that no further line is written. The result is true even when the file
  // could not take the last line. The result is false when Write(Ended) wrote nothing, for example because an earlier
  // line could not be written.
  bool HasEnded() const;

  // False after a line could not be written, for example because the disk was full; true before. A line that was
  // dropped because another thread used the trace for too long leaves the result true.
  bool IsWhole() const;

 private:
  class Line;

  template <typename Work>
  void Guarded(Work work) noexcept;
  template <typename Fill>
  void WriteLine(const char* kind, Fill fill) noexcept;
  Line Begun(const char* kind);
  void Finish(const Line& line);
  void Put(const std::string& line);
  void AddTime(Line& line, const char* member, double time, double parts) const;
  void AddScreen(Line& line, Rows rows);
  bool IsRepeated(const Called& called);

  TraceHiding hiding_;
  Watch watch_;
  const bool withTimes_;
  const double start_;
  std::set<redaction::Kind> kept_;

  mutable std::timed_mutex mutex_;  // guards hiding_ and the members below
  std::ofstream file_;
  bool ended_ = false;
  bool whole_ = true;
  std::int64_t lines_ = 0;              // the number of lines written so far, without the first line
  std::int64_t sends_ = 0;              // the number of lines of the kind "send" written so far
  std::vector<std::u16string> screen_;  // the rows of the last `screen` that was written, with personal data hidden
  std::int64_t screensLine_ = 0;        // the `n` of the line that contains screen_; 0 before the first `screen`
  std::set<std::u16string> calls_;      // operation and argument of each call since the last line of another kind
};

}  // namespace wendrill::trace
