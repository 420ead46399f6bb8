#include "bare_calls.h"
#include "com/server/automation_object_base.h"
#include "platform.h"
#include "rows.h"
#include "wendrill23.h"

namespace wendrill::com {
namespace bench {
namespace {

// Every 16-bit property that the library publishes asks the toolkit, whose cost would hide that of the dispatch. So
// this object stands in: it is made of what the library's classes are made of, and its property gives a constant.
class FixedResponse final : public AutomationClass<FixedResponse, &IID__HostResponse, _HostResponse> {
 public:
  HRESULT STDMETHODCALLTYPE get_NumberOfLines(SHORT* result) override {
    return Run([&] { *result = 24; });
  }
  HRESULT STDMETHODCALLTYPE get_NumberOfColumns(SHORT*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE get_ResponseType(LONG*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE get_Buffer(BSTR*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE get_HostCommand(BSTR*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE get_Text(BSTR*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE get_Line(SHORT, BSTR*) override { return E_NOTIMPL; }
};

constexpr double kMostOfDictionaryCount = 0.1;
constexpr double kMostOfDictionaryLookup = 0.2;

Repeated LateBoundGet(const Reference<IDispatch>& object, const wchar_t* name) {
  return Repeat([object, id = IdOf(object.Get(), name)] { Read(object.Get(), id); });
}

Repeated Lookup(const Reference<IDispatch>& object, const wchar_t* name) {
  return Repeat([object, name] { IdOf(object.Get(), name); });
}

}  // namespace
}  // namespace bench

template <>
const DispatchTable& TableOf<_HostResponse>() {
  using I = _HostResponse;
  static constexpr auto kMembers = std::to_array<DispatchRow>({
      Property<&I::get_Buffer>(1, L"Buffer"),
      Property<&I::get_HostCommand>(2, L"HostCommand"),
      Property<&I::get_ResponseType>(3, L"ResponseType"),
      Property<&I::get_Text>(4, L"Text"),
      Property<&I::get_NumberOfColumns>(5, L"NumberOfColumns"),
      Property<&I::get_NumberOfLines>(6, L"NumberOfLines"),
      Property<&I::get_Line>(7, L"Line", {L"index"}),
  });
  static const DispatchTable table(kMembers);
  return table;
}

// This program serves no classes.
const ServerDescription kServer{GUID_NULL, {}, nullptr};

namespace bench {

std::vector<Row> DispatchRows(const Stopwatch& stopwatch) {
  const auto dictionary = Create(L"Scripting.Dictionary");
  const auto queue = Create(L"Wendrill23.CQueue");
  const auto pnr = Create(L"Wendrill23.CPNR");
  const auto fixed = Reference<_HostResponse>::Adopt(new FixedResponse());
  const auto lateBound = fixed.As<IDispatch>();
  const auto dictionaryCount = LateBoundGet(dictionary, L"Count");
  const auto direct = Repeat([&fixed] {
    SHORT lines = 0;
    Must(fixed->get_NumberOfLines(&lines));
  });
  const auto lateMember = Lookup(pnr, L"MCOElementsCount");
  const auto dictionaryMember = Lookup(dictionary, L"Count");
  constexpr const char* kDirect = "a call through the method table";
  return {
      {"16-bit property, late bound", "Scripting.Dictionary.Count",
       stopwatch.Compare(LateBoundGet(lateBound, L"NumberOfLines"), dictionaryCount), kMostOfDictionaryCount},
      {"16-bit property, late bound", kDirect, stopwatch.Compare(LateBoundGet(lateBound, L"NumberOfLines"), direct)},
      {"CQueue.Count (32-bit), late bound", "Scripting.Dictionary.Count",
       stopwatch.Compare(LateBoundGet(queue, L"Count"), dictionaryCount)},
      {"name look-up, a late member of CPNR", "Scripting.Dictionary, Count",
       stopwatch.Compare(lateMember, dictionaryMember), kMostOfDictionaryLookup},
      {"name look-up, the last member of CPNR", "Scripting.Dictionary, Count",
       stopwatch.Compare(Lookup(pnr, L"Elements"), dictionaryMember), kMostOfDictionaryLookup},
      {"name look-up, a late member of CPNR", kDirect, stopwatch.Compare(lateMember, direct)},
  };
}

}  // namespace bench
}  // namespace wendrill::com
