// What the fakes of one test were asked, in order, and the one call that a test wants to fail.
#pragma once

#include <cstddef>
#include <exception>
#include <memory>
#include <new>
#include <string>
#include <utility>
#include <vector>

#include "common/error.h"

namespace wendrill::testing {

// An error as a foreign component reports it: a number, source and description that are none of the library's own.
inline Error ForeignError() {
  return {static_cast<std::int32_t>(0x80040201), u"szuPNR", u"The toolkit failed."};
}

// Shared by all fakes of a test. A fake enters every call before it answers.
class CallLog {
 public:
  // Enters a call; throws the planned exception when this is the call to fail.
  void Enter(std::string call) {
    calls_.push_back(std::move(call));
    if (failAt_ != 0 && calls_.size() == failAt_) {
      std::rethrow_exception(planned_);
    }
  }

  // The n-th call from here on (counted from 1) fails.
  void FailNth(std::size_t n, Error error = ForeignError()) { ThrowAtNth(n, std::move(error)); }

  // The n-th call from here on (counted from 1) finds no memory left.
  void RunOutOfMemoryAtNth(std::size_t n) { ThrowAtNth(n, std::bad_alloc()); }

  void FailNone() { failAt_ = 0; }

  const std::vector<std::string>& Calls() const { return calls_; }
  std::size_t Count() const { return calls_.size(); }
  void Clear() { calls_.clear(); }

  // Objects and walks that are alive: what is above the number before a call was leaked by it.
  std::size_t liveObjects = 0;

 private:
  template <typename Exception>
  void ThrowAtNth(std::size_t n, Exception exception) {
    failAt_ = calls_.size() + n;
    planned_ = std::make_exception_ptr(std::move(exception));
  }

  std::vector<std::string> calls_;
  std::size_t failAt_ = 0;  // counted over the whole log; 0: none
  std::exception_ptr planned_;
};

using CallLogRef = std::shared_ptr<CallLog>;

}  // namespace wendrill::testing
