// A list of record locators becomes one CSV: the names, flights, tickets and special services of each PNR.
//
//   script/wine build/win32/bin/queue_to_csv.exe ABC123 locators.txt      beside the simulator
//   queue_to_csv.exe ABC123 locators.txt >pnrs.csv                        on a desktop with Quillet, the library
//   registered
//
// An argument that is the name of a file means the locators in it, one a line. The CSV (RFC 4180) goes to standard
// output, everything else to standard error. A PNR that is not found is skipped; the status is 1 when an error ends the
// list, 2 without locators. How to build it is in read_pnr.cpp.
#include <vector>

#include "automation.h"

namespace {

using Rows = std::vector<std::wstring>;

// --- Locators

void AddLocator(Rows& locators, const std::wstring& line) {
  const auto first = line.find_first_not_of(L" \r");
  if (first != std::wstring::npos) locators.push_back(line.substr(first, line.find_last_not_of(L" \r") + 1 - first));
}

// A locator has letters and digits only, so the file's encoding does not matter.
void AddLocatorsOfFile(Rows& locators, const wchar_t* path) {
  std::FILE* file = _wfopen(path, L"rb");
  if (file == nullptr) throw Failure{HRESULT_FROM_WIN32(ERROR_OPEN_FAILED), {}, L"the file cannot be read"};
  std::wstring line;
  for (int byte = std::fgetc(file); byte != EOF; byte = std::fgetc(file)) {
    if (byte == '\n' || byte == '\r') {
      AddLocator(locators, line);
      line.clear();
    } else {
      line += static_cast<wchar_t>(byte);
    }
  }
  std::fclose(file);
  AddLocator(locators, line);
}

Rows AllLocators(int count, wchar_t** arguments) {
  Rows locators;
  for (int index = 1; index < count; ++index) {
    const DWORD attributes = GetFileAttributesW(arguments[index]);
    if (attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0) {
      AddLocatorsOfFile(locators, arguments[index]);
    } else {
      AddLocator(locators, arguments[index]);
    }
  }
  return locators;
}

// --- Rows of the CSV

// A value with a comma, a quotation mark or a line break is quoted, its own marks doubled.
std::wstring Quoted(const std::wstring& text) {
  if (text.find_first_of(L",\"\r\n") == std::wstring::npos) return text;
  std::wstring quoted = L"\"";
  for (const wchar_t letter : text) quoted.append(letter == L'"' ? 2 : 1, letter);
  return quoted + L'"';
}

std::wstring Row(const Rows& values) {
  std::wstring row;
  for (const std::wstring& value : values) row += L"," + Quoted(value);
  return row.substr(1);
}

// The values that are not empty, with blanks between them.
std::wstring Joined(const Rows& values) {
  std::wstring joined;
  for (const std::wstring& value : values) {
    if (!value.empty()) joined += (joined.empty() ? L"" : L" ") + value;
  }
  return joined;
}

std::wstring Belonging(const Bag& bag) {
  const std::wstring segment = bag[L"strKeySegAsso"];
  const std::wstring passenger = bag[L"strKeyPasAsso"];
  return Joined({segment.empty() ? L"" : L"segment " + segment, passenger.empty() ? L"" : L"passenger " + passenger});
}

// --- PNRs

// CPNR has the members for records in interfaces of their own.
template <typename Interface>
Object<Interface> Also(const Object<_CPNR>& pnr) {
  Object<Interface> other;
  Check(pnr->QueryInterface(IID_PPV_ARGS(other.Receive())));
  return other;
}

void AddNames(Rows& rows, const Object<_CPNR>& pnr, const std::wstring& locator) {
  const auto records = Also<_IGet>(pnr);
  const SHORT count = Read(pnr, &_CPNR::get_NameElementsCount);
  for (SHORT index = 0; index < count; ++index) {
    Bag bag(index);
    Object<IDispatch> nothing;  // most of these members return none; the values are in the bag
    Check(records->NameElement(bag.InOut(), nothing.Receive()));
    rows.push_back(
        Row({locator, L"name", bag[L"strKeyElementNr"], bag[L"strKeyLastName"] + L"/" + bag[L"strKeyInitial"], L"", L"",
             L"", L"", L"", bag[L"strKeyPapType"]}));
  }
}

// Flights have times when they are neither open nor flown.
void AddSegments(Rows& rows, const Object<_CPNR>& pnr, const std::wstring& locator) {
  const auto records = Also<_IGet>(pnr);
  const SHORT count = Read(pnr, &_CPNR::get_AllAirSegmentsCount);
  for (SHORT index = 0; index < count; ++index) {
    Bag bag(index);
    Object<IDispatch> nothing;
    Check(records->AllAirSegments(bag.InOut(), nothing.Receive()));
    rows.push_back(
        Row({locator, L"segment", bag[L"strKeySegmentNr"], bag[L"strKeyAirline"] + L" " + bag[L"strKeyNumber"],
             bag[L"strKeyDepCity"], bag[L"strKeyArrCity"], bag[L"strKeyDepDate"], bag[L"strKeyDepTime"],
             bag[L"strKeyArrTime"], L"class " + bag[L"strKeyClass"]}));
  }
}

Bag Element(const Object<_CPNR>& pnr, const wchar_t* kind, SHORT index) {
  Bag bag(kind, index);
  Object<IDispatch> nothing;
  Check(Also<_IGetPNR>(pnr)->Elements(bag.InOut(), nothing.Receive()));
  return bag;
}

void AddTickets(Rows& rows, const Object<_CPNR>& pnr, const std::wstring& locator) {
  const SHORT count = Read(pnr, &_CPNR::get_AutoTktElementsCount);
  for (SHORT index = 0; index < count; ++index) {
    const Bag bag = Element(pnr, L"FA", index);
    rows.push_back(Row(
        {locator, L"ticket", bag[L"strKeyElementNr"], bag[L"strKeyTktNbr"], L"", L"", L"", L"", L"", Belonging(bag)}));
  }
}

void AddServices(Rows& rows, const Object<_CPNR>& pnr, const std::wstring& locator) {
  const SHORT count = Read(pnr, &_CPNR::get_SpecialServiceElementsCount);
  for (SHORT index = 0; index < count; ++index) {
    const Bag bag = Element(pnr, L"SSR", index);
    rows.push_back(Row({locator, L"service", bag[L"strKeyElementNr"], bag[L"strKeyCode"], L"", L"", L"", L"", L"",
                        Joined({bag[L"strKeyAirline"], bag[L"strKeyStatus"], Belonging(bag)})}));
  }
}

// All rows of a PNR at once: one that cannot be read to its end leaves no half of it.
void WritePnr(const std::wstring& locator) {
  const auto pnr = Create<_CPNR>(L"Wendrill23.CPNR");  // a new one for each PNR: it keeps the creation line
  Rows rows;
  AddNames(rows, pnr, locator);
  AddSegments(rows, pnr, locator);
  AddTickets(rows, pnr, locator);
  AddServices(rows, pnr, locator);
  for (const std::wstring& row : rows) PrintLine(row);
}

// `current` is the locator that an error belongs to.
void WriteAll(const Rows& locators, std::wstring& current) {
  const auto quillet = Create<_CQuillet>(L"Wendrill23.CQuillet");  // connects to the running session
  PrintLine(Row({L"locator", L"kind", L"number", L"what", L"from", L"to", L"date", L"departs", L"arrives", L"detail"}));
  for (const std::wstring& locator : locators) {
    current = locator;
    VARIANT_BOOL found = VARIANT_FALSE;
    Check(quillet->RetrieveRecLoc(Text(locator).Get(), &found));
    if (found != VARIANT_FALSE) {
      WritePnr(locator);
    } else {
      PrintLine(stderr, L"There is no PNR " + locator + L".");
    }
  }
}

}  // namespace

int wmain(int count, wchar_t** arguments) {
  std::wstring current;
  try {
    const Rows locators = AllLocators(count, arguments);
    if (locators.empty()) {
      PrintLine(stderr, L"Name record locators, or a file with one on each line.");
      return 2;
    }
    const Apartment apartment;
    WriteAll(locators, current);
    return 0;
  } catch (const Failure& failure) {
    const std::wstring place = current.empty() ? L"" : L" in PNR " + current;
    PrintLine(stderr, L"Error " + NumberOf(failure.status) + place + L": " + failure.description);
    return 1;
  }
}
