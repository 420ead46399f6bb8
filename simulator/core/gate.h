// Gate: every call of a simulated member passes through the gate, which counts the calls and raises the errors that a
// test has planned. LiveMark: counts the simulated objects that exist.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace wendrill::simulator {

// The source (Err.Source in a script) of the errors that Fail raises.
inline constexpr std::u16string_view kSimulatorSource = u"QuilletSimulator";

// Raises an error with this number and description, and with kSimulatorSource as its source.
[[noreturn]] void Fail(std::int32_t number, std::u16string description);

// The error number for a `status` in a scenario or in a call of FailNext:
//   - a run-time error number from 1 to 65535: this number;
//   - a failing HRESULT 0x800A0000 + n, with n from 1 to 65535: n;
//   - any other failing HRESULT: the HRESULT itself, as a negative number;
//   - anything else: 0, because `status` is not a failure.
// A failing HRESULT may be given as a negative or as an unsigned number.
std::int32_t FailureNumber(std::int64_t status);

class Gate {
 public:
  // Counts one call of the member `operation`. When FailNext has planned an error for this call, raises that error.
  void Enter(std::u16string_view operation);

  // Plans a failure: the nth call of the member `operation` from now on raises the error of `status` (FailureNumber).
  // With `nth` 1, the next call fails. For the operation "*", the calls of all members are counted.
  //
  // Several plans may be pending at once, each with its own count. When the counts of several plans end at the
  // same call, the call raises the error of the plan that was made first, and all these plans are removed.
  //
  // Raises 5 (invalid argument) for a name that no component has, for a status that is not a failure, and for an nth
  // below 1.
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

// A data member of each simulated object. The constructor adds 1 to the number of existing simulated objects, the
// destructor subtracts 1.
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
