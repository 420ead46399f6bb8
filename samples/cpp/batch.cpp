// Entries that wait in a queue, sent as one batch; the host refuses one of them.
//
//   script/wine build/win32/bin/batch.exe     beside the simulator
//   batch.exe                                 on a desktop with Quillet, the library registered
//
// A batch joins the entries with ";" and sends them in as few host entries as they need, at most 239 characters at a
// time. Its report numbers these host entries from 1 and says which of them the host refused. An error goes to standard
// error, and the status is 1. How to build it is in read_pnr.cpp.
#include "automation.h"

namespace {

constexpr HRESULT kNotQueued = static_cast<HRESULT>(0x800A0000 + 2400);  // whatever keeps an entry out of the queue

// An entry may have a key.
void Add(const Object<_CQueue>& queue, const wchar_t* entry, const wchar_t* key = L"") {
  Text command{entry};
  Text name{key};
  Object<_CQuillet> queued;
  Check(queue->Add(command.InOut(), name.InOut(), queued.Receive()));
}

std::wstring CommandUnder(const Object<_CQueue>& queue, const wchar_t* key) {
  const Value name{std::wstring(key)};
  Object<_CQuillet> entry;
  Check(queue->Item(name.Get(), entry.Receive()));
  return Read(entry, &_CQuillet::get_Command);
}

// A key that is there already, whatever its case, is an error.
void AddOnce(const Object<_CQueue>& queue, const wchar_t* entry, const wchar_t* key) {
  try {
    Add(queue, entry, key);
  } catch (const Failure& failure) {
    if (failure.status != kNotQueued) throw;
    PrintLine(std::wstring(entry) + L" is not queued: there is an entry under its key, " + CommandUnder(queue, key));
  }
}

void Fill(const Object<_CQueue>& queue) {
  Add(queue, L"RM PAID BY CARD AT THE DESK");
  Add(queue, L"RM WINDOW SEATS WANTED", L"seats");
  Add(queue, L"ER", L"end");
  Add(queue, L"RUBBISH");  // "RU" begins a host entry; the host does not understand this one
  AddOnce(queue, L"ET", L"END");
}

void ShowEntries(const Object<_CQueue>& queue) {
  LONG count = 0;
  Check(queue->get_Count(&count));
  for (LONG position = 1; position <= count; ++position) {
    Object<_CQuillet> entry;
    Check(queue->Item(Value(position).Get(), entry.Receive()));
    PrintLine(L"> " + Read(entry, &_CQuillet::get_Command));
  }
}

std::wstring FirstRow(const std::wstring& response) {
  const std::wstring row = response.substr(0, 80);
  return row.substr(0, row.find_last_not_of(L' ') + 1);
}

// The responses are an array of variants, counted from 0.
void ShowResponses(const Bag& report) {
  Value responses;
  report.Get(L"strKeyResponseArray", responses);
  SAFEARRAY* const array = V_ARRAY(&responses.Get());
  LONG last = -1;
  Check(SafeArrayGetUBound(array, 1, &last));
  for (LONG index = 0; index <= last; ++index) {
    Value response;
    Check(SafeArrayGetElement(array, &index, response.Receive()));
    PrintLine(std::to_wstring(index + 1) + L": " + FirstRow(WideOf(V_BSTR(&response.Get()))));
  }
}

void SendBatch(const Object<_CQueue>& queue) {
  const auto batch = Create<_CBatch>(L"Wendrill23.CBatch");
  Bag report;  // filled by the call
  Check(batch->putref_Commands(queue.Get()));
  Check(batch->SubmitWithResponse(report.InOut()));

  ShowResponses(report);
  Value accepted;
  report.Get(L"blnKeyResponseOK", accepted);
  if (V_BOOL(&accepted.Get()) != VARIANT_FALSE) {
    PrintLine(L"The host accepted everything.");
  } else {
    PrintLine(L"Refused: host entry " + report[L"strKeyErr"]);
  }
}

}  // namespace

int wmain() {
  try {
    const Apartment apartment;
    const auto queue = Create<_CQueue>(L"Wendrill23.CQueue");
    Fill(queue);
    ShowEntries(queue);
    SendBatch(queue);
    return 0;
  } catch (const Failure& failure) {
    PrintLine(stderr, L"Error " + NumberOf(failure.status) + L": " + failure.description);
    return 1;
  }
}
