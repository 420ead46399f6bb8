// CPNR as automation sees it: its own interface, IGet and IGetPNR.
#pragma once

#include "com/classes/pnr_members.h"
#include "com/server/automation_object_base.h"
#include "pnr/counts.h"
#include "pnr/pnr.h"
#include "pnr/records.h"
#include "scan/display_scans.h"
#include "scan/elements.h"
#include "wendrill23.h"

namespace wendrill::com {

class CPNRObject final : public AutomationClass<CPNRObject, &CLSID_CPNR, _CPNR, _IGet, _IGetPNR> {
 public:
  CPNRObject();

  HRESULT STDMETHODCALLTYPE get_Command(BSTR* result) override;
  HRESULT STDMETHODCALLTYPE put_Command(BSTR strCommand) override;
  HRESULT STDMETHODCALLTYPE get_PNR(IDispatch** result) override;
  HRESULT STDMETHODCALLTYPE put_PNR(IDispatch* objPNR) override;
  HRESULT STDMETHODCALLTYPE get_Text(BSTR* result) override;
  HRESULT STDMETHODCALLTYPE get_RecordLocator(BSTR* result) override;
  HRESULT STDMETHODCALLTYPE get_CreationOfficeID(BSTR* result) override;
  HRESULT STDMETHODCALLTYPE get_CreationAgentSign(BSTR* result) override;
  HRESULT STDMETHODCALLTYPE get_CreationDate(BSTR* result) override;
  HRESULT STDMETHODCALLTYPE get_ValidatingAirlineElementsCount(SHORT* result) override;
  HRESULT STDMETHODCALLTYPE get_AirSequenceNrElementsCount(SHORT* result) override;

#define DECLARE_COUNT(name, id) HRESULT STDMETHODCALLTYPE get_##name##Count(SHORT* result) override;
  WENDRILL_TOOLKIT_COUNTS(DECLARE_COUNT)
  WENDRILL_SCANNED_COUNTS(DECLARE_COUNT)
#undef DECLARE_COUNT

#define DECLARE_MEMBER(name, id) HRESULT STDMETHODCALLTYPE name(IDispatch** objParams, IDispatch** result) override;
  WENDRILL_GET_MEMBERS(DECLARE_MEMBER)
#undef DECLARE_MEMBER

  HRESULT STDMETHODCALLTYPE Elements(IDispatch** objParams, IDispatch** result) override;

 private:
  HRESULT Record(GetMember member, IDispatch** objParams, IDispatch** result);

  CPNR core_;
  PnrRecords records_;
  DisplayScans scans_;
  PnrElements elements_;
};

}  // namespace wendrill::com
