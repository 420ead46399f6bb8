// The gate, through which every call of a simulated member passes. The gate counts the calls and raises the failures
// that a test has planned. LiveMark counts the simulated objects that exist.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace wendrill::simulator {

// The source of every error that the simulator raises.
inline constexpr std::u16string_view kSimulatorSource = u"QuilletSimulator";

// Raises an error with this number and description, and with kSimulatorSource as its source.
[[noreturn]] void Fail(std::int32_t number, std::u16string description);

// The error number that a status means: for a failing HRESULT, also one written as an unsigned number, what
// NumberOfStatus returns; for a run-time error number from 1 to 65535, this number itself. 0 for any other status,
// because it is not a failure.
std::int32_t FailureNumber(std::int64_t status);

class Gate {
 public:
  // Counts one call of the member `operation`. Raises the failure that is planned for this call, if there is one.
  void Enter(std::u16string_view operation);

  // Plans a failure: the nth call of `operation` from now on (1 is the next call) raises the error of `status`. "*"
  // counts the calls of all members.
  //
  // Several plans may be pending at once, each with its own count. When two plans apply to the same call, the call
  // raises the error of the plan made first, and both plans are used up. Raises 5 for a name that no component has, for
  // a status that is not a failure, and for an nth below 1.
  void FailNext(std::u16string_view operation, std::int32_t status, std::int32_t nth);

  // The number of calls so far, failed calls included.
  std::int64_t Calls() const { return calls_; }

  // Removes all planned failures.
  void Forget() { plans_.clear(); }

 private:
  struct Plan {
    std::u16string operation;  // "*" means every member
    std::int32_t number;
    std::int32_t callsLeft;
  };

  std::vector<Plan> plans_;
  std::int64_t calls_ = 0;
};

// A data member of each simulated object: counts the object as existing, from its construction to its destruction.
class LiveMark {
 public:
  explicit LiveMark(std::int32_t& count) : count_(count) { ++count_; }
  ~LiveMark() { --count_; }
  LiveMark(const LiveMark&) = delete;
  LiveMark& operator=(const LiveMark&) = delete;

 private:
  std::int32_t& count_;
};

}  // namespace wendrill::simulator
