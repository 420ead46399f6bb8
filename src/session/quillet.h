// CQuillet: the object with which a caller uses the running Quillet session. It sends entries, reads responses and
// collects their pages, retrieves PNRs, presses keys and holds the terminal's alarm lock.
//
// All CQuillet objects of the process share one session and one PNR object. The constructor creates the session and the
// PNR object when no other CQuillet object exists; the destructor of the last object releases them. Every member runs
// on the caller's thread. A member that waits for the host delivers the thread's messages during the wait. So any
// member of any object may be called during a wait, and a call of StopLoop may drop the shared session. When the
// program was told to close (the message queue contains a quit message), the wait ends at once and the waiting member
// fails.
//
// Errors: "Raises 2505 on any failure" below has two exceptions:
//   - A lack of memory raises 7 (out of memory).
//   - When the alarm lock cannot be released after an entry, the member raises 2559. Only SendCommandGetAll raises its
//     own number, 2525, for this failure too.
// Except in the constructor and ConnectSession, a failure rolls back nothing in the module-wide state.
//
// The alarm lock: SendCommand, SendCommandNoClear, SendCommandGetAll, SendCommandGetAllNoClear,
// SendCommandCollectPages, SendCommandFI and ReadPNR take the lock before an entry that raises host alarms. After every
// entry, these members release the lock that this object holds, whether the entry succeeded or failed. They release
// even a lock that the caller took with LockAlarm.
//
// Terms such as PNR, entry, segment and association: docs/glossary.md.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "common/module_state.h"
#include "common/param_bag.h"
#include "common/value.h"
#include "toolkit/terminal.h"

namespace wendrill {

class CQuillet {
 public:
  // --- The object and its session (quillet.cpp) --------------------------------------------------------------------

  // When no other CQuillet object exists, connects the shared session and creates the shared PNR object, and raises
  // 2510 when no session runs. An error of the toolkit propagates unchanged. Raises 6 (overflow) when 32,767 CQuillet
  // objects exist already. A constructor that fails releases everything that it has created.
  explicit CQuillet(ModuleState& state);

  // When no other CQuillet object exists, releases the shared session, the shared PNR object and the response in
  // progress, which is the response to the entry that was sent last.
  ~CQuillet();

  CQuillet(const CQuillet&) = delete;
  CQuillet& operator=(const CQuillet&) = delete;

  // Makes the session with the name `strSession` the shared session of the process. Raises 2535 on any failure, for
  // example when no session has this name. On an object that was created while another CQuillet object existed,
  // ConnectSession always fails. After a failure there is no shared session.
  void ConnectSession(std::u16string_view strSession);

  // The names of the sessions that ran when this object was created, joined with ";", in the toolkit's order. Empty on
  // an object that was created while another CQuillet object existed.
  std::u16string GetSessionList() const;

  // Ends the collection of pages that this object is running, and drops the shared session of the whole process.
  // Afterwards, every member of every object fails when it uses the shared session. The session is back when a call of
  // ConnectSession succeeds, or when all objects have been released and a new object is created. Never raises.
  void StopLoop();

  // A string that the object stores for its caller. Reading and setting the string cause no host traffic.
  std::u16string Command() const;
  void SetCommand(std::u16string_view strCommand);

  // --- One entry and its response (transport.cpp) ------------------------------------------------------------------

  // Clears the screen, sends the entry and returns the buffer of the response. Reads the buffer right after sending:
  // does not wait for the host and does not send the entry again. An empty entry sends nothing and returns "". Raises
  // 2505 on any failure, also when the terminal rejects the clear key.
  ReceivedText SendCommand(std::u16string_view strCommand);

  // Sends the entry and returns the buffer of the response. Clears the screen before the first sending only when this
  // object holds the alarm lock. When the host has not answered after 46 seconds, sends the entry again: at most three
  // times in all, without a wait after the third time. An empty entry sends nothing and returns "". Raises 2530 on any
  // failure, also when the host does not answer.
  std::u16string SendCommandNoClear(std::u16string_view strCommand);

  // Puts the entry on the screen without transmitting it to the host; an empty entry changes nothing. The result is
  // always "", because there is no response. Raises 2505 on any failure.
  std::u16string SendCommandNoTransmit(std::u16string_view strCommand);

  // --- The session's last response (quillet.cpp) -------------------------------------------------------------------

  // The members from LastBuffer to GetLineFromLastBuffer read the last response of the shared session. These members
  // have no error number of their own: the toolkit's error propagates unchanged. Each member raises 91 (object not set)
  // when there is no session or no response. LastResponseType, LastNumberOfColumns and LastNumberOfLines also raise 6
  // (overflow) when the toolkit's number does not fit into 16 bits.
  std::u16string LastBuffer();
  std::int16_t LastResponseType();
  std::int16_t LastNumberOfColumns();
  std::int16_t LastNumberOfLines();
  std::u16string LastHostCommand();
  std::u16string LastText();
  std::u16string GetLineFromLastBuffer(std::int16_t LineIndex);  // `LineIndex` is passed to the toolkit unchanged

  // --- Whole responses, all pages (paged_entries.cpp) --------------------------------------------------------------

  // Clears the screen, sends the entry, fetches the further pages with the entry MD and returns all pages joined. An
  // empty entry sends nothing and returns "". When StopLoop of this object is called while the clear key is pressed,
  // the entry is not sent and "" is returned. Raises 2525 on any failure.
  std::u16string SendCommandGetAll(std::u16string_view strCommand);

  // Sends the entry, fetches the further pages with the entry MD and returns all pages joined. Does not clear the
  // screen before. An empty entry sends nothing and returns "". Raises 2525 on any failure.
  std::u16string SendCommandGetAllNoClear(std::u16string_view strCommand);

  // Fetches the further pages of the session's last response with the entry MD and returns all pages joined, including
  // the page that is already on the screen. Raises 2545 on any failure.
  std::u16string GetTotalHostResponse();

  // Sends the entry, reads at most `strNoPages` pages of the display and joins them. Returns the joined text from line
  // `strLinenumberStart` on (counted from 1, over all pages that were read); "" when there is no such line. Presses no
  // clear key and takes no alarm lock. An empty entry sends nothing and returns "". Raises 2600 on any failure.
  //
  // A start line that is empty, not a number or below 1 means line 1. A page count that is empty, not a number or below
  // 1 means all pages. A display ends at the first page that meets one of these conditions:
  //   - The page contains "END OF DISPLAY".
  //   - The two numbers of its page number are equal, as in 5/5, or both are missing.
  //   - Its last line that is not blank is "." alone.
  //   - The host sends the same page again for the next MD.
  std::u16string SendCommandLines(std::u16string_view strCommand, std::u16string_view strLinenumberStart,
                                  std::u16string_view strNoPages);

  // Sends the entry, fetches the further pages with the entry MD and returns all pages joined. Also stores the single
  // pages in `vntPages`, an array whose lower bound is 1. An empty entry sends nothing, returns "" and stores an empty
  // array. Raises 2557 on any failure; `vntPages` is then unchanged.
  std::u16string SendCommandCollectPages(std::u16string_view strCommand, TextArray& vntPages);

  // --- Entries whose handling the caller chooses with keys (parameterised_entries.cpp) -----------------------------

  // Sends an entry and returns its response. Reads these Boolean keys; a missing key is False:
  //   "blnKeyClear"    press the clear key before sending
  //   "blnKeyGetAll"   return all pages instead of the first page
  //   "blnKeyPNR"      with "blnKeyGetAll": return the display of the PNR that the host returns for the entry
  //   "blnKeyTST"      with "blnKeyGetAll": return the pages of a ticketing display, even when "blnKeyPNR" is True too
  // An empty entry sends nothing and returns "". Raises 2506 on any failure.
  std::u16string SendCommandFI(std::u16string_view strCommand, const ParamBagRef& objParams);

  // Sends an entry and returns the text of its response. Reads these keys; a missing Boolean key is False:
  //   "strKeyCommand"  the entry; when the key is missing or empty, nothing is sent and "" is returned
  //   "blnKeyGetAll"   return the further pages too, as long as the last three characters of the text contain "MD" or
  //                    "+". Has no effect unless SendCommandGetAll or SendCommandCollectPages was called on this object
  //                    after its last StopLoop
  //   "blnKeyClear"    press the clear key before sending
  // Raises 2540 on any failure.
  std::u16string SendCommandTicsPas(const ParamBagRef& objParams);

  // --- PNR retrieval: each replaces the PNR that every CPNR of the process reads (retrieval.cpp) -------------------

  // Loads the PNR that is on display and returns the toolkit's status code unchanged. Raises 2500 on any failure, also
  // when no PNR is on display.
  std::int32_t RetrieveCurrent();

  // RetrieveRecLoc, SplitPNR and ReadPNR send an entry and load the PNR with which the host answers. The entry is "RT"
  // and the record locator for RetrieveRecLoc, "SP" and the association for SplitPNR, and `strCommand` for ReadPNR.
  // Each member returns True when the host has the PNR, and False when the host has no such PNR. An empty argument
  // sends nothing, keeps the current PNR and returns False. On any failure, RetrieveRecLoc raises 2501, SplitPNR 2502
  // and ReadPNR 2503.
  bool RetrieveRecLoc(std::u16string_view strRecLoc);
  bool SplitPNR(std::u16string_view strPasAsso);
  bool ReadPNR(std::u16string_view strCommand);

  // --- Keys and mode (keys_and_mode.cpp) ---------------------------------------------------------------------------

  // Presses a key. Does not report whether the terminal accepted the key. Raises 2515 on any failure.
  void SendKey(KeyCode keyValue);

  // Switches the terminal's mode: presses the key PA2 twice and sends the entry MMFF, which consists of the mode and
  // the form, each with at least two digits. After each key press, waits without a time limit for the toolkit's event
  // ReceivedResponse, so call ChangeSMOD only where a session can answer. Raises 2520 on any failure, also when the
  // program is told to close during a wait.
  void ChangeSMOD(std::int16_t intSMOD, std::int16_t intFORM = 0);

  // The handler of the ReceivedResponse event of the session that ChangeSMOD creates. Ends the current wait of
  // ChangeSMOD. Never raises.
  void mTmpSession_ReceivedResponse(const ObjectRef& newResponse = nullptr);

  // --- The alarm lock (alarm_lock.cpp) -----------------------------------------------------------------------------

  // LockAlarm takes the alarm lock and UnLockAlarm releases it, both with LockUnLockAlarm. When LockUnLockAlarm returns
  // a negative code other than -8 (terminal not ready), LockAlarm raises 2558 and UnLockAlarm raises 2559.
  void LockAlarm();
  void UnLockAlarm();

  // Locks (True) or unlocks (False) the terminal's alarm. Never raises. Returns a code:
  //    0      the alarm is locked or unlocked as wanted, now or already before; also 0 for two kinds of failure (see
  //           alarm_lock.cpp): the alarm component fails or cannot be created, or the entry LOCK or UNLOCK fails
  //    1, 2   another kind of success of the alarm component
  //   -7      the screen could not be cleared
  //   -8      the terminal or the host is not ready
  //   other   a code of the alarm component
  // When the code is 0, 1 or 2, this object counts the alarm as locked or unlocked, as wanted, even when 0 hides a
  // failure. With any other code, the lock state of this object does not change.
  std::int16_t LockUnLockAlarm(bool blnLockUnLock);

 private:
  // In quillet.cpp:
  void SetUpFirstInstance();
  void ReleaseShared();

  // UnlockingOnFailure and Unlocking (in unlocking.h) run the work of a member and raise `number` when the work fails.
  // UnlockingOnFailure releases the alarm lock only when the work fails; Unlocking always releases the lock.
  template <typename Work>
  auto UnlockingOnFailure(std::int32_t number, Work work);
  template <typename Work>
  auto Unlocking(std::int32_t number, Work work);

  // In transport.cpp:
  std::u16string SendAndRetry(std::u16string_view strCommand);
  void WaitForResponse();

  // In paged_entries.cpp:
  std::u16string SendAndCollect(std::u16string_view strCommand, std::vector<std::u16string>* pages);

  // In parameterised_entries.cpp:
  std::u16string RestOfResponse(std::u16string_view strCommand, bool pnr, bool ticketing, std::u16string buffer);
  std::u16string CollectWhileAsked(std::u16string firstText);
  void FetchWhileLoopActive();

  // In keys_and_mode.cpp:
  void SwitchMode(std::int16_t mode, std::int16_t form);
  void PressAndAwaitEvent();
  std::shared_ptr<HostSession> TmpSession() const;
  void ReleaseTmpSession();

  // In alarm_lock.cpp:
  void LockAlarmForEntry(std::u16string_view entry);  // calls LockAlarm when `entry` raises host alarms
  std::int16_t LockByEntry(bool lock);

  ModuleState& state_;
  std::u16string command_;
  std::u16string sessionNames_;                   // the result of GetSessionList
  std::shared_ptr<HostSessionList> sessionList_;  // null unless this object was the only one when it was created
  // Whether this object may collect pages: set by SendCommandGetAll and SendCommandCollectPages, cleared by StopLoop.
  // While loopActive_ is false, SendCommandTicsPas fetches no further pages. SendCommandGetAll reads loopActive_ after
  // the clear key, and does not send its entry when StopLoop was called during the key press.
  bool loopActive_ = false;
  bool alarmLocked_ = false;                 // this object holds the alarm lock
  bool awaitingEvent_ = false;               // ChangeSMOD waits for the ReceivedResponse event of tmpSession_
  std::shared_ptr<HostSession> tmpSession_;  // the session that ChangeSMOD creates; null outside ChangeSMOD
  std::unique_ptr<EventConnection> tmpSessionEvents_;
};

// Sends the entries of a batch with SendCommand, one after the other, and returns their responses in the order of the
// entries. One CQuillet object sends all entries. This function creates that object only when there is an entry, so
// that a batch without entries needs no session. Raises what the constructor of CQuillet and SendCommand raise.
std::vector<std::u16string> ResponsesTo(const std::vector<std::u16string>& entries, ModuleState& state);

}  // namespace wendrill
