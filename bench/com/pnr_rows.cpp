#include <array>
#include <string>

#include "bare_calls.h"
#include "call_count.h"
#include "common/text.h"
#include "platform.h"
#include "pnr_reading.h"
#include "rows.h"
#include "wendrill23.h"

namespace wendrill::com::bench {
namespace {

constexpr double kMostOfRequiredReads = 1.5;

// The number of elements of each kind in the PNR, in the order of kKinds: 300 in total.
constexpr std::array kElements = {10, 20, 200, 30, 20, 10, 10};

struct Written {
  const char16_t* collection;
  const char16_t* text;
  const char16_t* furtherProperties;
};
constexpr Written kWritten[] = {
    {u"Names", u".SMITH/JOHN MR(ADT)", u"Initial = 'JOHN MR'\nLastName = 'SMITH'\n"},
    {u"AirSegments", u"  AF 123 Y 15JUN 7 NCECDG HK3      0900 1030",
     u"kind = 'timed'\nBoardPoint = 'NCE'\nOffPoint = 'CDG'\nClass = 'Y'\nDepartureDate = 2008-06-15\n"
     u"DepartureTime = '0900'\nArrivalTime = '1030'\n"},
    {u"Remarks", u" RM WINDOW SEATS WANTED/S5/P1", u"FreeFlow = 'WINDOW SEATS WANTED/S5/P1'\n"},
    {u"ConfidentialRemarks", u" RC PARXX0100-W/CREDIT LIMIT CHECKED", u""},
    {u"Contacts", u" AP MOBILE 0612345678/P1", u""},
    {u"MailingAddresses", u" AM SMITH JOHN,12 RUE DE LYON,06000 NICE", u""},
    {u"BillingAddresses", u" AB SMITH AND SONS,1 PLACE MASSENA,06000 NICE", u""},
};

// A scenario with one PNR that has 300 elements, both in its collections and as rows of its display.
std::u16string Scenario() {
  std::u16string rows;
  std::u16string collections;
  int elements = 0;
  for (std::size_t kind = 0; kind < kElements.size(); ++kind) {
    const Written& written = kWritten[kind];
    for (int element = 0; element < kElements[kind]; ++element) {
      const std::u16string number = FromUtf8(std::to_string(++elements));
      rows.append(number).append(written.text).append(u"\n");
      collections.append(u"[[pnr.").append(written.collection).append(u"]]\nElementNo = '").append(number);
      collections.append(u"'\nText = '").append(number).append(written.text).append(u"'\n");
      collections.append(written.furtherProperties);
    }
  }
  return u"[[session]]\nname = 'A'\n[[pnr]]\non_display = true\ndisplay = '''\nRP/PARXX0100/PARXX0100\n" + rows +
         u"'''\n" + collections;
}

class ReadByIndex {
 public:
  ReadByIndex(Reference<IDispatch> pnr, Reference<_ParamBag> bag)
      : pnr_(std::move(pnr)), bag_(std::move(bag)), bagAsObject_(bag_.As<IDispatch>()) {}

  void Want(int index) {
    VARIANT wanted;
    V_VT(&wanted) = VT_I2;
    V_I2(&wanted) = static_cast<SHORT>(index);
    Must(bag_->Set(indexKey_.Get(), wanted));
  }

  void ReadElement(DISPID member) {
    VARIANT argument = Object(bagAsObject_.Get());
    OwnedVariant result;
    Call(pnr_.Get(), member, {&argument, 1}, &result);
  }

  DISPID MemberOf(const Kind& kind) const { return IdOf(pnr_.Get(), kind.member); }

 private:
  Reference<IDispatch> pnr_;
  Reference<_ParamBag> bag_;
  Reference<IDispatch> bagAsObject_;
  OwnedString indexKey_{u"intKeyIndex"};
};

std::vector<Part> EveryElement(_Control* control, ReadByIndex& ours, BareReading& bare) {
  std::vector<Part> parts;
  for (std::size_t kind = 0; kind < kElements.size(); ++kind) {
    const DISPID member = ours.MemberOf(kKinds[kind]);
    for (int index = 0; index < kElements[kind]; ++index) {
      parts.push_back({[&ours, index] { ours.Want(index); }, [&ours, member] { ours.ReadElement(member); },
                       [&bare, kind] { bare.ReadElement(kKinds[kind]); }});
    }
    constexpr int kThird = 2;
    ours.Want(kThird);
    RequireSameCalls(control, "reading an element", parts.back().ours, parts.back().reference);
  }
  return parts;
}

}  // namespace

std::vector<Row> PnrRows(const Stopwatch& stopwatch) {
  const auto control = CreateAs<_Control>(L"QuilletSimulator.Control");
  Must(control->LoadText(OwnedString(Scenario()).Get()));
  const auto quillet = CreateAs<_CQuillet>(L"Wendrill23.CQuillet");
  LONG status = 0;
  Must(quillet->RetrieveCurrent(&status));
  const auto pnr = CreateAs<_CPNR>(L"Wendrill23.CPNR");
  Reference<IDispatch> toolkitPnr;
  Must(pnr->get_PNR(toolkitPnr.Receive()));
  const auto bag = CreateAs<_ParamBag>(L"Pellorin.ParamBag");
  ReadByIndex ours(pnr.As<IDispatch>(), bag);
  BareReading bare(toolkitPnr, bag);
  const auto count = [object = pnr.As<IDispatch>(), id = IdOf(pnr.Get(), L"SpecialServiceElementsCount")] {
    Read(object.Get(), id);
  };
  const auto readDisplay = [&toolkitPnr] { Read(toolkitPnr.Get(), kDisplayText); };
  RequireSameCalls(control.Get(), "scanning the display", count, readDisplay);
  return {
      {"every element of a PNR of 300 rows, by index", "the required reads",
       stopwatch.CompareInParts(EveryElement(control.Get(), ours, bare)), kMostOfRequiredReads},
      {"SpecialServiceElementsCount, 300 rows", "the read of the display",
       stopwatch.Compare(Repeat(count), Repeat(readDisplay))},
  };
}

}  // namespace wendrill::com::bench
