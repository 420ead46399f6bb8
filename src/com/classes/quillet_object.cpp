#include "com/classes/quillet_object.h"

#include "com/classes/results.h"
#include "com/server/variant_values.h"
#include "common/error.h"

namespace wendrill::com {

template <>
const DispatchTable& TableOf<_CQuillet>() {
  using I = _CQuillet;
  static constexpr auto kMembers = std::to_array<DispatchRow>({
      Property<&I::get_Command, &I::put_Command>(1, L"Command"),
      Action<&I::ConnectSession>(2, L"ConnectSession", {L"strSession"}),
      Function<&I::SendCommand>(3, L"SendCommand", {L"strCommand"}),
      Function<&I::SendCommandNoClear>(4, L"SendCommandNoClear", {L"strCommand"}),
      Function<&I::SendCommandNoTransmit>(5, L"SendCommandNoTransmit", {L"strCommand"}),
      Function<&I::SendCommandGetAll>(6, L"SendCommandGetAll", {L"strCommand"}),
      Function<&I::SendCommandGetAllNoClear>(7, L"SendCommandGetAllNoClear", {L"strCommand"}),
      Function<&I::SendCommandLines>(8, L"SendCommandLines", {L"strCommand", L"strLinenumberStart", L"strNoPages"}),
      Function<&I::SendCommandCollectPages, VT_BSTR, detail::Direct<I>, std::tuple<BSTR, TextsParameter, BSTR*>>(
          9, L"SendCommandCollectPages", {L"strCommand", L"vntPages"}),
      Function<&I::SendCommandFI>(10, L"SendCommandFI", {L"strCommand", L"objParams"}),
      Function<&I::SendCommandTicsPas>(11, L"SendCommandTicsPas", {L"objParams"}),
      Function<&I::GetTotalHostResponse>(12, L"GetTotalHostResponse"),
      Property<&I::get_LastBuffer>(13, L"LastBuffer"),
      Property<&I::get_LastResponseType>(14, L"LastResponseType"),
      Property<&I::get_LastNumberOfColumns>(15, L"LastNumberOfColumns"),
      Property<&I::get_LastNumberOfLines>(16, L"LastNumberOfLines"),
      Property<&I::get_LastHostCommand>(17, L"LastHostCommand"),
      Property<&I::get_LastText>(18, L"LastText"),
      Function<&I::GetLineFromLastBuffer>(19, L"GetLineFromLastBuffer", {L"LineIndex"}),
      Property<&I::get_GetSessionList>(20, L"GetSessionList"),
      Action<&I::StopLoop>(21, L"StopLoop"),
      Function<&I::RetrieveCurrent>(22, L"RetrieveCurrent"),
      Function<&I::RetrieveRecLoc, VT_BOOL>(23, L"RetrieveRecLoc", {L"strRecLoc"}),
      Function<&I::SplitPNR, VT_BOOL>(24, L"SplitPNR", {L"strPasAsso"}),
      Function<&I::ReadPNR, VT_BOOL>(25, L"ReadPNR", {L"strCommand"}),
      Action<&I::SendKey>(26, L"SendKey", {L"keyValue"}),
      Action<&I::ChangeSMOD>(27, L"ChangeSMOD", {L"intSMOD", L"intFORM"}, Optional{1}),
      Action<&I::LockAlarm>(28, L"LockAlarm"),
      Action<&I::UnLockAlarm>(29, L"UnLockAlarm"),
      Function<&I::LockUnLockAlarm, VT_I2, detail::Direct<I>, std::tuple<BooleanParameter, SHORT*>>(
          30, L"LockUnLockAlarm", {L"blnLockUnLock"}),
      Action<&I::mTmpSession_ReceivedResponse>(31, L"mTmpSession_ReceivedResponse", {L"newResponse"}),
  });
  static const DispatchTable table(kMembers);
  return table;
}

namespace {

// A typed caller's own variable may be a reference inside the VARIANT. 13 when it cannot hold the pages.
HRESULT RequirePlaceForPages(VARIANT* variable) {
  if (variable == nullptr) {
    return S_OK;
  }
  if (!EndsInAVariable(*variable)) {
    return E_INVALIDARG;
  }
  VARIANT place{};
  V_VT(&place) = VT_BYREF | VT_VARIANT;
  V_VARIANTREF(&place) = variable;
  const HRESULT status = RequirePlaceForTexts(&place);
  if (status == DISP_E_TYPEMISMATCH) {
    Raise(RunTimeError::TypeMismatch);
  }
  return status;
}

void Replace(VARIANT* variable, VARIANT* value) {
  if ((V_VT(variable) & VT_BYREF) == 0) {
    std::swap(*variable, *value);
  } else {
    Check(StoreInto(variable, value));
  }
}

}  // namespace

CQuilletObject::CQuilletObject() : CQuilletObject(std::make_shared<CQuillet>(TheLibrary().state)) {}

CQuilletObject::CQuilletObject(std::shared_ptr<CQuillet> core) : core_(std::move(core)) {
  TheLibrary().quillets[core_.get()] = this;
}

CQuilletObject::~CQuilletObject() {
  TheLibrary().quillets.erase(core_.get());
}

_CQuillet* CQuilletObject::For(const std::shared_ptr<CQuillet>& core) {
  const auto living = TheLibrary().quillets.find(core.get());
  if (living == TheLibrary().quillets.end()) {
    return new CQuilletObject(core);
  }
  living->second->AddRef();
  return living->second;
}

HRESULT CQuilletObject::get_Command(BSTR* result) {
  return Guarded([&] { return GiveResult(result, [&] { return core_->Command(); }); });
}

HRESULT CQuilletObject::put_Command(BSTR strCommand) {
  return Guarded([&] { core_->SetCommand(TextOf(strCommand)); });
}

HRESULT CQuilletObject::ConnectSession(BSTR strSession) {
  return Run([&] { core_->ConnectSession(TextOf(strSession)); });
}

HRESULT CQuilletObject::SendCommand(BSTR strCommand, BSTR* result) {
  return Run([&] { return GiveResult(result, [&] { return core_->SendForBuffer(TextOf(strCommand)); }); });
}

HRESULT CQuilletObject::SendCommandNoClear(BSTR strCommand, BSTR* result) {
  return Run([&] { return GiveResult(result, [&] { return core_->SendCommandNoClear(TextOf(strCommand)); }); });
}

HRESULT CQuilletObject::SendCommandNoTransmit(BSTR strCommand, BSTR* result) {
  return Run([&] { return GiveResult(result, [&] { return core_->SendCommandNoTransmit(TextOf(strCommand)); }); });
}

HRESULT CQuilletObject::SendCommandGetAll(BSTR strCommand, BSTR* result) {
  return Run([&] { return GiveResult(result, [&] { return core_->SendCommandGetAll(TextOf(strCommand)); }); });
}

HRESULT CQuilletObject::SendCommandGetAllNoClear(BSTR strCommand, BSTR* result) {
  return Run([&] { return GiveResult(result, [&] { return core_->SendCommandGetAllNoClear(TextOf(strCommand)); }); });
}

HRESULT CQuilletObject::SendCommandLines(BSTR strCommand, BSTR strLinenumberStart, BSTR strNoPages, BSTR* result) {
  return Run([&] {
    return GiveResult(result, [&] {
      return core_->SendCommandLines(TextOf(strCommand), TextOf(strLinenumberStart), TextOf(strNoPages));
    });
  });
}

HRESULT CQuilletObject::SendCommandCollectPages(BSTR strCommand, VARIANT* vntPages, BSTR* result) {
  return Run([&]() -> HRESULT {
    const HRESULT status = RequirePlaceForPages(vntPages);
    return FAILED(status) ? status : GiveResult(result, [&] {
      TextArray pages;
      std::u16string text = core_->SendCommandCollectPages(TextOf(strCommand), pages);
      if (vntPages != nullptr) {
        OwnedVariant collected;
        ToVariant(pages, &collected, ForeignObjects(TheLibrary().names), ArrayForm::Variants);
        Replace(vntPages, &collected);
      }
      return text;
    });
  });
}

HRESULT CQuilletObject::SendCommandFI(BSTR strCommand, IDispatch** objParams, BSTR* result) {
  return Run(
      [&] { return GiveResult(result, [&] { return core_->SendCommandFI(TextOf(strCommand), BagIn(objParams)); }); });
}

HRESULT CQuilletObject::SendCommandTicsPas(IDispatch** objParams, BSTR* result) {
  return Run([&] { return GiveResult(result, [&] { return core_->SendCommandTicsPas(BagIn(objParams)); }); });
}

HRESULT CQuilletObject::GetTotalHostResponse(BSTR* result) {
  return Run([&] { return GiveResult(result, [&] { return core_->GetTotalHostResponse(); }); });
}

HRESULT CQuilletObject::get_LastBuffer(BSTR* result) {
  return Run([&] { return GiveResult(result, [&] { return core_->LastBuffer(); }); });
}

HRESULT CQuilletObject::get_LastResponseType(SHORT* result) {
  return Run([&] { return GiveResult(result, [&] { return core_->LastResponseType(); }); });
}

HRESULT CQuilletObject::get_LastNumberOfColumns(SHORT* result) {
  return Run([&] { return GiveResult(result, [&] { return core_->LastNumberOfColumns(); }); });
}

HRESULT CQuilletObject::get_LastNumberOfLines(SHORT* result) {
  return Run([&] { return GiveResult(result, [&] { return core_->LastNumberOfLines(); }); });
}

HRESULT CQuilletObject::get_LastHostCommand(BSTR* result) {
  return Run([&] { return GiveResult(result, [&] { return core_->LastHostCommand(); }); });
}

HRESULT CQuilletObject::get_LastText(BSTR* result) {
  return Run([&] { return GiveResult(result, [&] { return core_->LastText(); }); });
}

HRESULT CQuilletObject::GetLineFromLastBuffer(SHORT LineIndex, BSTR* result) {
  return Run([&] { return GiveResult(result, [&] { return core_->GetLineFromLastBuffer(LineIndex); }); });
}

HRESULT CQuilletObject::get_GetSessionList(BSTR* result) {
  return Run([&] { return GiveResult(result, [&] { return core_->GetSessionList(); }); });
}

HRESULT CQuilletObject::StopLoop() {
  return Run([&] { core_->StopLoop(); });
}

HRESULT CQuilletObject::RetrieveCurrent(LONG* result) {
  return Run([&] { return GiveResult(result, [&] { return core_->RetrieveCurrent(); }); });
}

HRESULT CQuilletObject::RetrieveRecLoc(BSTR strRecLoc, VARIANT_BOOL* result) {
  return Run([&] { return GiveResult(result, [&] { return core_->RetrieveRecLoc(TextOf(strRecLoc)); }); });
}

HRESULT CQuilletObject::SplitPNR(BSTR strPasAsso, VARIANT_BOOL* result) {
  return Run([&] { return GiveResult(result, [&] { return core_->SplitPNR(TextOf(strPasAsso)); }); });
}

HRESULT CQuilletObject::ReadPNR(BSTR strCommand, VARIANT_BOOL* result) {
  return Run([&] { return GiveResult(result, [&] { return core_->ReadPNR(TextOf(strCommand)); }); });
}

HRESULT CQuilletObject::SendKey(QuilletKeyValues* keyValue) {
  return keyValue == nullptr ? E_POINTER : Run([&] { core_->SendKey(static_cast<KeyCode>(*keyValue)); });
}

HRESULT CQuilletObject::ChangeSMOD(SHORT intSMOD, SHORT intFORM) {
  return Run([&] { core_->ChangeSMOD(intSMOD, intFORM); });
}

HRESULT CQuilletObject::LockAlarm() {
  return Run([&] { core_->LockAlarm(); });
}

HRESULT CQuilletObject::UnLockAlarm() {
  return Run([&] { core_->UnLockAlarm(); });
}

HRESULT CQuilletObject::LockUnLockAlarm(VARIANT_BOOL blnLockUnLock, SHORT* result) {
  return Run(
      [&] { return GiveResult(result, [&] { return core_->LockUnLockAlarm(blnLockUnLock != VARIANT_FALSE); }); });
}

HRESULT CQuilletObject::mTmpSession_ReceivedResponse(IDispatch*) {
  return Run([&] { core_->mTmpSession_ReceivedResponse(); });
}

}  // namespace wendrill::com
