// A table's calls on a stand-in that is no automation object: which argument is named as the bad one, and what is left
// of a call that fails after its work is done.
#include "com/server/dispatch_table.h"

#include <gtest/gtest.h>

#include <array>

#include "late_calls.h"

namespace wendrill::com::testing {
namespace {

// Counts its references, which only results hold.
struct CountedObject final : IDispatch {
  ULONG references = 0;

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID, void**) override { return E_NOINTERFACE; }
  ULONG STDMETHODCALLTYPE AddRef() override { return ++references; }
  ULONG STDMETHODCALLTYPE Release() override { return --references; }
  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*, UINT*) override {
    return E_NOTIMPL;
  }
};

struct StandIn {
  CountedObject object;
  int calls = 0;

  virtual HRESULT STDMETHODCALLTYPE Three(SHORT, SHORT, SHORT) {
    ++calls;
    return S_OK;
  }
  // Gives the object, and a text to the variable.
  virtual HRESULT STDMETHODCALLTYPE Fill(SHORT, BSTR* text, IDispatch** result) {
    ++calls;
    SysReAllocString(text, L"words");
    object.AddRef();
    *result = &object;
    return S_OK;
  }
  virtual HRESULT STDMETHODCALLTYPE get_Entry(SHORT, SHORT* result) {
    *result = 0;
    return S_OK;
  }
  virtual HRESULT STDMETHODCALLTYPE put_Entry(SHORT, SHORT) { return S_OK; }
};

constexpr DISPID kThree = 1;
constexpr DISPID kFill = 2;
constexpr DISPID kEntry = 3;
constexpr UINT kUntouched = 99;

const DispatchTable& Table() {
  static constexpr auto kMembers = std::to_array<DispatchRow>({
      DispatchRow{.name = L"Three",
                  .id = kThree,
                  .call = Call<&StandIn::Three, Direct<StandIn>, VT_EMPTY, SHORT, SHORT, SHORT>,
                  .required = 2,
                  .allowed = 3,
                  .parameters = {L"first", L"second", L"third"}},
      DispatchRow{.name = L"Fill",
                  .id = kFill,
                  .call = Call<&StandIn::Fill, Direct<StandIn>, VT_DISPATCH, SHORT, BSTR*>,
                  .required = 2,
                  .allowed = 2,
                  .givesObject = true,
                  .parameters = {L"number", L"text"}},
      DispatchRow{.name = L"Entry",
                  .id = kEntry,
                  .call = Call<&StandIn::get_Entry, Direct<StandIn>, VT_I2, SHORT>,
                  .put = Call<&StandIn::put_Entry, Direct<StandIn>, VT_EMPTY, SHORT, SHORT>,
                  .required = 1,
                  .allowed = 1,
                  .parameters = {L"index"}},
  });
  static const DispatchTable table(kMembers);
  return table;
}

class DispatchTables : public ::testing::Test {
 protected:
  // `values` as a caller passes them: those with names first, in any order, then the others from the last to the first.
  HRESULT Call(DISPID id, std::vector<VARIANT> values, std::vector<DISPID> names, WORD flags = DISPATCH_METHOD) {
    DISPPARAMS parameters{values.data(), names.data(), static_cast<UINT>(values.size()),
                          static_cast<UINT>(names.size())};
    argument_ = kUntouched;
    return Table().Invoke(&standIn_, id, flags, &parameters, &result_, nullptr, &argument_);
  }

  VARIANT Words() { return String(words_.Get()); }

  StandIn standIn_;
  OwnedString words_{u"words"};
  OwnedVariant result_;
  UINT argument_ = kUntouched;
};

TEST_F(DispatchTables, ABadArgumentIsCountedAsTheCallerPassesThem) {
  EXPECT_EQ(DISP_E_TYPEMISMATCH, Call(kThree, {Number(3), Number(2), Words()}, {}));
  EXPECT_EQ(2U, argument_);
  EXPECT_EQ(DISP_E_OVERFLOW, Call(kThree, {Number(70000), Number(2), Number(1)}, {}));
  EXPECT_EQ(0U, argument_);
}

TEST_F(DispatchTables, ABadArgumentWithANameIsWhereTheCallerPutIt) {
  EXPECT_EQ(DISP_E_TYPEMISMATCH, Call(kThree, {Words(), Number(2), Number(3)}, {0, 1, 2}));
  EXPECT_EQ(0U, argument_);
  EXPECT_EQ(DISP_E_TYPEMISMATCH, Call(kThree, {Number(3), Words(), Number(1)}, {2, 1}));
  EXPECT_EQ(1U, argument_);
  EXPECT_EQ(DISP_E_TYPEMISMATCH, Call(kThree, {Number(2), Number(3), Words()}, {1, 2}));
  EXPECT_EQ(2U, argument_);
}

TEST_F(DispatchTables, ABadIndexOfAnAssignmentFollowsTheValue) {
  EXPECT_EQ(DISP_E_TYPEMISMATCH, Call(kEntry, {Number(7), Words()}, {DISPID_PROPERTYPUT}, DISPATCH_PROPERTYPUT));
  EXPECT_EQ(1U, argument_);
  EXPECT_EQ(DISP_E_TYPEMISMATCH, Call(kEntry, {Words(), Number(7)}, {DISPID_PROPERTYPUT}, DISPATCH_PROPERTYPUT));
  EXPECT_EQ(0U, argument_);
}

TEST_F(DispatchTables, ANameThatTheMemberLacksIsToldByItsPlace) {
  EXPECT_EQ(DISP_E_PARAMNOTFOUND, Call(kThree, {Number(3), Number(2), Number(1)}, {2, 77}));
  EXPECT_EQ(1U, argument_);
  EXPECT_EQ(DISP_E_PARAMNOTFOUND, Call(kThree, {Number(3), Number(2), Number(1)}, {3}));  // it has 0 to 2
  EXPECT_EQ(0U, argument_);
  EXPECT_EQ(DISP_E_PARAMNOTFOUND, Call(kThree, {Number(3), Number(2), Number(1)}, {DISPID_PROPERTYPUT}));
  EXPECT_EQ(0U, argument_);
  EXPECT_EQ(0, standIn_.calls);
}

TEST_F(DispatchTables, AnArgumentThatIsGivenTwiceIsToldByItsPlace) {
  EXPECT_EQ(DISP_E_PARAMNOTFOUND, Call(kThree, {Number(3), Number(9), Number(1)}, {2, 0}));
  EXPECT_EQ(1U, argument_);
  EXPECT_EQ(0, standIn_.calls);
}

TEST_F(DispatchTables, AReferenceToNowhereIsToldByItsPlace) {
  EXPECT_EQ(E_INVALIDARG, Call(kThree, {Number(3), OfType(VT_BYREF | VT_I2), Number(1)}, {}));
  EXPECT_EQ(1U, argument_);
  EXPECT_EQ(0, standIn_.calls);
}

TEST_F(DispatchTables, WrongCountsAreNoArgumentsFault) {
  EXPECT_EQ(DISP_E_BADPARAMCOUNT, Call(kThree, {Number(1)}, {}));
  EXPECT_EQ(DISP_E_BADPARAMCOUNT, Call(kThree, {Number(1), Number(2), Number(3), Number(4)}, {}));
  EXPECT_EQ(DISP_E_PARAMNOTOPTIONAL, Call(kThree, {Number(3), Number(2)}, {2, 1}));
  EXPECT_EQ(DISP_E_BADPARAMCOUNT,
            Call(kEntry, {Number(7), Number(2), Number(1)}, {DISPID_PROPERTYPUT}, DISPATCH_PROPERTYPUT));
  EXPECT_EQ(kUntouched, argument_);
}

TEST_F(DispatchTables, AResultThatCannotBeWrittenBackLeavesNoResult) {
  LONG variable = 0;  // takes no words
  VARIANT byReference = OfType(VT_BYREF | VT_I4);
  V_I4REF(&byReference) = &variable;
  EXPECT_EQ(DISP_E_TYPEMISMATCH, Call(kFill, {byReference, Number(1)}, {}));
  EXPECT_EQ(1, standIn_.calls);
  EXPECT_EQ(0U, argument_);
  EXPECT_EQ(VT_EMPTY, V_VT(&result_));
  EXPECT_EQ(0U, standIn_.object.references);
  V_VT(&result_) = VT_EMPTY;
}

TEST_F(DispatchTables, AResultAndWhatIsWrittenBackArriveTogether) {
  OwnedVariant variable;
  EXPECT_EQ(S_OK, Call(kFill, {ByReference(&variable), Number(1)}, {}));
  EXPECT_EQ(VT_BSTR, V_VT(&variable));
  EXPECT_STREQ(L"words", V_BSTR(&variable));
  EXPECT_EQ(VT_DISPATCH, V_VT(&result_));
  EXPECT_EQ(1U, standIn_.object.references);
}

}  // namespace
}  // namespace wendrill::com::testing
