// CQuillet as automation sees it.
#pragma once

#include <memory>

#include "com/classes/library.h"
#include "com/server/automation_object_base.h"
#include "session/quillet.h"
#include "wendrill23.h"

namespace wendrill::com {

class CQuilletObject final : public AutomationClass<CQuilletObject, &CLSID_CQuillet, _CQuillet> {
 public:
  CQuilletObject();                                         // a new one, for a caller
  explicit CQuilletObject(std::shared_ptr<CQuillet> core);  // one that a queue holds
  ~CQuilletObject() override;

  // The automation object of a core object, counted for the caller; the living one where there is one.
  static _CQuillet* For(const std::shared_ptr<CQuillet>& core);

  HRESULT STDMETHODCALLTYPE get_Command(BSTR* result) override;
  HRESULT STDMETHODCALLTYPE put_Command(BSTR strCommand) override;
  HRESULT STDMETHODCALLTYPE ConnectSession(BSTR strSession) override;
  HRESULT STDMETHODCALLTYPE SendCommand(BSTR strCommand, BSTR* result) override;
  HRESULT STDMETHODCALLTYPE SendCommandNoClear(BSTR strCommand, BSTR* result) override;
  HRESULT STDMETHODCALLTYPE SendCommandNoTransmit(BSTR strCommand, BSTR* result) override;
  HRESULT STDMETHODCALLTYPE SendCommandGetAll(BSTR strCommand, BSTR* result) override;
  HRESULT STDMETHODCALLTYPE SendCommandGetAllNoClear(BSTR strCommand, BSTR* result) override;
  HRESULT STDMETHODCALLTYPE SendCommandLines(BSTR strCommand, BSTR strLinenumberStart, BSTR strNoPages,
                                             BSTR* result) override;
  HRESULT STDMETHODCALLTYPE SendCommandCollectPages(BSTR strCommand, VARIANT* vntPages, BSTR* result) override;
  HRESULT STDMETHODCALLTYPE SendCommandFI(BSTR strCommand, IDispatch** objParams, BSTR* result) override;
  HRESULT STDMETHODCALLTYPE SendCommandTicsPas(IDispatch** objParams, BSTR* result) override;
  HRESULT STDMETHODCALLTYPE GetTotalHostResponse(BSTR* result) override;
  HRESULT STDMETHODCALLTYPE get_LastBuffer(BSTR* result) override;
  HRESULT STDMETHODCALLTYPE get_LastResponseType(SHORT* result) override;
  HRESULT STDMETHODCALLTYPE get_LastNumberOfColumns(SHORT* result) override;
  HRESULT STDMETHODCALLTYPE get_LastNumberOfLines(SHORT* result) override;
  HRESULT STDMETHODCALLTYPE get_LastHostCommand(BSTR* result) override;
  HRESULT STDMETHODCALLTYPE get_LastText(BSTR* result) override;
  HRESULT STDMETHODCALLTYPE GetLineFromLastBuffer(SHORT LineIndex, BSTR* result) override;
  HRESULT STDMETHODCALLTYPE get_GetSessionList(BSTR* result) override;
  HRESULT STDMETHODCALLTYPE StopLoop() override;
  HRESULT STDMETHODCALLTYPE RetrieveCurrent(LONG* result) override;
  HRESULT STDMETHODCALLTYPE RetrieveRecLoc(BSTR strRecLoc, VARIANT_BOOL* result) override;
  HRESULT STDMETHODCALLTYPE SplitPNR(BSTR strPasAsso, VARIANT_BOOL* result) override;
  HRESULT STDMETHODCALLTYPE ReadPNR(BSTR strCommand, VARIANT_BOOL* result) override;
  HRESULT STDMETHODCALLTYPE SendKey(QuilletKeyValues* keyValue) override;
  HRESULT STDMETHODCALLTYPE ChangeSMOD(SHORT intSMOD, SHORT intFORM) override;
  HRESULT STDMETHODCALLTYPE LockAlarm() override;
  HRESULT STDMETHODCALLTYPE UnLockAlarm() override;
  HRESULT STDMETHODCALLTYPE LockUnLockAlarm(VARIANT_BOOL blnLockUnLock, SHORT* result) override;
  HRESULT STDMETHODCALLTYPE mTmpSession_ReceivedResponse(IDispatch* newResponse) override;

 private:
  std::shared_ptr<CQuillet> core_;
};

}  // namespace wendrill::com
