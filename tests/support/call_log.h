// The log of all calls to the fakes of one test, in order. A test can also make one of the calls fail.
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

// An error as a component of another maker reports it. Its number, source and description differ from those of all of
// the library's own errors.
inline Error ForeignError() {
  return {static_cast<std::int32_t>(0x80040201), u"szuPNR", u"The toolkit failed."};
}

// The call log. All fakes of a test share one log, and each fake enters every call into the log before it answers.
class CallLog {
 public:
  // Appends a call to the log. Throws the planned exception when this is the call that a test made fail.
  void Enter(std::string call) {
    calls_.push_back(std::move(call));
    if (failAt_ != 0 && calls_.size() == failAt_) {
      std::rethrow_exception(planned_);
    }
  }

  // Makes the n-th call from now on, counted from 1, throw `error`.
  void FailNth(std::size_t n, Error error = ForeignError()) { ThrowAtNth(n, std::move(error)); }

  // Makes the n-th call from now on, counted from 1, throw std::bad_alloc.
  void RunOutOfMemoryAtNth(std::size_t n) { ThrowAtNth(n, std::bad_alloc()); }

  void FailNone() { failAt_ = 0; }

  const std::vector<std::string>& Calls() const { return calls_; }
  std::size_t Count() const { return calls_.size(); }
  void Clear() { calls_.clear(); }

  // The number of live fake objects and enumerators. A call that increases this number permanently has leaked objects.
  std::size_t liveObjects = 0;

 private:
  template <typename Exception>
  void ThrowAtNth(std::size_t n, Exception exception) {
    failAt_ = calls_.size() + n;
    planned_ = std::make_exception_ptr(std::move(exception));
  }

  std::vector<std::string> calls_;
  std::size_t failAt_ = 0;  // the call to fail, counted from 1 over the whole log; 0 when no call is to fail
  std::exception_ptr planned_;
};

using CallLogRef = std::shared_ptr<CallLog>;

}  // namespace wendrill::testing
