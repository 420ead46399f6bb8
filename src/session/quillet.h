// CQuillet: the object with which a caller uses the running Quillet session. It sends entries, reads responses and
// collects their pages, retrieves PNRs, presses keys and holds the terminal's alarm lock.
//
// All CQuillet objects of the process share one session and one PNR object. The first live object creates both, and the
// last live object releases them. Every member runs on the caller's thread. A member that waits delivers the thread's
// messages during the wait. So any member of any object may be called during a wait, and a call of StopLoop may drop
// the shared session. When the program was told to close (the message queue contains a quit message), a wait ends at
// once and its member fails.
//
// Errors: a member raises its own error number on any failure inside it. "Raises 2505" below means: raises 2505 on any
// failure. A member that holds the alarm lock releases the lock before it raises; when releasing the lock fails, the
// member raises 2559 instead of its own number. Nothing else in the module-wide state is rolled back: it stays as it
// was when the failure occurred.
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

  // When no other object is live, connects the shared session and creates the shared PNR object. Raises 2510 when no
  // session runs, and 6 when 32,767 objects are live already. An error of the toolkit propagates unchanged. A
  // constructor that fails releases everything that it has created.
  explicit CQuillet(ModuleState& state);

  // When no other object is live, releases the shared session, the response in progress and the shared PNR object.
  ~CQuillet();

  CQuillet(const CQuillet&) = delete;
  CQuillet& operator=(const CQuillet&) = delete;

  // Makes the session with the name `strSession` the shared session of the process. Raises 2535 for an unknown name,
  // when no session runs, and on an object that was created while another object was live. After a failure there is no
  // shared session.
  void ConnectSession(std::u16string_view strSession);

  // The names of the sessions that ran when this object was created, joined with ";", in the toolkit's order. Empty on
  // an object that was created while another object was live.
  std::u16string GetSessionList() const;

  // Ends a collection of pages that this object is running, and drops the shared session of the whole process. From
  // then on, every member that sends fails, on every object, until ConnectSession is called. Never raises.
  void StopLoop();

  // A string that the object stores for its caller. Reading and setting the string cause no host traffic.
  std::u16string Command() const;
  void SetCommand(std::u16string_view strCommand);

  // --- One entry and its response (transport.cpp) ------------------------------------------------------------------

  // Clears the screen, sends the entry and returns the buffer of the response. Reads the buffer right after sending:
  // does not wait for the host and does not send the entry again. An empty entry sends nothing and returns "". Raises
  // 2505, also when the terminal rejects the clear key.
  ReceivedText SendCommand(std::u16string_view strCommand);

  // Sends the entry and returns the buffer of the response. Clears the screen before sending only when the alarm lock
  // is held. Waits up to 46 seconds for an answer and then sends the entry again, at most three times in all; does not
  // wait after the third time. An empty entry sends nothing and returns "". Raises 2530, also when the host does not
  // answer.
  std::u16string SendCommandNoClear(std::u16string_view strCommand);

  // Puts the entry on the screen without transmitting it to the host. Always returns "". Raises 2505.
  std::u16string SendCommandNoTransmit(std::u16string_view strCommand);

  // --- The session's last response (quillet.cpp) -------------------------------------------------------------------

  // These members read the last response of the shared session. They have no error number of their own: the toolkit's
  // error propagates unchanged. They raise 91 when there is no session or no response, and 6 when a response type or a
  // screen size does not fit into 16 bits.
  std::u16string LastBuffer();
  std::int16_t LastResponseType();
  std::int16_t LastNumberOfColumns();
  std::int16_t LastNumberOfLines();
  std::u16string LastHostCommand();
  std::u16string LastText();
  std::u16string GetLineFromLastBuffer(std::int16_t LineIndex);  // `LineIndex` is passed to the toolkit unchanged

  // --- Whole responses, all pages (paged_entries.cpp) --------------------------------------------------------------

  // Clears the screen, sends the entry, fetches the further pages with the entry MD and returns all pages joined.
  // Returns "" without sending the entry when the entry is empty, or when StopLoop is called while the clear key is
  // pressed. Raises 2525.
  std::u16string SendCommandGetAll(std::u16string_view strCommand);

  // Works like SendCommandGetAll, but does not press the clear key. Raises 2525.
  std::u16string SendCommandGetAllNoClear(std::u16string_view strCommand);

  // Fetches the further pages of the response that is already on the screen and returns all pages joined. Raises 2545.
  std::u16string GetTotalHostResponse();

  // Sends the entry, reads `strNoPages` pages of the display and joins them. Returns the joined text from line
  // `strLinenumberStart` on (counted from 1, over all pages); "" when there is no such line. Presses no clear key and
  // takes no alarm lock. An empty entry sends nothing and returns "". Raises 2600.
  //
  // A start line that is empty, not a number or below 1 means line 1. A page count that is empty, not a number or below
  // 1 means all pages. The last page of a display is a page that contains "END OF DISPLAY", a page whose page number is
  // that of the last page, such as 5/5, a page whose last line that is not blank is "." alone, or a page that the host
  // then repeats unchanged.
  std::u16string SendCommandLines(std::u16string_view strCommand, std::u16string_view strLinenumberStart,
                                  std::u16string_view strNoPages);

  // Works like SendCommandGetAllNoClear, and also stores the single pages in `vntPages`, an array whose lower bound is
  // 1. An empty entry sends nothing, returns "" and stores an empty array. Raises 2557 and then leaves `vntPages`
  // unchanged.
  std::u16string SendCommandCollectPages(std::u16string_view strCommand, TextArray& vntPages);

  // --- Entries whose handling the caller chooses with keys (parameterised_entries.cpp) -----------------------------

  // Sends an entry and returns its response. Reads these Boolean keys; a missing key is False:
  //   "blnKeyClear"    press the clear key before sending
  //   "blnKeyGetAll"   return all pages instead of the first page
  //   "blnKeyPNR"      with "blnKeyGetAll": return the display of the PNR that the host returns for the entry
  //   "blnKeyTST"      with "blnKeyGetAll": return the pages of a ticketing display
  // An empty entry sends nothing and returns "". Raises 2506.
  std::u16string SendCommandFI(std::u16string_view strCommand, const ParamBagRef& objParams);

  // Sends an entry and returns the text of its response. Reads these keys; a missing Boolean key is False:
  //   "strKeyCommand"  the entry; when the key is missing or empty, nothing is sent and "" is returned
  //   "blnKeyGetAll"   also fetch the further pages that the response asks for (see CollectWhileAsked)
  //   "blnKeyClear"    press the clear key before sending
  // Raises 2540.
  std::u16string SendCommandTicsPas(const ParamBagRef& objParams);

  // --- PNR retrieval: each replaces the PNR that every CPNR of the process reads (retrieval.cpp) -------------------

  // Loads the PNR that is on display and returns the toolkit's status code unchanged. Raises 2500, also when no PNR is
  // on display.
  std::int32_t RetrieveCurrent();

  // These members retrieve a PNR: RetrieveRecLoc with the entry "RT" and the record locator, SplitPNR with the entry
  // "SP" and the association, ReadPNR with `strCommand` as the entry. They return False when the host has no such PNR.
  // An empty argument sends nothing, keeps the current PNR and returns False. RetrieveRecLoc raises 2501, SplitPNR 2502
  // and ReadPNR 2503.
  bool RetrieveRecLoc(std::u16string_view strRecLoc);
  bool SplitPNR(std::u16string_view strPasAsso);
  bool ReadPNR(std::u16string_view strCommand);

  // --- Keys and mode (keys_and_mode.cpp) ---------------------------------------------------------------------------

  // Presses a key. Does not report whether the terminal accepted the key. Raises 2515.
  void SendKey(KeyCode keyValue);

  // Switches the terminal's mode with the entry MMFF, which consists of the mode and the form, each with at least two
  // digits. Waits without a time limit for the toolkit's event, so call ChangeSMOD only where a session can answer.
  // Raises 2520, also when the program is told to close during the wait.
  void ChangeSMOD(std::int16_t intSMOD, std::int16_t intFORM = 0);

  // The handler of the ReceivedResponse event of the session that ChangeSMOD creates. Ends the wait of ChangeSMOD.
  // Never raises.
  void mTmpSession_ReceivedResponse(const ObjectRef& newResponse = nullptr);

  // --- The alarm lock (alarm_lock.cpp) -----------------------------------------------------------------------------

  // Take and release the alarm lock. LockAlarm raises 2558, and UnLockAlarm raises 2559, when LockUnLockAlarm returns a
  // negative code other than -8 (terminal not ready).
  void LockAlarm();
  void UnLockAlarm();

  // Locks (True) or unlocks (False) the terminal's alarm. Never raises. Returns a code:
  //    0      done, or nothing to do
  //    1, 2   another kind of success of the alarm component
  //   -7      the screen could not be cleared
  //   -8      the terminal or the host is not ready
  //   other   a code of the alarm component
  // The lock state changes only when the code is 0, 1 or 2.
  std::int16_t LockUnLockAlarm(bool blnLockUnLock);

 private:
  // In quillet.cpp:
  void SetUpFirstInstance();
  void ReleaseShared();

  // In unlocking.h. Both functions run the work of a member and raise `number` when the work fails. UnlockingOnFailure
  // releases the alarm lock only when the work fails; Unlocking always releases the lock.
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
  void LockAlarmForEntry(std::u16string_view entry);  // for an entry that raises host alarms; raises 2558
  std::int16_t LockByEntry(bool lock);

  ModuleState& state_;
  std::u16string command_;
  std::u16string sessionNames_;                   // the result of GetSessionList
  std::shared_ptr<HostSessionList> sessionList_;  // null unless this object was created as the first live object
  // Set by SendCommandGetAll and SendCommandCollectPages, cleared by StopLoop. SendCommandTicsPas fetches further pages
  // only while loopActive_ is true.
  bool loopActive_ = false;
  bool alarmLocked_ = false;                 // this object holds the alarm lock
  bool awaitingEvent_ = false;               // ChangeSMOD waits for the ReceivedResponse event of tmpSession_
  std::shared_ptr<HostSession> tmpSession_;  // the session that ChangeSMOD creates; null outside ChangeSMOD
  std::unique_ptr<EventConnection> tmpSessionEvents_;
};

// Sends the entries of a batch with SendCommand, one after the other, and returns their responses in the order of the
// entries. One CQuillet object sends all entries. That object is created only when there is an entry, so that a batch
// without entries needs no session. Raises what the constructor of CQuillet and SendCommand raise.
std::vector<std::u16string> ResponsesTo(const std::vector<std::u16string>& entries, ModuleState& state);

}  // namespace wendrill
