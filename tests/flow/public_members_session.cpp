// CQuillet and CEncodeUtils.
#include "common/text.h"
#include "public_member_tables.h"
#include "support/us_text.h"

namespace wendrill::flow {
namespace {

constexpr Meets kOwn = Meets::OwnNumber;
constexpr Meets kTheirs = Meets::ToolkitsError;
constexpr Meets kPassed = Meets::Nothing;

std::u16string Row(std::u16string_view text) {
  std::u16string row(text);
  row.resize(kRowWidth, kBlank);
  return row;
}

// --- The alarm lock -------------------------------------------------------------------------------------------------
//
// No failure inside it reaches a caller. A readiness question that fails counts as answered with no, which everybody
// tolerates: no lock is taken, and one that is held is kept.

// The two questions, in a run that asks them for the first time.
Steps AskFirst(unsigned leaves, std::optional<std::u16string_view> result = {}) {
  return {{u"CreateTextHelper", kPassed, leaves, 1, 0, result},
          {u"TerminalReady", kPassed, leaves, 1, 0, result},
          {u"HostReady", kPassed, leaves, 1, 0, result}};
}
Steps AskAgain(unsigned leaves, std::optional<std::u16string_view> result = {}) {
  return {{u"TerminalReady", kPassed, leaves, 1, 0, result}, {u"HostReady", kPassed, leaves, 1, 0, result}};
}

// What follows them. A version that cannot be read means the entries; a component that cannot be made or fails leaves
// the code 0, and one without the method means the entries too.
Steps ByComponent(unsigned leaves) {
  return {
      {u"TerminalVersion", kPassed, leaves}, {u"CreateAlarmManager", kPassed, leaves}, {u"LockAlarm", kPassed, leaves}};
}

// A clear key that fails was not accepted, which is a failure of whoever asked for the lock. The entry counts as sent.
Steps ByEntry(unsigned leaves, const Step& clearKey) {
  return Steps{{u"TerminalVersion", kPassed, leaves}} + Steps{clearKey} + Steps{{u"Send", kPassed, leaves}};
}

// Around an entry that raises no alarm: no lock to take, and none to give back.
const Steps kNothingToUnlock = AskFirst(kNothingNew);

// Around an alarm entry. The members' other steps stand between the two.
Steps LockFirst(unsigned leaves = kNothingNew) {
  return AskFirst(leaves) + ByComponent(leaves);
}
Steps UnlockAtLast(unsigned leaves = kNothingNew) {
  return AskAgain(leaves | kAlarmLock) + ByComponent(leaves);
}

// The same on an older terminal. The clear key of the unlock may fail once: the way out tries it again.
Steps Locked(Steps steps) {
  for (Step& step : steps) {
    step.locked = step.meets == kOwn;
  }
  return steps;
}
Steps LockByEntryFirst() {
  return AskFirst(kNothingNew) + ByEntry(kNothingNew, {u"SendKey", kOwn});
}
Steps UnlockByEntryAtLast(unsigned leaves = kNothingNew) {
  return Locked(AskAgain(leaves | kAlarmLock) + ByEntry(leaves, {u"SendKey", kOwn, leaves}));
}

// --- Setting up -----------------------------------------------------------------------------------------------------

void Connect(MemberDesk& desk) {
  desk.Quillet();
}

std::function<void(MemberDesk&)> Having(std::u16string_view entry) {
  return [entry](MemberDesk& desk) { desk.Quillet().SendCommand(entry); };
}

void ConnectAndLock(MemberDesk& desk) {
  desk.Quillet().LockAlarm();
}

// A bag with the keys that are true, and the entry where the member takes it from there.
std::function<void(MemberDesk&)> Asking(std::vector<std::u16string_view> keys, std::u16string_view entry = {}) {
  return [keys, entry](MemberDesk& desk) {
    desk.Quillet().SendCommandGetAll(u"");  // begins a loop and sends nothing
    desk.Bag().Set(u"strKeyCommand", entry);
    for (const auto key : keys) {
      desk.Bag().Set(key, true);
    }
  };
}

// --- Runs -----------------------------------------------------------------------------------------------------------

using Run = std::function<std::u16string(MemberDesk&)>;

// A member that gives a text, a number or a Boolean.
template <typename Member>
Run Giving(Member member) {
  return [member](MemberDesk& desk) { return testing::ToUsText(Value(member(desk.Quillet()))); };
}

template <typename Member>
Run Doing(Member member) {
  return [member](MemberDesk& desk) {
    member(desk.Quillet());
    return std::u16string();
  };
}

std::u16string FI(MemberDesk& desk, std::u16string_view entry) {
  return desk.Quillet().SendCommandFI(entry, desk.bag);
}

const std::u16string kTwoPages = Row(u"ONE") + Row(u"TWO") + Row(u")>2/2");
const std::u16string kWorkAreas = Row(u"WORK AREAS");
const std::u16string kStored = Row(u"RP/PARXX0100 STORED");
const std::u16string kAtLast = Row(u"AT LAST");
const std::u16string kDisplay = Row(u"ONE") + Row(u"TWO") + Row(u".");
const std::u16string kTicketing = Row(u"FARE (1)") + Row(u"TOTAL");
const std::u16string kTics = Row(u"FIRST MD") + u"LAST";
const std::u16string kPnrTitle = Row(u"--- TST AXR ---");

// --- Steps that several members share -------------------------------------------------------------------------------

// Two pages are collected: the first one's text and type, then the second one's text.
const Steps kCollectTwoPages = {{u"Send", kOwn},
                                {u"Buffer", kOwn, kResponse},
                                {u"ResponseType", kOwn, kResponse},
                                {u"Send", kOwn, kResponse},
                                {u"Buffer", kOwn, kResponse}};

// From the PNR before to the one that the toolkit has read.
Steps Retrieve(std::u16string_view operation) {
  return {{u"CreatePnr", kOwn, kNoPnr},
          {u"HostConnection", kOwn, kOtherPnr},
          {operation, kOwn, kOtherPnr},
          {u"Header", kOwn, kOtherPnr},
          {u"Text", kOwn, kOtherPnr}};
}

const Steps kReadFIKeys = {{u"Get", kOwn, kNothingNew, 4}};
const Steps kReadTicsKeys = {{u"Get", kOwn, kNothingNew, 3}};

std::vector<MemberRun> CreationAndState() {
  return {
      Creation({u"CQuillet",
                "",
                0,
                {},
                Giving([](CQuillet& q) { return q.GetSessionList(); }),
                u"A;B",
                kSession,
                SetUpSession(kTheirs)}),
      Creation({u"CQuillet",
                "while another lives",
                0,
                Connect,
                [](MemberDesk& desk) { return desk.secondQuillet.emplace(desk.module).GetSessionList(); },
                u"",
                kNothingNew,
                {}}),
      {u"CQuillet.ConnectSession",
       "",
       2535,
       Connect,
       Doing([](CQuillet& q) { q.ConnectSession(u"B"); }),
       u"",
       kNothingNew,
       {{u"Count", kOwn, kNoSession}, {u"Item", kOwn, kNoSession}}},
      {u"CQuillet.GetSessionList",
       "",
       0,
       Connect,
       Giving([](CQuillet& q) { return q.GetSessionList(); }),
       u"A;B",
       kNothingNew,
       {}},
      {u"CQuillet.StopLoop", "", 0, Connect, Doing([](CQuillet& q) { q.StopLoop(); }), u"", kNoSession, {}},
      {u"CQuillet.Command", "", 0, Connect, Giving([](CQuillet& q) { return q.Command(); }), u"", kNothingNew, {}},
      {u"CQuillet.Command put", "", 0, Connect, Doing([](CQuillet& q) { q.SetCommand(u"JD"); }), u"", kNothingNew, {}},
      {u"CQuillet.mTmpSession_ReceivedResponse",
       "",
       0,
       Connect,
       Doing([](CQuillet& q) { q.mTmpSession_ReceivedResponse(); }),
       u"",
       kNothingNew,
       {}},
  };
}

// The screen is cleared before the lock is asked for.
std::vector<MemberRun> SendCommandRuns() {
  const auto send = [](std::u16string_view entry) {
    return Giving([entry](CQuillet& q) { return q.SendCommand(entry); });
  };
  const Steps clear = {{u"SendKey", kOwn}};
  const Steps sendAndRead = {{u"Send", kOwn}, {u"Buffer", kOwn, kResponse}};
  return {
      {u"CQuillet.SendCommand", "", 2505, Connect, send(u"JD"), kWorkAreas, kNothingNew,
       clear + sendAndRead + kNothingToUnlock},
      {u"CQuillet.SendCommand", "alarm entry", 2505, Connect, send(u"ER"), kStored, kNothingNew,
       clear + LockFirst() + sendAndRead + UnlockAtLast()},
      {u"CQuillet.SendCommand", "empty entry", 2505, Connect, send(u""), u"", kNothingNew, {}},
      {u"CQuillet.SendCommandNoTransmit",
       "",
       2505,
       Connect,
       Giving([](CQuillet& q) { return q.SendCommandNoTransmit(u"JD"); }),
       u"",
       kNothingNew,
       {{u"Send", kOwn}}},
  };
}

std::vector<MemberRun> SendCommandNoClearRuns() {
  const auto send = [](std::u16string_view entry) {
    return Giving([entry](CQuillet& q) { return q.SendCommandNoClear(entry); });
  };
  const Steps sendAndRead = {{u"Send", kOwn}, {u"Buffer", kOwn, kResponse, kAnyNumber}};
  return {
      {u"CQuillet.SendCommandNoClear", "", 2530, Connect, send(u"JD"), kWorkAreas, kNothingNew,
       sendAndRead + kNothingToUnlock},
      {u"CQuillet.SendCommandNoClear", "late answer", 2530, Connect, send(u"LATE"), kAtLast, kNothingNew,
       sendAndRead + kNothingToUnlock},
      // The first response is let go before the entry is sent again.
      {u"CQuillet.SendCommandNoClear", "sent again", 2530, Connect, send(u"VERYLATE"), kAtLast, kNothingNew,
       sendAndRead + sendAndRead + kNothingToUnlock},
      // Under the lock the screen is cleared.
      {u"CQuillet.SendCommandNoClear", "alarm entry", 2530, Connect, send(u"ER"), kStored, kNothingNew,
       LockFirst() + Steps{{u"SendKey", kOwn}} + sendAndRead + UnlockAtLast()},
  };
}

std::vector<MemberRun> PagedRuns() {
  return {
      {u"CQuillet.SendCommandGetAll", "", 2525, Connect, Giving([](CQuillet& q) { return q.SendCommandGetAll(u"AN"); }),
       kTwoPages, kNothingNew, Steps{{u"SendKey", kOwn}} + kCollectTwoPages + kNothingToUnlock},
      {u"CQuillet.SendCommandGetAll", "alarm entry", 2525, Connect,
       Giving([](CQuillet& q) { return q.SendCommandGetAll(u"TTP"); }), kTwoPages, kNothingNew,
       Steps{{u"SendKey", kOwn}} + LockFirst() + kCollectTwoPages + UnlockAtLast()},
      {u"CQuillet.SendCommandGetAllNoClear", "", 2525, Connect,
       Giving([](CQuillet& q) { return q.SendCommandGetAllNoClear(u"TTP"); }), kTwoPages, kNothingNew,
       LockFirst() + kCollectTwoPages + UnlockAtLast()},
      {u"CQuillet.SendCommandCollectPages", "", 2557, Connect, Giving([](CQuillet& q) {
         TextArray pages;
         const std::u16string text = q.SendCommandCollectPages(u"TTP", pages);
         return text + DecimalText(std::ssize(pages.items));
       }),
       kTwoPages + u"2", kNothingNew, LockFirst() + kCollectTwoPages + UnlockAtLast()},
      {u"CQuillet.SendCommandLines",
       "",
       2600,
       Connect,
       Giving([](CQuillet& q) { return q.SendCommandLines(u"DISPLAY", u"1", u""); }),
       kDisplay,
       kNothingNew,
       {{u"Send", kOwn}, {u"Buffer", kOwn, kResponse}, {u"Send", kOwn, kResponse}, {u"Buffer", kOwn, kResponse}}},
      {u"CQuillet.GetTotalHostResponse",
       "",
       2545,
       Having(u"AN"),
       Giving([](CQuillet& q) { return q.GetTotalHostResponse(); }),
       kTwoPages,
       kNothingNew,
       {{u"LastResponse", kOwn},
        {u"Buffer", kOwn},
        {u"LastResponse", kOwn},
        {u"ResponseType", kOwn},
        {u"LastResponse", kOwn},
        {u"HostCommand", kOwn},
        {u"Send", kOwn},
        {u"Buffer", kOwn, kResponse}}},
  };
}

std::vector<MemberRun> ParameterisedRuns() {
  const auto fi = [](std::u16string_view entry) { return [entry](MemberDesk& desk) { return FI(desk, entry); }; };
  const auto tics = [](MemberDesk& desk) { return desk.Quillet().SendCommandTicsPas(desk.bag); };
  const Steps send = {{u"Send", kOwn}, {u"Buffer", kOwn, kResponse}};
  return {
      {u"CQuillet.SendCommandFI", "", 2506, Asking({}), fi(u"JD"), kWorkAreas, kNothingNew,
       kReadFIKeys + send + kNothingToUnlock},
      {u"CQuillet.SendCommandFI", "all pages of an alarm entry", 2506, Asking({u"blnKeyClear", u"blnKeyGetAll"}),
       fi(u"TTP"), kTwoPages, kNothingNew,
       kReadFIKeys + Steps{{u"SendKey", kOwn}} + LockFirst() + kCollectTwoPages + UnlockAtLast()},
      // The PNR that every CPNR reads stays.
      {u"CQuillet.SendCommandFI", "PNR", 2506, Asking({u"blnKeyGetAll", u"blnKeyPNR"}),
       [](MemberDesk& desk) { return FI(desk, u"RTRCH001").substr(0, kRowWidth); }, kPnrTitle, kNothingNew,
       kReadFIKeys + send +
           Steps{{u"CreatePnr", kOwn, kResponse},
                 {u"HostConnection", kOwn, kResponse},
                 {u"Retrieve", kOwn, kResponse},
                 {u"Text", kOwn, kResponse}} +
           kNothingToUnlock},
      {u"CQuillet.SendCommandFI", "ticketing display", 2506, Asking({u"blnKeyGetAll", u"blnKeyTST"}), fi(u"TQT"),
       kTicketing, kNothingNew,
       kReadFIKeys + send + Steps{{u"Send", kOwn, kResponse}, {u"Buffer", kOwn, kResponse}} + kNothingToUnlock},
      {u"CQuillet.SendCommandTicsPas", "", 2540, Asking({u"blnKeyClear"}, u"JD"), tics, kWorkAreas, kNothingNew,
       kReadTicsKeys + Steps{{u"SendKey", kOwn}, {u"Send", kOwn}, {u"Text", kOwn, kResponse}}},
      {u"CQuillet.SendCommandTicsPas", "all pages", 2540, Asking({u"blnKeyGetAll"}, u"TICS"), tics, kTics, kNothingNew,
       kReadTicsKeys + Steps{{u"Send", kOwn},
                             {u"Text", kOwn, kResponse},
                             {u"LastResponse", kOwn, kResponse},
                             {u"Text", kOwn, kResponse},
                             {u"SendKey", kOwn, kResponse},
                             {u"Send", kOwn, kResponse},
                             {u"LastResponse", kOwn, kResponse},
                             {u"Text", kOwn, kResponse}}},
  };
}

// Alarm entries on an older terminal, where giving the lock back can fail. The number for that is 2559, whatever failed
// first, but SendCommandGetAll has no other number than its own.
std::vector<MemberRun> LockedRuns() {
  const Steps clear = {{u"SendKey", kOwn}};
  const Steps sendAndRead = Locked({{u"Send", kOwn}, {u"Buffer", kOwn, kResponse}});
  const Steps collect = Locked(kCollectTwoPages);
  const auto on = [](std::u16string_view member, std::int32_t number, std::function<void(MemberDesk&)> prepare, Run run,
                     std::u16string result, const Steps& steps, unsigned leaves = kNothingNew,
                     std::int32_t unlockNumber = 2559) {
    return MemberRun{member,
                     "alarm entry, older terminal",
                     number,
                     std::move(prepare),
                     std::move(run),
                     std::move(result),
                     leaves,
                     steps,
                     {},
                     unlockNumber};
  };
  return {
      on(u"CQuillet.SendCommand", 2505, Connect, Giving([](CQuillet& q) { return q.SendCommand(u"ER"); }), kStored,
         clear + LockByEntryFirst() + sendAndRead + UnlockByEntryAtLast()),
      on(u"CQuillet.SendCommandNoClear", 2530, Connect, Giving([](CQuillet& q) { return q.SendCommandNoClear(u"ER"); }),
         kStored,
         LockByEntryFirst() + Locked(clear) + Locked({{u"Send", kOwn}, {u"Buffer", kOwn, kResponse, kAnyNumber}}) +
             UnlockByEntryAtLast()),
      on(u"CQuillet.SendCommandGetAll", 2525, Connect, Giving([](CQuillet& q) { return q.SendCommandGetAll(u"TTP"); }),
         kTwoPages, clear + LockByEntryFirst() + collect + UnlockByEntryAtLast(), kNothingNew, 2525),
      on(u"CQuillet.SendCommandGetAllNoClear", 2525, Connect,
         Giving([](CQuillet& q) { return q.SendCommandGetAllNoClear(u"TTP"); }), kTwoPages,
         LockByEntryFirst() + collect + UnlockByEntryAtLast()),
      on(u"CQuillet.SendCommandCollectPages", 2557, Connect, Giving([](CQuillet& q) {
           TextArray pages;
           return q.SendCommandCollectPages(u"TTP", pages);
         }),
         kTwoPages, LockByEntryFirst() + collect + UnlockByEntryAtLast()),
      on(
          u"CQuillet.SendCommandFI", 2506, Asking({}), [](MemberDesk& desk) { return FI(desk, u"ER"); }, kStored,
          kReadFIKeys + LockByEntryFirst() + sendAndRead + UnlockByEntryAtLast()),
      on(u"CQuillet.ReadPNR", 2503, Connect, Giving([](CQuillet& q) { return q.ReadPNR(u"ER"); }), u"True",
         AskFirst(kOtherPnr) + Steps{{u"TerminalVersion", kPassed, kOtherPnr}, {u"SendKey", kOwn}} +
             Steps{{u"Send", kPassed, kOtherPnr}} + Locked(Retrieve(u"Retrieve")) + UnlockByEntryAtLast(kOtherPnr),
         kOtherPnr),
  };
}

// Members without a number: the toolkit's error reaches the caller as it came.
std::vector<MemberRun> LastResponseRuns() {
  const auto reading = [](std::u16string_view property) -> Steps {
    return {{u"LastResponse", kTheirs}, {property, kTheirs}};
  };
  return {
      {u"CQuillet.LastBuffer", "", 0, Having(u"JD"), Giving([](CQuillet& q) { return q.LastBuffer(); }), kWorkAreas,
       kNothingNew, reading(u"Buffer")},
      {u"CQuillet.LastResponseType", "", 0, Having(u"JD"), Giving([](CQuillet& q) { return q.LastResponseType(); }),
       u"0", kNothingNew, reading(u"ResponseType")},
      {u"CQuillet.LastNumberOfColumns", "", 0, Having(u"JD"),
       Giving([](CQuillet& q) { return q.LastNumberOfColumns(); }), u"80", kNothingNew, reading(u"NumberOfColumns")},
      {u"CQuillet.LastNumberOfLines", "", 0, Having(u"JD"), Giving([](CQuillet& q) { return q.LastNumberOfLines(); }),
       u"24", kNothingNew, reading(u"NumberOfLines")},
      {u"CQuillet.LastHostCommand", "", 0, Having(u"JD"), Giving([](CQuillet& q) { return q.LastHostCommand(); }),
       u"JD", kNothingNew, reading(u"HostCommand")},
      {u"CQuillet.LastText", "", 0, Having(u"JD"), Giving([](CQuillet& q) { return q.LastText(); }), kWorkAreas,
       kNothingNew, reading(u"Text")},
      {u"CQuillet.GetLineFromLastBuffer", "", 0, Having(u"JD"),
       Giving([](CQuillet& q) { return q.GetLineFromLastBuffer(1); }), kWorkAreas, kNothingNew, reading(u"Line")},
  };
}

std::vector<MemberRun> RetrievalRuns() {
  return {
      {u"CQuillet.RetrieveCurrent", "", 2500, Connect, Giving([](CQuillet& q) { return q.RetrieveCurrent(); }), u"0",
       kOtherPnr, Retrieve(u"RetrieveCurrent")},
      {u"CQuillet.RetrieveRecLoc", "", 2501, Connect, Giving([](CQuillet& q) { return q.RetrieveRecLoc(u"RCH001"); }),
       u"True", kOtherPnr, Retrieve(u"Retrieve")},
      {u"CQuillet.RetrieveRecLoc",
       "empty locator",
       2501,
       Connect,
       Giving([](CQuillet& q) { return q.RetrieveRecLoc(u""); }),
       u"False",
       kNothingNew,
       {}},
      {u"CQuillet.SplitPNR", "", 2502, Connect, Giving([](CQuillet& q) { return q.SplitPNR(u"2"); }), u"True",
       kOtherPnr, Retrieve(u"Retrieve")},
      {u"CQuillet.ReadPNR", "", 2503, Connect, Giving([](CQuillet& q) { return q.ReadPNR(u"ER"); }), u"True", kOtherPnr,
       LockFirst(kOtherPnr) + Retrieve(u"Retrieve") + UnlockAtLast(kOtherPnr)},
  };
}

std::vector<MemberRun> KeyAndAlarmRuns() {
  const Run lock = Giving([](CQuillet& q) { return q.LockUnLockAlarm(true); });
  const Run lockRaising = Doing([](CQuillet& q) { q.LockAlarm(); });
  const Run unlockRaising = Doing([](CQuillet& q) { q.UnLockAlarm(); });
  return {
      {u"CQuillet.SendKey",
       "",
       2515,
       Connect,
       Doing([](CQuillet& q) { q.SendKey(257); }),
       u"",
       kNothingNew,
       {{u"SendKey", kOwn}}},
      {u"CQuillet.ChangeSMOD",
       "",
       2520,
       Connect,
       Doing([](CQuillet& q) { q.ChangeSMOD(5, 12); }),
       u"",
       kNothingNew,
       {{u"CreateSession", kOwn}, {u"ReceivedResponse", kOwn}, {u"SendKey", kOwn, kNothingNew, 2}, {u"Send", kOwn}}},
      {u"CQuillet.LockAlarm", "", 2558, Connect, lockRaising, u"", kAlarmLock,
       AskFirst(kNothingNew) + ByComponent(kAlarmLock)},
      {u"CQuillet.LockAlarm", "older terminal", 2558, Connect, lockRaising, u"", kAlarmLock,
       AskFirst(kNothingNew) + ByEntry(kAlarmLock, {u"SendKey", kOwn})},
      {u"CQuillet.UnLockAlarm", "", 2559, ConnectAndLock, unlockRaising, u"", kNothingNew,
       AskAgain(kAlarmLock) + ByComponent(kNothingNew)},
      {u"CQuillet.UnLockAlarm", "older terminal", 2559, ConnectAndLock, unlockRaising, u"", kNothingNew,
       AskAgain(kAlarmLock) + ByEntry(kNothingNew, {u"SendKey", kOwn, kAlarmLock})},
      {u"CQuillet.LockUnLockAlarm", "", 0, Connect, lock, u"0", kAlarmLock,
       AskFirst(kNothingNew, u"-8") + ByComponent(kAlarmLock)},
      {u"CQuillet.LockUnLockAlarm", "older terminal", 0, Connect, lock, u"0", kAlarmLock,
       AskFirst(kNothingNew, u"-8") + ByEntry(kAlarmLock, {u"SendKey", kPassed, kNothingNew, 1, 0, u"-7"})},
  };
}

}  // namespace

std::vector<MemberRun> SessionRuns() {
  std::vector<MemberRun> runs;
  for (auto table : {CreationAndState(), SendCommandRuns(), SendCommandNoClearRuns(), PagedRuns(), LockedRuns(),
                     ParameterisedRuns(), LastResponseRuns(), RetrievalRuns(), KeyAndAlarmRuns()}) {
    runs.insert(runs.end(), table.begin(), table.end());
  }
  return runs;
}

// Whatever fails in the creation is one error with a source of its own.
std::vector<MemberRun> EncodeUtilsRuns() {
  constexpr std::int32_t kConnectFailed = -2147220394;
  const Run create = [](MemberDesk& desk) {
    desk.encodeUtils.emplace(desk.module);
    return std::u16string();
  };
  return {
      Creation({u"CEncodeUtils",
                "",
                kConnectFailed,
                {},
                create,
                u"",
                kNothingNew,
                {{u"CreateSessionList", kOwn}, {u"Count", kOwn}, {u"CreateSession", kOwn}}}),
      {u"CEncodeUtils.EncodeSession",
       "",
       0,
       [create](MemberDesk& desk) { create(desk); },
       [](MemberDesk& desk) -> std::u16string {
         return desk.encodeUtils->EncodeSession() ? u"a connection" : u"Nothing";
       },
       u"a connection",
       kNothingNew,
       {{u"HostConnection", kTheirs}}},
  };
}

}  // namespace wendrill::flow
