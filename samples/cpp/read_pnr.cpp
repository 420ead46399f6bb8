// Reads a PNR from C++, early bound: sends an entry, retrieves the PNR, counts what it holds and shows its names.
//
//   script/wine build/win32/bin/read_pnr.exe [LOCATOR]    beside the simulator
//   read_pnr.exe [LOCATOR]                                on a desktop with Quillet, the library registered
//
// Entry and locator are those of the simulator's built-in scenario; put your own in their place. What fails is told on
// standard error, with the number of the documentation, and the status is 1.
//
// To build it on its own: a C++17 compiler for 32-bit Windows (no 64-bit program can load the library), with MinGW-w64
// the option -municode, the system's libraries ole32, oleaut32 and uuid, and wendrill23.h, which the IDL compiler makes
// from idl/wendrill23.idl.
#include "automation.h"

namespace {

constexpr wchar_t kEntry[] = L"AN15JUNPARLON";
constexpr wchar_t kLocator[] = L"ABC123";

// A response is one text of rows of the screen's width, without line breaks.
void ShowRows(const std::wstring& response, SHORT columns) {
  for (std::size_t start = 0; columns > 0 && start < response.size(); start += static_cast<std::size_t>(columns)) {
    std::wstring row = response.substr(start, static_cast<std::size_t>(columns));
    row.erase(row.find_last_not_of(L' ') + 1);
    if (!row.empty()) PrintLine(row);
  }
}

// One record for each name. CPNR has the members for records in an interface of their own.
void ShowNames(const Object<_CPNR>& pnr) {
  Object<_IGet> records;
  Check(pnr->QueryInterface(IID_PPV_ARGS(records.Receive())));
  const SHORT count = Read(pnr, &_CPNR::get_NameElementsCount);
  for (SHORT index = 0; index < count; ++index) {
    Bag bag(index);
    Object<IDispatch> nothing;  // most of these members return none; the values are in the bag
    Check(records->NameElement(bag.InOut(), nothing.Receive()));
    const std::wstring type = bag[L"strKeyPapType"];  // adult, child, infant: not every name says
    PrintLine(L"  " + bag[L"strKeyElementNr"] + L" " + bag[L"strKeyLastName"] + L" " + bag[L"strKeyInitial"] +
              (type.empty() ? L"" : L" " + type));
  }
}

void ShowPnr(const Object<_CPNR>& pnr) {
  PrintLine(L"PNR " + Read(pnr, &_CPNR::get_RecordLocator) + L", made by " + Read(pnr, &_CPNR::get_CreationOfficeID) +
            L" on " + Read(pnr, &_CPNR::get_CreationDate));
  PrintLine(std::to_wstring(Read(pnr, &_CPNR::get_NameElementsCount)) + L" names, " +
            std::to_wstring(Read(pnr, &_CPNR::get_AllAirSegmentsCount)) + L" flights, " +
            std::to_wstring(Read(pnr, &_CPNR::get_RemarkElementsCount)) + L" remarks");
  ShowNames(pnr);
}

void ReadPnr(const std::wstring& locator) {
  const auto quillet = Create<_CQuillet>(L"Wendrill23.CQuillet");  // connects to the running session
  const auto pnr = Create<_CPNR>(L"Wendrill23.CPNR");              // reads the PNR that was retrieved last

  PrintLine(std::wstring(L"> ") + kEntry);
  Text response;
  Check(quillet->SendCommand(Text(kEntry).Get(), response.Receive()));
  ShowRows(response.Wide(), Read(quillet, &_CQuillet::get_LastNumberOfColumns));

  VARIANT_BOOL found = VARIANT_FALSE;
  Check(quillet->RetrieveRecLoc(Text(locator).Get(), &found));
  if (found != VARIANT_FALSE) {
    ShowPnr(pnr);
  } else {
    PrintLine(L"There is no PNR " + locator + L".");  // no error but an answer
  }
}

}  // namespace

int wmain(int count, wchar_t** arguments) {
  try {
    const Apartment apartment;
    ReadPnr(count > 1 ? arguments[1] : kLocator);
    return 0;
  } catch (const Failure& failure) {
    std::wstring line = L"Error " + NumberOf(failure.status);
    if (!failure.source.empty()) line += L" of " + failure.source;
    PrintLine(stderr, line + L": " + failure.description);
    return 1;
  }
}
