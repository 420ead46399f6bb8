// The gate: every call of a simulated member passes here, so that any of them can be made to fail and every live object
// is known.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace wendrill::simulator {

// The source of every error that the simulator raises.
inline constexpr std::u16string_view kSimulatorSource = u"QuilletSimulator";

// Raises an error of the simulator's.
[[noreturn]] void Fail(std::int32_t number, std::u16string description);

// The error number that a status code stands for: a code with the failure bit, or a run-time error's number from 1 to
// 65535, which stands for itself. 0 for anything else, which is no failure.
std::int32_t FailureNumber(std::int64_t status);

class Gate {
 public:
  // Counts one call of a member; raises the failure that was planned for it, if any.
  void Enter(std::u16string_view operation);

  // Plans a failure of the nth call from now (1 is the next) of `operation`; "*" counts the calls of all members.
  // Several plans stand side by side, each with its own count; a plan is spent when it strikes. Raises 5 for a name
  // that no component has, for a status that is no failure and for an nth below 1.
  void FailNext(std::u16string_view operation, std::int32_t status, std::int32_t nth);

  // How many calls have passed or failed here.
  std::int64_t Calls() const { return calls_; }

  // Drops all plans.
  void Forget() { plans_.clear(); }

 private:
  struct Plan {
    std::u16string operation;  // "*": every one
    std::int32_t number;
    std::int32_t callsLeft;
  };

  std::vector<Plan> plans_;
  std::int64_t calls_ = 0;
};

// A simulated object's mark in the count of live objects.
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
