// The trace of a run: a file that says, line by line, what a script did and what the host showed.
//
// Each line is written at once and whole, so the file can be read at any time, even after a crash of the process. What
// must not be read is hidden before it is written. The trace never disturbs what it watches: no function but the
// constructor raises, and when a line cannot be written, the trace ends there and IsWhole says so.
//
// May be used on several threads. A thread that waits a second for another one that is inside the trace gives its line
// up: that thread may be the one that crashed.
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
  // The seconds since any moment, which never go back.
  using Watch = std::function<double()>;
  static double SteadySeconds();

  // Opens the file; what it held is gone. Raises 75 (path or file access error) when it cannot be written.
  explicit Trace(const Settings& settings, Watch watch = SteadySeconds);
  ~Trace();
  Trace(const Trace&) = delete;
  Trace& operator=(const Trace&) = delete;

  // Collects what a text shows of what must be hidden, before it is written for the first time.
  void Learn(std::u16string_view text) noexcept;

  // Writes the first line; both are the names of files.
  void Begin(std::u16string_view script, std::u16string_view scenario) noexcept;

  // The seconds since the trace was created; 0 without times.
  double Seconds() const;

  // Each writes a line. After the line that ends the trace nothing is written.
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

  // Whether the last line has been written.
  bool HasEnded() const;

  // Whether every line could be written so far.
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

  mutable std::timed_mutex mutex_;  // guards what follows, and what is hidden
  std::ofstream file_;
  bool ended_ = false;
  bool whole_ = true;
  std::int64_t lines_ = 0;              // written so far, without the first
  std::int64_t sends_ = 0;              // lines of sent entries
  std::vector<std::u16string> screen_;  // the last one that was written
  std::int64_t screensLine_ = 0;        // the line that holds it; 0 before the first
  std::set<std::u16string> calls_;      // those that have a line since the last line of another kind
};

}  // namespace wendrill::trace
