// CQueue and CBatch.
#include "common/text.h"
#include "public_member_tables.h"
#include "support/us_text.h"

namespace wendrill::flow {
namespace {

constexpr Meets kOwn = Meets::OwnNumber;
constexpr Meets kPassed = Meets::Nothing;

// One entry under the key "first"; the object that holds it keeps the session.
void Queue(MemberDesk& desk) {
  if (desk.queue.Count() == 0) {
    desk.queue.Add(u"RU1", u"first");
  }
}

// The batch's own queue with that entry.
void FillBatch(MemberDesk& desk) {
  desk.Quillet();
  if (desk.Batch().Commands()->Count() == 0) {
    desk.Batch().Commands()->Add(u"RU1");
  }
}

// Whether every entry was accepted, and the numbers of those that were not.
std::u16string Outcome(MemberDesk& desk) {
  return testing::ToUsText(desk.Bag().Get(u"blnKeyResponseOK")) + testing::ToUsText(desk.Bag().Get(u"strKeyErr"));
}

// One host entry. The lock that nobody took is asked for on the way out.
const Steps kSendOne = {{u"SendKey", kOwn},           {u"Send", kOwn},
                        {u"Buffer", kOwn, kResponse}, {u"CreateTextHelper", kPassed},
                        {u"TerminalReady", kPassed},  {u"HostReady", kPassed}};
const Steps kReport = {{u"Set", kOwn, kNothingNew, 3}};

}  // namespace

std::vector<MemberRun> BatchRuns() {
  const auto nothing = [](MemberDesk&) { return std::u16string(); };
  const auto add = [](MemberDesk& desk) { return desk.queue.Add(u"JD")->Command(); };
  return {
      Creation({u"CQueue", "", 0, {}, nothing, u"", kNothingNew, {}}),
      {u"CQueue.Add", "", 2400, {}, add, u"JD", kSession, SetUpSession(kOwn)},
      {u"CQueue.Add", "while another entry lives", 2400, Queue, add, u"JD", kNothingNew, {}},
      {u"CQueue.Item",
       "",
       0,
       Queue,
       [](MemberDesk& desk) { return desk.queue.Item(u"FIRST")->Command(); },
       u"RU1",
       kNothingNew,
       {}},
      {u"CQueue.Count",
       "",
       0,
       Queue,
       [](MemberDesk& desk) { return DecimalText(desk.queue.Count()); },
       u"1",
       kNothingNew,
       {}},
      {u"CQueue.Remove",
       "",
       0,
       [](MemberDesk& desk) {
         Queue(desk);
         desk.Quillet();
       },
       [](MemberDesk& desk) {
         desk.queue.Remove(1);
         desk.queue.Add(u"RU1");
         return DecimalText(desk.queue.Count());
       },
       u"1",
       kNothingNew,
       {}},
      // The last entry takes the session with it.
      {u"CQueue.RemoveAll",
       "",
       0,
       Queue,
       [](MemberDesk& desk) {
         desk.queue.RemoveAll();
         return DecimalText(desk.queue.Count());
       },
       u"0",
       kNoSession | kNoPnr,
       {}},
      {u"CQueue.NewEnum",
       "",
       0,
       Queue,
       [](MemberDesk& desk) { return desk.queue.Entries().front()->Command(); },
       u"RU1",
       kNothingNew,
       {}},

      Creation({u"CBatch", "", 0, {}, [](MemberDesk& desk) { return desk.Batch().Separator(); }, u"", kNothingNew, {}}),
      {u"CBatch.Commands",
       "",
       0,
       FillBatch,
       [](MemberDesk& desk) { return DecimalText(desk.Batch().Commands()->Count()); },
       u"1",
       kNothingNew,
       {}},
      {u"CBatch.Commands put",
       "",
       0,
       FillBatch,
       [](MemberDesk& desk) {
         desk.Batch().SetCommands(std::make_shared<CQueue>(desk.module));
         return DecimalText(desk.Batch().Commands()->Count());
       },
       u"0",
       kNothingNew,
       {}},
      {u"CBatch.Separator",
       "",
       0,
       FillBatch,
       [](MemberDesk& desk) { return desk.Batch().Separator(); },
       u"",
       kNothingNew,
       {}},
      {u"CBatch.Separator put",
       "",
       0,
       FillBatch,
       [](MemberDesk& desk) {
         desk.Batch().SetSeparator(u"#");
         return desk.Batch().Separator();
       },
       u"#",
       kNothingNew,
       {}},
      {u"CBatch.Submit", "", 2300, FillBatch,
       [](MemberDesk& desk) {
         desk.Batch().Submit();
         return std::u16string();
       },
       u"", kNothingNew, Steps{{u"CreateParamBag", kOwn}} + kSendOne + kReport},
      {u"CBatch.SubmitWithResponse", "", 2315,
       [](MemberDesk& desk) {
         FillBatch(desk);
         desk.Bag();
       },
       [](MemberDesk& desk) {
         desk.Batch().SubmitWithResponse(desk.bag);
         return std::u16string();
       },
       u"True", kNothingNew, kSendOne + kReport, Outcome},
      {u"CBatch.RMBatch",
       "",
       2305,
       FillBatch,
       [](MemberDesk& desk) {
         TextArray elements;
         desk.Batch().RMBatch(u"PAY AT AIRPORT", elements);
         return elements.items.front();
       },
       u"RMPAY AT AIRPORT",
       kNothingNew,
       {}},
  };
}

}  // namespace wendrill::flow
