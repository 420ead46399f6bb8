// The time limit of a run.
//
// A script engine cannot be interrupted from another thread. So the limit takes effect in two steps:
// - When the limit is over, every call of a member of WScript or of a simulated object fails. The engine reports the
//   error of the failed call with its line.
// - If the script still runs two seconds later, because it ignores the error or makes no such call, the process is
//   ended. The report then cannot name the line.
#pragma once

#include <windows.h>

#include <functional>
#include <mutex>
#include <string>
#include <string_view>

namespace wendrill::script_host {

inline constexpr int kTimeIsOver = 124;  // the exit status of a run that reached the limit

class TimeLimit {
 public:
  // Starts the clock. `script` is the script's name in reports. A thread watches the limit. When the script still runs
  // two seconds after the limit, this thread prints a message, calls `beforeTheEnd(message)`, and ends the process.
  TimeLimit(std::wstring script, double seconds, std::function<void(const std::wstring& message)> beforeTheEnd);
  // Stops the clock, and waits until the thread that watches the limit has ended.
  ~TimeLimit();
  TimeLimit(const TimeLimit&) = delete;
  TimeLimit& operator=(const TimeLimit&) = delete;

  // Decides whether a call of a member of WScript or of a simulated object may proceed; called at the start of every
  // such call. Returns null when the call may proceed: before the limit is over, and after Stop. Otherwise returns a
  // description, which is valid while this object exists: the call must fail with kStatus and this description.
  // `argument` is the entry for Send and the code of the key for SendKey; empty for every other call. Thread-safe.
  static constexpr HRESULT kStatus = E_ABORT;
  const wchar_t* Enter(std::wstring_view operation, std::wstring_view argument = {});

  // Stops the clock: after Stop, no call fails and the process is not ended. Waits until the thread that watches the
  // limit has ended.
  void Stop();

  // Whether Enter has made a call fail because the limit was over.
  bool Struck();

  // Returns the report of a script that reached the limit. `line` is the line of the script's error, counted from 1; 0
  // when not known. REQUIRES: Struck().
  std::wstring ReportAt(ULONG line);

  // Returns the event that is signalled when the limit is over. A call that waits must also wait for this event, and
  // end its wait when the event is signalled.
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
  std::mutex mutex_;  // guards the members below, which the thread that watches the limit reads
  std::wstring operation_;
  std::wstring argument_;
  std::wstring entry_;    // the entry of the last call of Send; empty when Send has not been called
  std::wstring failed_;   // the first call that Enter made fail; empty while Enter has let every call proceed
  std::wstring because_;  // the description of the failed call
};

}  // namespace wendrill::script_host
