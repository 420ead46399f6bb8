// CBatch early bound, and arrays and queues that are none.
#include <memory>

#include "arrays.h"
#include "bag.h"
#include "client_bag.h"
#include "desktop_fixture.h"
#include "late_calls.h"

namespace wendrill::com::testing {
namespace {

constexpr wchar_t kHost[] =
    LR"([[session]]
name = "A"
[[reply]]
starts = "RU B"
screen = "INVALID FORMAT"
[[reply]]
starts = ""
screen = "RP/PARXX0100"
)";

class BatchObject : public Desktop {
 protected:
  void SetUp() override { Load(kHost); }

  Reference<_CBatch> BatchOf(std::initializer_list<const wchar_t*> entries) {
    const auto batch = Create<_CBatch>(CLSID_CBatch);
    const auto queue = CommandsOf(batch);
    for (const wchar_t* entry : entries) {
      const Text given(entry);
      BSTR command = given;
      Reference<_CQuillet> stored;
      EXPECT_EQ(S_OK, queue->Add(&command, nullptr, stored.Receive()));
    }
    return batch;
  }

  static Reference<_CQueue> CommandsOf(const Reference<_CBatch>& batch) {
    Reference<_CQueue> queue;
    EXPECT_EQ(S_OK, batch->get_Commands(queue.Receive()));
    return queue;
  }
};

std::vector<std::wstring> ElementsOf(const Reference<_CBatch>& batch, const std::wstring& text) {
  OwnedArray elements;
  EXPECT_EQ(S_OK, batch->RMBatch(Text(text.c_str()), elements.InOut()));
  EXPECT_EQ(0, LowerBound(elements.Get()));
  return TextsIn(elements.Get());
}

// --- Submitting

TEST_F(BatchObject, TheReportStandsInTheCallersBag) {
  const auto batch = BatchOf({L"RU A", L"RU B", L"RU C"});
  const Bag bag;
  IDispatch* passed = bag.Object();
  EXPECT_EQ(S_OK, batch->SubmitWithResponse(&passed));
  EXPECT_EQ(bag.Object(), passed);
  EXPECT_EQ(L"key 322\r\nsend RU A\r\nkey 322\r\nsend RU B\r\nkey 322\r\nsend RU C\r\n", Journal());

  OwnedVariant responses;
  ReadKey(bag.Object(), L"strKeyResponseArray", &responses);
  ASSERT_EQ(VT_ARRAY | VT_VARIANT, V_VT(&responses));  // one variant for each packed entry
  EXPECT_EQ(0, LowerBound(V_ARRAY(&responses)));
  EXPECT_EQ((std::vector{Row(L"RP/PARXX0100"), Row(L"INVALID FORMAT"), Row(L"RP/PARXX0100")}),
            TextsIn(V_ARRAY(&responses)));

  OwnedVariant refused;
  ReadKey(bag.Object(), L"strKeyErr", &refused);
  ASSERT_EQ(VT_BSTR, V_VT(&refused));
  EXPECT_STREQ(L"2", V_BSTR(&refused));

  OwnedVariant allWell;
  ReadKey(bag.Object(), L"blnKeyResponseOK", &allWell);
  ASSERT_EQ(VT_BOOL, V_VT(&allWell));
  EXPECT_EQ(VARIANT_FALSE, V_BOOL(&allWell));
}

TEST_F(BatchObject, AClientsOwnBagReceivesTheReportInItsOrder) {
  const auto batch = BatchOf({L"RU A"});
  const auto bag = ClientBag::Make([](const std::wstring&, VARIANT*) { return S_OK; });
  IDispatch* passed = bag.Get();
  EXPECT_EQ(S_OK, batch->SubmitWithResponse(&passed));
  EXPECT_EQ((std::vector<std::wstring>{L"strKeyResponseArray", L"strKeyErr", L"blnKeyResponseOK"}), bag->KeysPut());
  EXPECT_TRUE(bag->KeysRead().empty());
}

TEST_F(BatchObject, SubmitSendsWithoutAReport) {
  const auto batch = BatchOf({L"RM A", L"RM B"});
  EXPECT_EQ(S_OK, batch->Submit());
  EXPECT_EQ(L"key 322\r\nsend RM A;RM B\r\n  RM A\r\n  RM B\r\n", Journal());
}

TEST_F(BatchObject, SeparatorIsPlainTextThatCutsCommands) {
  const auto batch = BatchOf({L"RM A+RU C"});
  Text separator;
  EXPECT_EQ(S_OK, batch->get_Separator(separator.Receive()));
  EXPECT_EQ(L"", separator.Wide());
  EXPECT_EQ(S_OK, batch->put_Separator(Text(L"+")));
  EXPECT_EQ(S_OK, batch->get_Separator(separator.Receive()));
  EXPECT_EQ(L"+", separator.Wide());
  EXPECT_EQ(S_OK, batch->Submit());
  EXPECT_EQ(L"key 322\r\nsend RM A\r\nkey 322\r\nsend RU C\r\n", Journal());
  EXPECT_EQ(S_OK, batch->put_Separator(nullptr));
  EXPECT_EQ(S_OK, batch->get_Separator(separator.Receive()));
  EXPECT_EQ(L"", separator.Wide());
}

TEST_F(BatchObject, EveryFailureNumberArrivesWithItsMessage) {
  const auto batch = BatchOf({L"RM A"});
  const Bag bag;
  IDispatch* passed = bag.Object();
  IDispatch* none = nullptr;
  IDispatch* noBag = batch.Get();
  FailNext(L"Send", E_FAIL, 1);
  EXPECT_OWN_ERROR(2300, batch->Submit());
  FailNext(L"Send", E_FAIL, 1);
  EXPECT_OWN_ERROR(2315, batch->SubmitWithResponse(&passed));
  FailNext(L"Set", E_ACCESSDENIED, 1);
  EXPECT_OWN_ERROR(2315, batch->SubmitWithResponse(&passed));
  EXPECT_OWN_ERROR(2315, batch->SubmitWithResponse(&none));
  EXPECT_OWN_ERROR(2315, batch->SubmitWithResponse(nullptr));
  EXPECT_OWN_ERROR(2315, batch->SubmitWithResponse(&noBag));
  EXPECT_EQ(S_OK, batch->putref_Commands(nullptr));
  EXPECT_OWN_ERROR(2300, batch->Submit());
  EXPECT_OWN_ERROR(2315, batch->SubmitWithResponse(&passed));
}

// --- The queue

TEST_F(BatchObject, CommandsIsOneObjectAndIsReplacedByReference) {
  const auto batch = BatchOf({L"RM LOST"});
  EXPECT_EQ(CommandsOf(batch).As<IUnknown>().Get(), CommandsOf(batch).As<IUnknown>().Get());
  const auto other = CommandsOf(BatchOf({L"RM A"}));
  EXPECT_EQ(S_OK, batch->putref_Commands(other.Get()));
  EXPECT_EQ(other.Get(), CommandsOf(batch).Get());
  EXPECT_EQ(S_OK, batch->Submit());
  EXPECT_EQ(L"key 322\r\nsend RM A\r\n", Journal());
  EXPECT_EQ(S_OK, batch->putref_Commands(nullptr));
  EXPECT_FALSE(CommandsOf(batch));
  EXPECT_EQ(E_POINTER, batch->get_Commands(nullptr));
}

TEST_F(BatchObject, LateBoundCallersReachAnEntryThroughTheProperty) {
  const auto batch = BatchOf({L"RM A", L"RM B"});
  OwnedVariant entry;
  EXPECT_EQ(S_OK, Invoke(batch.Get(), L"Commands", {Number(2)}, &entry));
  ASSERT_EQ(VT_DISPATCH, V_VT(&entry));
  OwnedVariant command;
  EXPECT_EQ(S_OK, Invoke(V_DISPATCH(&entry), L"Command", {}, &command));
  EXPECT_STREQ(L"RM B", V_BSTR(&command));
  EXCEPINFO exception{};
  OwnedVariant none;
  EXPECT_EQ(DISP_E_EXCEPTION, Invoke(batch.Get(), L"Commands", {Number(3)}, &none, &exception));
  EXPECT_EQ(static_cast<SCODE>(0x800A0005), Taken(exception).code);
  EXPECT_EQ(S_OK, batch->putref_Commands(nullptr));
  EXPECT_EQ(DISP_E_BADPARAMCOUNT, Invoke(batch.Get(), L"Commands", {Number(1)}, &none));
}

// Somebody else's queue: it answers for the interface, but it is not this library's.
class ForeignQueue final : public _CQueue {
 public:
  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID wanted, void** object) override {
    const bool known = wanted == IID_IUnknown || wanted == IID_IDispatch || wanted == IID__CQueue;
    *object = known ? static_cast<_CQueue*>(this) : nullptr;
    return known ? S_OK : E_NOINTERFACE;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return 1; }
  ULONG STDMETHODCALLTYPE Release() override { return 1; }
  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*, UINT*) override {
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE Add(BSTR*, BSTR*, _CQuillet**) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE Item(VARIANT, _CQuillet**) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE get_Count(LONG*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE Remove(VARIANT) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE RemoveAll() override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE get_NewEnum(IUnknown**) override { return E_NOTIMPL; }
};

TEST_F(BatchObject, WhatIsNoQueueOfThisLibraryIsRejected) {
  const auto batch = BatchOf({L"RM A"});
  const auto queue = CommandsOf(batch);
  ForeignQueue foreign;
  EXPECT_OWN_ERROR(13, batch->putref_Commands(&foreign));
  const Text text(L"RM A");
  const DISPID commands = IdOf(batch.Get(), L"Commands");
  for (const VARIANT& misfit : {String(text), Number(1), OfType(VT_NULL), Object(batch.Get())}) {
    EXPECT_EQ(DISP_E_TYPEMISMATCH, Invoke(batch.Get(), commands, DISPATCH_PROPERTYPUTREF, {misfit}, nullptr));
  }
  EXPECT_EQ(queue.Get(), CommandsOf(batch).Get());
}

// --- Remarks

TEST_F(BatchObject, RemarksOf123And124CharactersAreOneElementAndTwo) {
  const auto batch = Create<_CBatch>(CLSID_CBatch);
  const std::wstring a123(123, L'A');
  EXPECT_EQ(std::vector{L"RM" + a123}, ElementsOf(batch, L"RM " + a123));
  EXPECT_EQ((std::vector{L"RM" + a123, std::wstring(L"RMA")}), ElementsOf(batch, L"RM " + a123 + L"A"));
  EXPECT_EQ((std::vector{L"RM*" + a123 + L"/P1", std::wstring(L"RM*B/P1")}),
            ElementsOf(batch, L"RM*" + a123 + L" B/P1"));
  EXPECT_EQ(std::vector<std::wstring>{L"RM"}, ElementsOf(batch, L""));
}

TEST_F(BatchObject, TheElementsReplaceTheCallersArray) {
  const auto batch = Create<_CBatch>(CLSID_CBatch);
  OwnedArray elements(ArrayOfStrings(5, {L"what", L"was", L"there"}));
  EXPECT_EQ(S_OK, batch->RMBatch(Text(L"TEXT"), elements.InOut()));
  EXPECT_EQ(0, LowerBound(elements.Get()));
  EXPECT_EQ(std::vector<std::wstring>{L"RMTEXT"}, TextsIn(elements.Get()));
  EXPECT_EQ(E_POINTER, batch->RMBatch(Text(L"TEXT"), nullptr));
}

TEST_F(BatchObject, AnArrayOfSomethingElseIsRejectedAndStaysAsItIs) {
  const auto batch = Create<_CBatch>(CLSID_CBatch);
  SAFEARRAYBOUND bounds[2] = {{2, 0}, {2, 0}};
  SAFEARRAY* const misfits[] = {SafeArrayCreateVector(VT_I4, 0, 3), SafeArrayCreateVector(VT_VARIANT, 0, 3),
                                SafeArrayCreateVector(VT_DISPATCH, 0, 3), SafeArrayCreate(VT_BSTR, 2, bounds)};
  for (SAFEARRAY* misfit : misfits) {
    SAFEARRAY* passed = misfit;
    EXPECT_OWN_ERROR(13, batch->RMBatch(Text(L"TEXT"), &passed));
    EXPECT_EQ(misfit, passed);
    EXPECT_EQ(S_OK, SafeArrayDestroy(misfit));
  }
}

// What a language locks while it walks over it, and what it declared with fixed bounds, cannot be replaced.
TEST_F(BatchObject, AnArrayThatIsLockedOrFixedIsRejectedAndStaysAsItIs) {
  const auto batch = Create<_CBatch>(CLSID_CBatch);
  OwnedArray locked(ArrayOfStrings(0, {L"kept"}));
  ASSERT_EQ(S_OK, SafeArrayLock(locked.Get()));
  SAFEARRAY* const before = locked.Get();
  EXPECT_EQ(DISP_E_ARRAYISLOCKED, batch->RMBatch(Text(L"TEXT"), locked.InOut()));
  EXPECT_EQ(before, locked.Get());
  ASSERT_EQ(S_OK, SafeArrayUnlock(locked.Get()));
  EXPECT_EQ(std::vector<std::wstring>{L"kept"}, TextsIn(locked.Get()));

  OwnedArray fixed(ArrayOfStrings(0, {L"kept"}));
  fixed.Get()->fFeatures |= FADF_FIXEDSIZE;
  SAFEARRAY* const fixedBefore = fixed.Get();
  EXPECT_EQ(DISP_E_ARRAYISLOCKED, batch->RMBatch(Text(L"TEXT"), fixed.InOut()));
  EXPECT_EQ(fixedBefore, fixed.Get());
  EXPECT_EQ(std::vector<std::wstring>{L"kept"}, TextsIn(fixed.Get()));
  fixed.Get()->fFeatures &= static_cast<USHORT>(~FADF_FIXEDSIZE);
}

TEST_F(BatchObject, ALateBoundArrayThatIsLockedOrFixedIsRejectedByItsIndex) {
  const auto batch = Create<_CBatch>(CLSID_CBatch);
  const Text text(L"TEXT");
  for (const VARTYPE type : {VT_BSTR, VT_VARIANT}) {
    OwnedArray fixed(SafeArrayCreateVector(type, 0, 2));
    fixed.Get()->fFeatures |= FADF_FIXEDSIZE;
    VARIANT array = OfType(static_cast<VARTYPE>(VT_BYREF | VT_ARRAY | type));
    V_ARRAYREF(&array) = fixed.InOut();
    UINT argument = 99;
    EXPECT_EQ(DISP_E_ARRAYISLOCKED,
              Invoke(batch.Get(), L"RMBatch", {String(text), array}, nullptr, nullptr, &argument));
    EXPECT_EQ(0U, argument);  // counted from the last one
    fixed.Get()->fFeatures &= static_cast<USHORT>(~FADF_FIXEDSIZE);
  }
}

TEST_F(BatchObject, ALateBoundVariableThatHoldsNoArrayIsRejectedByItsIndex) {
  const auto batch = Create<_CBatch>(CLSID_CBatch);
  const Text text(L"TEXT");
  LONG number = 5;
  VARIANT asNumber = OfType(VT_BYREF | VT_I4);
  V_I4REF(&asNumber) = &number;
  VARIANT plain = Number(5);
  for (const VARIANT& variable : std::vector{asNumber, ByReference(&plain), ByReference(&asNumber)}) {
    UINT argument = 99;
    EXPECT_EQ(DISP_E_TYPEMISMATCH,
              Invoke(batch.Get(), L"RMBatch", {String(text), variable}, nullptr, nullptr, &argument));
    EXPECT_EQ(0U, argument);
  }
  EXPECT_EQ(5, number);
}

TEST_F(BatchObject, ARemarkOfMoreThan32767ElementsIs2310AndLeavesTheArrayAlone) {
  const auto batch = Create<_CBatch>(CLSID_CBatch);
  OwnedArray elements(ArrayOfStrings(0, {L"kept"}));
  EXPECT_OWN_ERROR(2310, batch->RMBatch(Text(std::wstring(32768 * 123, L'A').c_str()), elements.InOut()));
  EXPECT_EQ(std::vector<std::wstring>{L"kept"}, TextsIn(elements.Get()));
  EXPECT_EQ(S_OK, batch->RMBatch(Text(std::wstring(32767 * 123, L'A').c_str()), elements.InOut()));
  EXPECT_EQ(32767U, TextsIn(elements.Get()).size());
}

TEST_F(BatchObject, LateBoundRemarksComeBackInWhateverTheCallerDeclared) {
  const auto batch = Create<_CBatch>(CLSID_CBatch);
  const Text text(L"TEXT");
  OwnedVariant variable;
  EXPECT_EQ(S_OK, Invoke(batch.Get(), L"RMBatch", {String(text), ByReference(&variable)}, nullptr));
  ASSERT_EQ(VT_ARRAY | VT_VARIANT, V_VT(&variable));
  EXPECT_EQ(std::vector<std::wstring>{L"RMTEXT"}, TextsIn(V_ARRAY(&variable)));

  OwnedArray strings;
  VARIANT arrayOfStrings = OfType(VT_BYREF | VT_ARRAY | VT_BSTR);
  V_ARRAYREF(&arrayOfStrings) = strings.InOut();
  EXPECT_EQ(S_OK, Invoke(batch.Get(), L"RMBatch", {String(text), arrayOfStrings}, nullptr));
  EXPECT_EQ(std::vector<std::wstring>{L"RMTEXT"}, TextsIn(strings.Get()));

  OwnedArray variants(SafeArrayCreateVector(VT_VARIANT, 0, 2));
  VARIANT arrayOfVariants = OfType(VT_BYREF | VT_ARRAY | VT_VARIANT);
  V_ARRAYREF(&arrayOfVariants) = variants.InOut();
  EXPECT_EQ(S_OK, Invoke(batch.Get(), L"RMBatch", {String(text), arrayOfVariants}, nullptr));
  EXPECT_EQ(std::vector<std::wstring>{L"RMTEXT"}, TextsIn(variants.Get()));
}

TEST_F(BatchObject, LateBoundArraysOfSomethingElseAreRejectedWhateverTheyAreSaidToHold) {
  const auto batch = Create<_CBatch>(CLSID_CBatch);
  const Text text(L"TEXT");
  OwnedArray numbers(SafeArrayCreateVector(VT_I4, 0, 2));
  SAFEARRAY* const before = numbers.Get();
  for (const VARTYPE said : {VT_I4, VT_BSTR, VT_VARIANT}) {
    VARIANT array = OfType(static_cast<VARTYPE>(VT_BYREF | VT_ARRAY | said));
    V_ARRAYREF(&array) = numbers.InOut();
    UINT argument = 99;
    EXPECT_EQ(DISP_E_TYPEMISMATCH, Invoke(batch.Get(), L"RMBatch", {String(text), array}, nullptr, nullptr, &argument));
    EXPECT_EQ(0U, argument);  // counted from the last one
    EXPECT_EQ(before, numbers.Get());
  }
}

}  // namespace
}  // namespace wendrill::com::testing
