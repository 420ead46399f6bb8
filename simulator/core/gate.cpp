#include "core/gate.h"

#include <limits>
#include <utility>

#include "common/error.h"
#include "common/text.h"
#include "core/operations.h"

namespace wendrill::simulator {
namespace {

constexpr std::int64_t kLargestRunTimeNumber = 65535;
constexpr std::int64_t kSmallestUnsignedFailure = 0x80000000;
constexpr std::int64_t kLargestUnsignedFailure = 0xFFFFFFFF;

}  // namespace

void Fail(std::int32_t number, std::u16string description) {
  throw Error(number, std::u16string(kSimulatorSource), std::move(description));
}

std::int32_t FailureNumber(std::int64_t status) {
  if (status >= 1 && status <= kLargestRunTimeNumber) {
    return static_cast<std::int32_t>(status);
  }
  if (status >= kSmallestUnsignedFailure && status <= kLargestUnsignedFailure) {
    status -= kLargestUnsignedFailure + 1;
  }
  if (status >= 0 || status < std::numeric_limits<std::int32_t>::min()) {
    return 0;
  }
  return NumberOfStatus(static_cast<std::int32_t>(status));
}

void Gate::Enter(std::u16string_view operation) {
  ++calls_;
  std::int32_t struck = 0;
  for (Plan& plan : plans_) {
    if (plan.operation == kEveryOperation || CompareWithoutCase(plan.operation, operation) == 0) {
      --plan.callsLeft;
      if (plan.callsLeft == 0 && struck == 0) {
        struck = plan.number;
      }
    }
  }
  if (struck != 0) {
    std::erase_if(plans_, [](const Plan& plan) { return plan.callsLeft == 0; });
    Fail(struck, std::u16string(operation) + u" was made to fail, as planned.");
  }
}

void Gate::FailNext(std::u16string_view operation, std::int32_t status, std::int32_t nth) {
  constexpr auto kInvalidCall = static_cast<std::int32_t>(RunTimeError::InvalidCall);
  if (!IsOperation(operation)) {
    Fail(kInvalidCall, u"No simulated component has a member \"" + std::u16string(operation) + u"\"; known are *, " +
                           KnownOperations() + u".");
  }
  const std::int32_t number = FailureNumber(status);
  if (number == 0) {
    Fail(kInvalidCall, DecimalText(status) +
                           u" is not the status of a failure: it must be a failing HRESULT, or a run-time "
                           u"error's number from 1 to 65535.");
  }
  if (nth < 1) {
    Fail(kInvalidCall, u"Calls are counted from 1, which is the next; " + DecimalText(nth) + u" was asked for.");
  }
  plans_.push_back({std::u16string(operation), number, nth});
}

}  // namespace wendrill::simulator
