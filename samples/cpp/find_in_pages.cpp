// Looks for a text in a response of several pages and stops at the page that has it: the pages after it are not
// fetched.
//
//   script/wine build/win32/bin/find_in_pages.exe [TEXT [ENTRY]]     beside the simulator
//   find_in_pages.exe [TEXT [ENTRY]]                                 on a desktop with Quillet, the library registered
//
// Without arguments: a flight in an availability display of the simulator. The members that collect pages fetch all of
// them; here each page is an entry of its own, MD. An error goes to standard error, and the status is 1. How to build
// it is in read_pnr.cpp.
#include <regex>
#include <vector>

#include "automation.h"

namespace {

// Sends an entry, waits for the host's answer and cuts it into rows: it is one text of rows of the screen's width,
// without line breaks.
std::vector<std::wstring> Page(const Object<_CQuillet>& quillet, const std::wstring& entry) {
  Text response;
  Check(quillet->SendCommandNoClear(Text(entry).Get(), response.Receive()));
  const std::wstring text = response.Wide();
  const SHORT width = Read(quillet, &_CQuillet::get_LastNumberOfColumns);
  const std::size_t columns = width > 0 ? static_cast<std::size_t>(width) : 80;
  std::vector<std::wstring> rows;
  for (std::size_t start = 0; start < text.size(); start += columns) rows.push_back(text.substr(start, columns));
  return rows;
}

std::wstring Trimmed(const std::wstring& text) {
  const auto first = text.find_first_not_of(L' ');
  return first == std::wstring::npos ? L"" : text.substr(first, text.find_last_not_of(L' ') + 1 - first);
}

// The first row that holds the text, without the blanks around it; empty when there is none.
std::wstring RowWith(const std::vector<std::wstring>& page, const std::wstring& text) {
  for (const std::wstring& row : page) {
    if (row.find(text) != std::wstring::npos) return Trimmed(row);
  }
  return {};
}

// Whether more pages follow: the last row with text begins with "MORE", or says ">   PAGE  1/ 3" or ")> 1/ 3".
bool GoesOn(const std::vector<std::wstring>& page) {
  static const std::wregex numbers(L">(?: *PAGE)? *([0-9]{1,5}) */ *([0-9]{1,5}) *$");
  for (auto row = page.rbegin(); row != page.rend(); ++row) {
    if (Trimmed(*row).empty()) continue;
    std::wsmatch match;
    return row->rfind(L"MORE", 0) == 0 ||
           (std::regex_search(*row, match, numbers) && std::stoi(match[1]) < std::stoi(match[2]));
  }
  return false;
}

void Find(const std::wstring& text, const std::wstring& entry) {
  const auto quillet = Create<_CQuillet>(L"Wendrill23.CQuillet");  // connects to the running session
  PrintLine(L"> " + entry);
  auto page = Page(quillet, entry);
  int number = 1;
  while (RowWith(page, text).empty() && GoesOn(page)) {
    PrintLine(L"Page " + std::to_wstring(number) + L": not there");
    page = Page(quillet, L"MD");
    ++number;
  }
  const std::wstring row = RowWith(page, text);
  const std::wstring place = L"Page " + std::to_wstring(number);
  if (row.empty()) {
    PrintLine(place + L": not there, and this is the last one");
  } else if (GoesOn(page)) {
    PrintLine(place + L": " + row);
    PrintLine(L"The pages after it were not fetched.");
  } else {
    PrintLine(place + L", the last one: " + row);
  }
}

}  // namespace

int wmain(int count, wchar_t** arguments) {
  try {
    const Apartment apartment;
    Find(count > 1 ? arguments[1] : L"AF 123", count > 2 ? arguments[2] : L"AN20JUNNCEPAR");
    return 0;
  } catch (const Failure& failure) {
    PrintLine(stderr, L"Error " + NumberOf(failure.status) + L": " + failure.description);
    return 1;
  }
}
