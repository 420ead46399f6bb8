#include "common/failures.h"

#include <gtest/gtest.h>

#include <new>
#include <stdexcept>

#include "support/call_log.h"
#include "support/raises.h"

namespace wendrill::testing {
namespace {

constexpr std::int32_t kNumber = 2505;

[[noreturn]] void RunOutOfMemory() {
  throw std::bad_alloc();
}

TEST(WithNumber, ReturnsWhatTheWorkReturns) {
  EXPECT_EQ(WithNumber(kNumber, [] { return 3; }), 3);
}

TEST(WithNumber, ReplacesErrorsOfAnySourceByItsOwn) {
  EXPECT_TRUE(Raises(kNumber, kCommunicationMessage, [] { WithNumber(kNumber, [] { throw ForeignError(); }); }));
  EXPECT_TRUE(
      Raises(kNumber, kCommunicationMessage, [] { WithNumber(kNumber, [] { Raise(RunTimeError::Overflow); }); }));
}

TEST(WithNumber, ReplacesExceptionsThatAreNoErrors) {
  EXPECT_TRUE(
      Raises(kNumber, kCommunicationMessage, [] { WithNumber(kNumber, [] { throw std::length_error("too long"); }); }));
}

TEST(WithNumber, LetsTheExceptedErrorPropagateUnchanged) {
  const auto error = ErrorOf([] {
    WithNumber(
        kNumber, [] { throw Error(6, u"szuPNR", u"Overflow of the toolkit"); }, RunTimeError::Overflow);
  });
  ASSERT_TRUE(error);
  EXPECT_EQ(error->Number(), 6);
  EXPECT_EQ(error->Source(), u"szuPNR");
  EXPECT_EQ(error->Description(), u"Overflow of the toolkit");
}

TEST(WithNumber, ReplacesErrorsBesideTheExceptedOne) {
  EXPECT_TRUE(Raises(kNumber, kCommunicationMessage, [] {
    WithNumber(
        kNumber, [] { Raise(RunTimeError::TypeMismatch); }, RunTimeError::Overflow);
  }));
}

TEST(WithNumber, LetsEveryErrorPropagateWhenThereIsNoNumber) {
  EXPECT_TRUE(RaisesNumber(ForeignError().Number(), [] { WithNumber(kNoNumber, [] { throw ForeignError(); }); }));
}

TEST(WithNumber, LetsMemoryShortagePropagate) {
  EXPECT_THROW(WithNumber(kNumber, RunOutOfMemory), std::bad_alloc);
  EXPECT_THROW(WithNumber(kNumber, RunOutOfMemory, RunTimeError::Overflow), std::bad_alloc);
}

TEST(ReplacingFailure, RaisesTheErrorThatItIsGiven) {
  const auto error = ErrorOf([] {
    ReplacingFailure([] { throw ForeignError(); }, [] { return Error(-2, u"CEncodeUtils", u"Failed to connect"); });
  });
  ASSERT_TRUE(error);
  EXPECT_EQ(error->Number(), -2);
  EXPECT_EQ(error->Source(), u"CEncodeUtils");
  EXPECT_EQ(error->Description(), u"Failed to connect");
}

TEST(UndoingOnFailure, UndoesNothingAfterSuccess) {
  bool undone = false;
  EXPECT_EQ(UndoingOnFailure([] { return 3; }, [&] { undone = true; }), 3);
  EXPECT_FALSE(undone);
}

TEST(UndoingOnFailure, UndoesAndLetsTheFailurePropagate) {
  bool undone = false;
  EXPECT_TRUE(RaisesNumber(ForeignError().Number(),
                           [&] { UndoingOnFailure([] { throw ForeignError(); }, [&] { undone = true; }); }));
  EXPECT_TRUE(undone);
}

TEST(UndoingOnFailure, UndoesAfterMemoryShortageToo) {
  bool undone = false;
  EXPECT_THROW(UndoingOnFailure(RunOutOfMemory, [&] { undone = true; }), std::bad_alloc);
  EXPECT_TRUE(undone);
}

TEST(UndoingOnFailure, RaisesTheFailureOfTheUndoing) {
  EXPECT_TRUE(RaisesNumber(2559, [] { UndoingOnFailure([] { throw ForeignError(); }, [] { RaiseOwn(2559); }); }));
}

}  // namespace
}  // namespace wendrill::testing
