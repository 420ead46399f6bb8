// An object of a terminal that answers as a test says.
#pragma once

#include <ole2.h>
#include <windows.h>

#include <functional>
#include <utility>

#include "com/server/automation_types.h"
#include "com/server/counted_object.h"
#include "event_sink.h"

namespace wendrill::com::testing {

class HandMade final : public CountedObject<CountOfAnyThread, OfNoServer, IDispatch> {
 public:
  // The arguments are reversed, as automation has them.
  using Answer = std::function<HRESULT(DISPID id, const DISPPARAMS& arguments, VARIANT* result)>;

  static inline int living = 0;

  static Reference<IDispatch> New(Answer answer = {}) {
    return Reference<IDispatch>::Adopt(new HandMade(std::move(answer)));
  }

  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override {
    return DISP_E_UNKNOWNNAME;
  }
  HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS* arguments, VARIANT* result, EXCEPINFO*,
                                   UINT*) override {
    return answer_ ? answer_(id, *arguments, result) : DISP_E_MEMBERNOTFOUND;
  }

 private:
  explicit HandMade(Answer answer) : answer_(std::move(answer)) { ++living; }
  ~HandMade() override { --living; }

  Answer answer_;
};

}  // namespace wendrill::com::testing
