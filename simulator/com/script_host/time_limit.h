// The time limit of a run.
//
// A script engine cannot be interrupted from another thread. So when the limit is over, the next call into WScript or
// into a simulated object fails: the engine then reports an error with its line. A script that swallows this error, or
// that calls nothing, is ended with its process some seconds later, without a line.
#pragma once

#include <windows.h>

#include <functional>
#include <mutex>
#include <string>
#include <string_view>

namespace wendrill::script_host {

inline constexpr int kTimeIsOver = 124;  // exit status

class TimeLimit {
 public:
  // Starts the clock. `beforeTheEnd` is called, on a thread of its own, before the process is ended.
  TimeLimit(std::wstring script, double seconds, std::function<void(const std::wstring& message)> beforeTheEnd);
  // Stops the clock.
  ~TimeLimit();
  TimeLimit(const TimeLimit&) = delete;
  TimeLimit& operator=(const TimeLimit&) = delete;

  // Every call into WScript and into simulated objects begins here. Returns null when the call may go on, else the
  // description with which it must fail with kStatus. `argument` is an entry, a key's code, or empty.
  static constexpr HRESULT kStatus = E_ABORT;
  const wchar_t* Enter(std::wstring_view operation, std::wstring_view argument = {});

  // From now on no call fails and the process is not ended.
  void Stop();

  // Whether a call has failed because the time is over.
  bool Struck();

  // The report for a script whose error has a line (counted from 1; 0: it is not known).
  std::wstring ReportAt(ULONG line);

  // Signalled when the time is over: a call that waits ends its wait.
  HANDLE Over() const { return over_; }

 private:
  static DWORD WINAPI Watch(void* limit);
  void WaitForTheEnd();
  std::wstring Report(const std::wstring& start, const std::wstring& where) const;

  std::wstring script_;
  double seconds_;
  std::function<void(const std::wstring&)> beforeTheEnd_;
  HANDLE over_;
  HANDLE stopped_;
  HANDLE thread_;
  std::mutex mutex_;  // guards what follows, which the watching thread reads
  std::wstring operation_;
  std::wstring argument_;
  std::wstring entry_;    // the last one sent
  std::wstring failed_;   // the call that was made to fail first
  std::wstring because_;  // its description
};

}  // namespace wendrill::script_host
