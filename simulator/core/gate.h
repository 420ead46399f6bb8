// The gate: every call of a simulated member passes through it, so that a test can make any call fail and count the
// live objects.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace wendrill::simulator {

// The source of every error that the simulator raises.
inline constexpr std::u16string_view kSimulatorSource = u"QuilletSimulator";

// Raises an error whose source is the simulator.
[[noreturn]] void Fail(std::int32_t number, std::u16string description);

// The error number for a status: of a status code with the failure bit, its number; of a run-time error number from 1
// to 65535, that number. 0 for any other status, because it is not a failure.
std::int32_t FailureNumber(std::int64_t status);

class Gate {
 public:
  // Counts one call of a member and raises the failure that is planned for this call, if there is one.
  void Enter(std::u16string_view operation);

  // Plans a failure of the nth call from now (1 is the next) of `operation`; "*" counts the calls of all members.
  // Several plans may be pending at once, each with its own count; a plan is removed when it raises its failure. Raises
  // 5 for a name that no component has, for a status that is not a failure and for an nth below 1.
  void FailNext(std::u16string_view operation, std::int32_t status, std::int32_t nth);

  // The number of calls so far, failed calls included.
  std::int64_t Calls() const { return calls_; }

  // Drops all plans.
  void Forget() { plans_.clear(); }

 private:
  struct Plan {
    std::u16string operation;  // "*": every member
    std::int32_t number;
    std::int32_t callsLeft;
  };

  std::vector<Plan> plans_;
  std::int64_t calls_ = 0;
};

// Counts the object that contains it as live, from construction to destruction.
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
