#include "bare_calls.h"
#include "com/server/automation_class.h"
#include "rows.h"
#include "wendrill23.h"

namespace wendrill::com::bench {

struct _FixedNumber : public IDispatch {
  virtual HRESULT STDMETHODCALLTYPE get_Number(SHORT* result) = 0;
};

}  // namespace wendrill::com::bench

__CRT_UUID_DECL(wendrill::com::bench::_FixedNumber, 0x5E0E1B6C, 0x6F4B, 0x4B0C, 0x9C, 0x0B, 0x2B, 0x6A, 0x2B, 0x1D,
                0x7C, 0x41)

namespace wendrill::com {

template <typename Path>
inline constexpr auto kMembersOf<bench::_FixedNumber, Path> = std::to_array<DispatchRow>({
    DispatchRow{.name = L"Number", .id = 1, .call = Call<&bench::_FixedNumber::get_Number, Path, VT_I2>},
});

// AutomationClass requires that each program defines kServer. This program serves no classes.
const ServerDescription kServer{GUID_NULL, {}, nullptr};

namespace bench {
namespace {

// A class with one 16-bit property whose value is constant. Every 16-bit property of the library calls the toolkit, and
// the cost of that call would hide the cost of the dispatch. The class has the dispatch code of the library's classes.
class FixedNumber final : public AutomationClass<FixedNumber, &GUID_NULL, _FixedNumber> {
 public:
  HRESULT STDMETHODCALLTYPE get_Number(SHORT* result) override {
    return Run([&] { *result = 24; });
  }
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

std::vector<Row> DispatchRows(const Stopwatch& stopwatch) {
  const auto dictionary = Create(L"Scripting.Dictionary");
  const auto queue = Create(L"Wendrill23.CQueue");
  const auto pnr = Create(L"Wendrill23.CPNR");
  const auto fixed = Reference<_FixedNumber>::Adopt(new FixedNumber());
  const auto lateBound = fixed.As<IDispatch>();
  const auto dictionaryCount = LateBoundGet(dictionary, L"Count");
  const auto direct = Repeat([&fixed] {
    SHORT number = 0;
    Must(fixed->get_Number(&number));
  });
  const auto lateMember = Lookup(pnr, L"HTLElementsCount");
  const auto dictionaryMember = Lookup(dictionary, L"Count");
  constexpr const char* kDirect = "a call through the method table";
  return {
      {"16-bit property, late bound", "Scripting.Dictionary.Count",
       stopwatch.Compare(LateBoundGet(lateBound, L"Number"), dictionaryCount), kMostOfDictionaryCount},
      {"16-bit property, late bound", kDirect, stopwatch.Compare(LateBoundGet(lateBound, L"Number"), direct)},
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
