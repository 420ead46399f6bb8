// CQuillet: one caller's use of the running Quillet session. It sends entries and reads, pages and collects the
// responses, retrieves PNRs, presses keys and holds the terminal's alarm lock.
//
// All objects of the process share one session and one PNR, which the first live object creates and the last one
// releases. Every member runs on the caller's thread. Members that wait pump the caller's messages meanwhile, so any
// member of any object may be called during a wait, and StopLoop may drop the shared session. In a program that was
// told to close (a quit message is in the queue) a wait ends at once, and its member fails.
//
// Errors: a member raises its own number on any failure inside. A member that holds the alarm lock releases it first;
// when releasing fails, the number is 2559. Everything else in the module-wide state stays as it was at the failure.
// "Raises 2505" below means: on any failure.
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

  // The first live object connects the shared session and creates the shared PNR object. Raises 2510 when no session
  // runs, 6 when 32,767 objects are live already; an error of the toolkit propagates unchanged. A failed creation
  // releases whatever it created.
  explicit CQuillet(ModuleState& state);

  // The last live object releases the shared session, the response in progress and the shared PNR object.
  ~CQuillet();

  CQuillet(const CQuillet&) = delete;
  CQuillet& operator=(const CQuillet&) = delete;

  // Makes the session of that name the shared session of the process. Raises 2535 for an unknown name, when no session
  // runs, and on an object that was created while another object was live; afterwards there is no shared session.
  void ConnectSession(std::u16string_view strSession);

  // The names of the sessions that ran when this object was created, in the toolkit's order, joined with ";". Empty on
  // an object that was created while another object was live.
  std::u16string GetSessionList() const;

  // Ends a paged collection of this object and drops the shared session of the whole process: every sending member of
  // every object fails until ConnectSession is called. Never raises.
  void StopLoop();

  // A string that the object stores. No host traffic.
  std::u16string Command() const;
  void SetCommand(std::u16string_view strCommand);

  // --- One entry and its response (transport.cpp) ------------------------------------------------------------------

  // Clears the screen, sends the entry and returns the response's buffer at that moment, without waiting or retrying.
  // An empty entry sends nothing and returns "". Raises 2505, also when the terminal rejects the clear key.
  ReceivedText SendCommand(std::u16string_view strCommand);

  // Sends the entry without clearing the screen (unless the alarm lock is held) and waits up to 46 seconds for an
  // answer; sends at most three times. An empty entry sends nothing and returns "". Raises 2530, also when the host
  // does not answer.
  std::u16string SendCommandNoClear(std::u16string_view strCommand);

  // Puts the entry on the screen without transmitting it. Always returns "". Raises 2505.
  std::u16string SendCommandNoTransmit(std::u16string_view strCommand);

  // --- The session's last response (quillet.cpp) -------------------------------------------------------------------

  // These members have no error number of their own: the toolkit's error propagates unchanged. They raise 91 when there
  // is no session or no response, and 6 for a response type that 16 bits do not hold.
  std::u16string LastBuffer();
  std::int16_t LastResponseType();
  std::int16_t LastNumberOfColumns();
  std::int16_t LastNumberOfLines();
  std::u16string LastHostCommand();
  std::u16string LastText();
  std::u16string GetLineFromLastBuffer(std::int16_t LineIndex);  // `LineIndex` is passed to the toolkit unchanged

  // --- Whole responses, all pages (paged_entries.cpp) --------------------------------------------------------------

  // Clears the screen, sends the entry, fetches the further pages with MD and returns all pages joined. Sends nothing
  // and returns "" for an empty entry, and when StopLoop is called while the clear key is pressed. Raises 2525.
  std::u16string SendCommandGetAll(std::u16string_view strCommand);

  // The same without the clear key. Raises 2525.
  std::u16string SendCommandGetAllNoClear(std::u16string_view strCommand);

  // Collects the pages of the response that is on the screen already. Raises 2545.
  std::u16string GetTotalHostResponse();

  // Sends the entry, without the clear key and without the alarm lock, reads `strNoPages` pages of the display and
  // returns them joined, from line `strLinenumberStart` (counted from 1, over all pages) on; "" when there is no such
  // line. A start that is empty, not a number or below 1 means line 1. A page count of that kind means all pages. The
  // last page is one that contains "END OF DISPLAY", whose last line that is not blank is "." alone, whose two page
  // numbers are equal, or that the host then repeats unchanged. An empty entry sends nothing and returns "". Raises
  // 2600.
  std::u16string SendCommandLines(std::u16string_view strCommand, std::u16string_view strLinenumberStart,
                                  std::u16string_view strNoPages);

  // Collects like SendCommandGetAllNoClear and stores the single pages in `vntPages`, counted from 1. An empty entry
  // sends nothing, returns "" and stores an empty array. Raises 2557 and then leaves `vntPages` unchanged.
  std::u16string SendCommandCollectPages(std::u16string_view strCommand, TextArray& vntPages);

  // --- Entries whose handling the caller chooses with keys (parameterised_entries.cpp) -----------------------------

  // Reads the keys "blnKeyClear", "blnKeyGetAll", "blnKeyPNR", "blnKeyTST"; a missing key is False. An empty entry
  // sends nothing and returns "". Raises 2506.
  std::u16string SendCommandFI(std::u16string_view strCommand, const ParamBagRef& objParams);

  // Reads the keys "strKeyCommand" (the entry), "blnKeyGetAll", "blnKeyClear". A missing entry sends nothing and
  // returns "". Raises 2540.
  std::u16string SendCommandTicsPas(const ParamBagRef& objParams);

  // --- PNR retrieval: each replaces the PNR that every CPNR of the process reads (retrieval.cpp) -------------------

  // Loads the PNR on display and returns the toolkit's status unchanged. Raises 2500, also when no PNR is on display.
  std::int32_t RetrieveCurrent();

  // Retrieve a PNR with "RT", with "SP" or with the entry itself. Return False when the host has no such PNR, and for
  // an empty argument, which sends nothing and keeps the current PNR. Raise 2501, 2502 and 2503, in this order.
  bool RetrieveRecLoc(std::u16string_view strRecLoc);
  bool SplitPNR(std::u16string_view strPasAsso);
  bool ReadPNR(std::u16string_view strCommand);

  // --- Keys and mode (keys_and_mode.cpp) ---------------------------------------------------------------------------

  // Presses a key; whether the terminal accepted it is not reported. Raises 2515.
  void SendKey(KeyCode keyValue);

  // Switches the terminal's mode with the entry MMFF: mode and form, each of two digits or more. Waits without limit
  // for the toolkit's event: call it only where a session can answer. Raises 2520, also when the program closes
  // meanwhile.
  void ChangeSMOD(std::int16_t intSMOD, std::int16_t intFORM = 0);

  // The handler of the ReceivedResponse event of ChangeSMOD's own session: ends its wait. Never raises.
  void mTmpSession_ReceivedResponse(const ObjectRef& newResponse = nullptr);

  // --- The alarm lock (alarm_lock.cpp) -----------------------------------------------------------------------------

  // LockAlarm raises 2558 and UnLockAlarm 2559 for a negative code of LockUnLockAlarm other than -8 (terminal not
  // ready).
  void LockAlarm();
  void UnLockAlarm();

  // Locks or unlocks the terminal's alarm and returns a code: 0 done or nothing to do; 1 and 2 other successes of the
  // alarm component; -7 the screen could not be cleared; -8 the terminal is not ready; any other code is the alarm
  // component's and leaves the lock state unchanged. Never raises.
  std::int16_t LockUnLockAlarm(bool blnLockUnLock);

 private:
  // quillet.cpp
  void SetUpFirstInstance();
  void ReleaseShared();

  // unlocking.h: run a member's work and raise `number` on any failure. UnlockingOnFailure releases the alarm lock only
  // when the work fails, Unlocking always.
  template <typename Work>
  auto UnlockingOnFailure(std::int32_t number, Work work);
  template <typename Work>
  auto Unlocking(std::int32_t number, Work work);

  // transport.cpp
  std::u16string SendAndRetry(std::u16string_view strCommand);
  void WaitForResponse();

  // paged_entries.cpp
  std::u16string SendAndCollect(std::u16string_view strCommand, std::vector<std::u16string>* pages);

  // parameterised_entries.cpp
  std::u16string RestOfResponse(std::u16string_view strCommand, bool pnr, bool ticketing, std::u16string buffer);
  std::u16string CollectWhileAsked(std::u16string firstText);
  void FetchWhileLoopActive();

  // keys_and_mode.cpp
  void SwitchMode(std::int16_t mode, std::int16_t form);
  void PressAndAwaitEvent();
  std::shared_ptr<HostSession> TmpSession() const;
  void ReleaseTmpSession();

  // alarm_lock.cpp
  void LockAlarmForEntry(std::u16string_view entry);  // if the entry raises host alarms; raises 2558
  std::int16_t LockByEntry(bool lock);

  ModuleState& state_;
  std::u16string command_;
  std::u16string sessionNames_;                   // joined with ";"
  std::shared_ptr<HostSessionList> sessionList_;  // set only on an object that was the first live object
  bool loopActive_ = false;                       // a paged collection has begun and was not stopped
  bool alarmLocked_ = false;                      // the alarm lock is held
  bool awaitingEvent_ = false;                    // a key press waits for the event of tmpSession_
  std::shared_ptr<HostSession> tmpSession_;       // ChangeSMOD's own, whose ReceivedResponse event it awaits
  std::unique_ptr<EventConnection> tmpSessionEvents_;
};

// The responses to the entries of a batch, which one CQuillet sends one after the other with SendCommand. It is created
// for the first entry, so that a batch without entries needs no session. Raises what creating and sending raise.
std::vector<std::u16string> ResponsesTo(const std::vector<std::u16string>& entries, ModuleState& state);

}  // namespace wendrill
