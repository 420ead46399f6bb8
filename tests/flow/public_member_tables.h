// The tables of runs, one for each family of members, and what they are written with.
#pragma once

#include <utility>

#include "public_members.h"

namespace wendrill::flow {

std::vector<MemberRun> SessionRuns();      // CQuillet
std::vector<MemberRun> EncodeUtilsRuns();  // CEncodeUtils
std::vector<MemberRun> BatchRuns();        // CQueue, CBatch
std::vector<MemberRun> PnrRuns();          // CPNR
std::vector<MemberRun> RecordRuns();       // IGet, IGetPNR

inline MemberRun Creation(MemberRun run) {
  run.isCreation = true;
  return run;
}

inline Steps operator+(Steps left, const Steps& right) {
  left.insert(left.end(), right.begin(), right.end());
  return left;
}

// Failures that the toolkit's error leaves with, and failures that end in the member's own number.
inline const Steps kAllAsTheToolkits = {{kEveryCall, Meets::ToolkitsError, kNothingNew, kAnyNumber}};
inline const Steps kAllAsOwn = {{kEveryCall, Meets::OwnNumber, kNothingNew, kAnyNumber}};

// The first living CQuillet connects the session and makes the PNR object. A failure leaves nothing of it.
inline Steps SetUpSession(Meets meets) {
  return {{u"CreateSessionList", meets},           {u"Count", meets},     {u"_NewEnum", meets},
          {u"SessionName", meets, kNothingNew, 2}, {u"CreatePnr", meets}, {u"CreateSession", meets}};
}

}  // namespace wendrill::flow
