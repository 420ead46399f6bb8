// CQuillet: one caller's use of the running Quillet session. It sends entries and reads, pages and collects the
// responses, retrieves PNRs, presses keys and holds the terminal's alarm lock.
//
// All objects of the process share one session and one PNR, which the first living object sets up and the last one
// releases. Every member runs on the caller's thread. Members that wait let the caller's messages run meanwhile, so any
// other member of any object may be called inside a wait, and StopLoop may drop the shared session in the middle of it.
// In a program that was told to close (a quit message waits) the waits end at once, and their member fails.
//
// Errors: a failing member raises its own number, whatever went wrong inside. Members that take the alarm lock give it
// back first; when that fails, the number is 2559. Module-wide state otherwise stays as it was at the failure.
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
  // The first living object connects the shared session and makes the shared PNR. 2510 when no session runs; 6 when
  // 32,767 objects live already; a failure of the toolkit travels on unchanged. A failed creation leaves nothing
  // behind.
  explicit CQuillet(ModuleState& module);

  // The last living object releases the shared session, the response in progress and the shared PNR.
  ~CQuillet();

  CQuillet(const CQuillet&) = delete;
  CQuillet& operator=(const CQuillet&) = delete;

  // --- The session ----------------------------------------------------------------------------------------------

  // Makes the session of that name the shared one, for every object of the process. 2535 for an unknown name, when no
  // session runs, and on every object that was created while another one lived; no session is shared then.
  void ConnectSession(std::u16string_view strSession);

  // The names of the running sessions in the toolkit's order, joined with ";", as they stood when this object was
  // created. Empty on an object that was created while another one lived.
  std::u16string GetSessionList() const;

  // Ends a paged collection of this object and drops the shared session of the whole process: every sending member of
  // every object fails until ConnectSession is called. Never fails.
  void StopLoop();

  // The handler of mTmpSession's ReceivedResponse event: ends the wait of ChangeSMOD. Never fails.
  void mTmpSession_ReceivedResponse(const ObjectRef& newResponse = nullptr);

  // --- One entry and its response -------------------------------------------------------------------------------

  // A stored text; no host traffic.
  std::u16string Command() const;
  void SetCommand(std::u16string_view strCommand);

  // Clears the screen, sends the entry and returns what the response holds at that moment, without waiting or trying
  // again. An empty entry sends nothing and returns the empty text. 2505, also when the clear key is refused.
  ReceivedText SendCommand(std::u16string_view strCommand);

  // Sends without clearing (the screen is cleared while the alarm lock is held) and waits for an answer, 46 seconds a
  // time, sending at most three times. An empty entry sends nothing and returns the empty text. 2530, also when the
  // host does not answer.
  std::u16string SendCommandNoClear(std::u16string_view strCommand);

  // Puts the entry on the screen without transmitting it. Always returns the empty text. 2505.
  std::u16string SendCommandNoTransmit(std::u16string_view strCommand);

  // The session's last response. These members have no number of their own: the toolkit's error travels on unchanged;
  // 91 when there is no session or no response; 6 for a response type that 16 bits cannot hold.
  std::u16string LastBuffer();
  std::int16_t LastResponseType();
  std::int16_t LastNumberOfColumns();
  std::int16_t LastNumberOfLines();
  std::u16string LastHostCommand();
  std::u16string LastText();
  std::u16string GetLineFromLastBuffer(std::int16_t LineIndex);  // the index is the toolkit's, handed on as it is

  // --- Whole responses, all pages -------------------------------------------------------------------------------

  // Clears the screen, sends the entry, fetches the further pages with MD and returns them joined. An empty entry sends
  // nothing and returns the empty text, as does a StopLoop that comes with the clear key. 2525.
  std::u16string SendCommandGetAll(std::u16string_view strCommand);

  // The same without the clear key. 2525.
  std::u16string SendCommandGetAllNoClear(std::u16string_view strCommand);

  // Collects from the response that is on the screen already. 2545.
  std::u16string GetTotalHostResponse();

  // Sends the entry, without the clear key and without the alarm lock, reads `strNoPages` pages of the display and
  // returns them joined, from line `strLinenumberStart` (counted from 1, over all pages) on; the empty text when there
  // is no such line. A start that is empty, no number or below 1 means line 1; a page count of that kind means all
  // pages, up to one that holds "END OF DISPLAY", whose last line that is not blank is "." alone, whose two page
  // numbers are equal, or that the host then shows again unchanged. An empty entry sends nothing and returns the empty
  // text. 2600.
  std::u16string SendCommandLines(std::u16string_view strCommand, std::u16string_view strLinenumberStart,
                                  std::u16string_view strNoPages);

  // Collects like SendCommandGetAllNoClear and hands the pages back in `vntPages`, one by one, counted from 1. An empty
  // entry sends nothing, returns the empty text and hands back no page. 2557; `vntPages` is not touched then.
  std::u16string SendCommandCollectPages(std::u16string_view strCommand, TextArray& vntPages);

  // --- Entries whose handling the caller chooses with keys --------------------------------------------------------

  // Keys "blnKeyClear", "blnKeyGetAll", "blnKeyPNR", "blnKeyTST"; a missing one is False. An empty entry sends nothing
  // and returns the empty text. 2506.
  std::u16string SendCommandFI(std::u16string_view strCommand, const ParamBagRef& objParams);

  // Keys "strKeyCommand" (the entry), "blnKeyGetAll", "blnKeyClear". A missing entry sends nothing and returns the
  // empty text. 2540.
  std::u16string SendCommandTicsPas(const ParamBagRef& objParams);

  // --- PNR retrieval: each replaces the PNR that every CPNR of the process reads ------------------------------------

  // Reads the PNR on display; returns the toolkit's status as it came. 2500, also when no PNR is on display.
  std::int32_t RetrieveCurrent();

  // Retrieve with "RT", "SP" or the entry itself. False when the host has no such PNR, and for an empty argument, which
  // sends nothing and keeps the PNR that is loaded. 2501, 2502, 2503 when a call fails.
  bool RetrieveRecLoc(std::u16string_view strRecLoc);
  bool SplitPNR(std::u16string_view strPasAsso);
  bool ReadPNR(std::u16string_view strCommand);

  // --- Keys, mode and alarm lock ------------------------------------------------------------------------------------

  // Presses a key; whether the terminal accepted it is not reported. 2515.
  void SendKey(KeyCode keyValue);

  // Switches the terminal's mode with the entry MMFF: mode and form, each of two digits or more. Waits without limit
  // for the toolkit's event: call it only where a session can answer. 2520, also when the program closes meanwhile.
  void ChangeSMOD(std::int16_t intSMOD, std::int16_t intFORM = 0);

  // 2558 and 2559 for a negative code other than -8 (terminal not ready).
  void LockAlarm();
  void UnLockAlarm();

  // Locks or unlocks the terminal's alarm. 0 done or nothing to do; 1 and 2 the alarm component's other successes; -7
  // the screen could not be cleared; -8 the terminal is not ready; any other code is the component's and changes
  // nothing. Never fails.
  std::int16_t LockUnLockAlarm(bool blnLockUnLock);

 private:
  void SetUpFirstInstance();
  void ReleaseShared();

  // Run a member's work under its number. The one gives the alarm lock back when the work fails, the other always.
  template <typename Work>
  auto UnlockingOnFailure(std::int32_t number, Work work);
  template <typename Work>
  auto Unlocking(std::int32_t number, Work work);

  std::u16string SendAndRetry(std::u16string_view strCommand);
  void WaitForResponse();
  std::int16_t LockAlarmForEntry(std::u16string_view entry);

  std::u16string SendAndCollect(std::u16string_view strCommand, std::vector<std::u16string>* pages);
  std::u16string RestOfResponse(std::u16string_view strCommand, bool pnr, bool ticketing, std::u16string buffer);
  std::u16string CollectWhileAsked(std::u16string firstText);
  void FetchWhileLoopActive();

  std::int16_t LockByEntry(bool lock);

  void SwitchMode(std::int16_t mode, std::int16_t form);
  void PressAndAwaitEvent();
  std::shared_ptr<HostSession> TmpSession() const;
  void ReleaseTmpSession();

  ModuleState& module_;
  std::u16string command_;
  std::u16string sessionNames_;                   // joined with ";"
  std::shared_ptr<HostSessionList> sessionList_;  // only on an object that was the first to live
  bool LoopActive = false;                        // a paged collection was begun and not stopped
  bool AlarmLocked = false;                       // the alarm lock is held
  std::int16_t AwaitingEvent = 0;                 // -1 while a key press waits for mTmpSession's event
  std::shared_ptr<HostSession> mTmpSession;
  std::unique_ptr<EventConnection> tmpSessionEvents_;  // mTmpSession's ReceivedResponse to its handler
};

}  // namespace wendrill
