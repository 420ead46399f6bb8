#include "soak_actions.h"

#include <array>
#include <iterator>

namespace wendrill::soak {

const wchar_t kScenario[] =
    LR"toml(
session = [{ name = "A" }, { name = "B" }]
reply = [
  { entry = "AN", pages = ["ONE\n)>1/2", "TWO\n)>2/2"] },
  { entry = "LATE", screen = "AT LAST", late = 2 },
  { starts = "RM", screen = "*T*" },
  { entry = "TICS", screen = "DONE", raw = true },
  { starts = "", screen = "RP/DONE" },
]

[[pnr]]
RecordLocator = "ABC123"
entries = ["ER", "SP2"]
on_display = true
display = '''
RP/PARXX0100/PARXX0100            AM/SU  12JUN08/0930Z   ABC123
PARXX0100/0001AA/12JUN08
  1.SMITH/JOHN MR(ADT)
  2  AF 123 Y 15JUN 7 NCECDG HK3      0900 1030
  3 SSR VGML AF HK1/S2/P1
  4 OSI AF VIP FREQUENT TRAVELLER/P1
5   FHE PAX 057-1234567892/S2/P1
  6 FV PAX AF/S2/P1
 7  FB PAX 1200012345 TTP/RT OK ETICKET/S2/P1
'''

[[pnr.Names]]
Text = "1.SMITH/JOHN MR(ADT)"
ElementNo = "1"
Initial = "JOHN MR"
LastName = "SMITH"

[[pnr.AirSegments]]
kind = "timed"
Text = "2  AF 123 Y 15JUN 7 NCECDG HK3      0900 1030"
ElementNo = "2"
BoardPoint = "NCE"
OffPoint = "CDG"
Class = "Y"
DepartureDate = 2008-06-15
DepartureTime = "0900"
ArrivalTime = "1030"
DayChange = "0"

[[pnr.Cars]]
Text = "11  CCR QC HK1 CDG 15JUN-18JUN ECMN/DO-ORY/RG-EUR 45.00 UNL DY"
ElementNo = "11"
PickUpCity = "CDG"
PickUpDate = 2008-06-15
DropOffDate = 2008-06-18
CarType = "ECMN"
ConfirmationNo = "H123"
Passengers = ["1"]

[[pnr.Remarks]]
Text = "28 RM PAY AT AIRPORT/S5/P1"
ElementNo = "28"
FreeFlow = "PAY AT AIRPORT/S5/P1"

[[pnr.MISElements]]
Text = "16 MIS QT HK1 PAR 20JUN-TRAIN LYON"
ElementNo = "16"
)toml";

namespace {

// --- Entries --------------------------------------------------------------------------------------------------------

using TextMember = HRESULT (STDMETHODCALLTYPE _CQuillet::*)(BSTR, BSTR*);

void Send(Desk& desk, TextMember member, const wchar_t* entry) {
  Text response;
  desk.Called((desk.Quillet()->*member)(Text(entry), response.Receive()));
}

void SendEntries(Desk& desk) {
  Send(desk, &_CQuillet::SendCommand, L"JD");
  Send(desk, &_CQuillet::SendCommand, L"ER");
  Send(desk, &_CQuillet::SendCommandNoClear, desk.Below(8) == 0 ? L"LATE" : L"JD");
  Send(desk, &_CQuillet::SendCommandNoTransmit, L"JD");
}

void SendPages(Desk& desk) {
  Send(desk, &_CQuillet::SendCommandGetAll, L"AN");
  Send(desk, &_CQuillet::SendCommandGetAllNoClear, L"AN");
  Text response;
  OwnedVariant pages;
  desk.Called(desk.Quillet()->SendCommandCollectPages(Text(L"AN"), &pages, response.Receive()));
  desk.Called(desk.Quillet()->SendCommandLines(Text(L"AN"), Text(L"1"), Text(L"2"), response.Receive()));
  desk.Called(desk.Quillet()->GetTotalHostResponse(response.Receive()));
}

void SendWithBag(Desk& desk) {
  Text response;
  desk.Put(L"blnKeyGetAll", desk.Below(2) == 0);
  desk.Put(L"strKeyCommand", L"TICS");
  IDispatch* bag = desk.Bag();
  desk.Called(desk.Quillet()->SendCommandFI(Text(L"AN"), &bag, response.Receive()));
  desk.Called(desk.Quillet()->SendCommandTicsPas(&bag, response.Receive()));
}

void ReadTheLastResponse(Desk& desk) {
  Text text;
  SHORT number = 0;
  desk.Called(desk.Quillet()->get_LastBuffer(text.Receive()));
  desk.Called(desk.Quillet()->get_LastHostCommand(text.Receive()));
  desk.Called(desk.Quillet()->get_LastText(text.Receive()));
  desk.Called(desk.Quillet()->get_LastResponseType(&number));
  desk.Called(desk.Quillet()->get_LastNumberOfColumns(&number));
  desk.Called(desk.Quillet()->GetLineFromLastBuffer(static_cast<SHORT>(desk.Below(3)), text.Receive()));
}

void Retrieve(Desk& desk) {
  VARIANT_BOOL found = VARIANT_FALSE;
  LONG status = 0;
  desk.Called(desk.Quillet()->RetrieveRecLoc(Text(desk.Below(4) == 0 ? L"NOBODY" : L"ABC123"), &found));
  desk.Called(desk.Quillet()->ReadPNR(Text(L"ER"), &found));
  desk.Called(desk.Quillet()->SplitPNR(Text(L"2"), &found));
  desk.Called(desk.Quillet()->RetrieveCurrent(&status));
}

void PressAndLock(Desk& desk) {
  auto key = static_cast<QuilletKeyValues>(257);
  SHORT code = 0;
  desk.Called(desk.Quillet()->SendKey(&key));
  desk.Called(desk.Quillet()->LockUnLockAlarm(VARIANT_TRUE, &code));
  desk.Called(desk.Quillet()->UnLockAlarm());
  if (desk.Below(16) == 0) {
    desk.Called(desk.Quillet()->ChangeSMOD(5, 12));
  }
}

// The first object has the session list; on another one every choice of a session fails.
void ChooseSessions(Desk& desk) {
  Text names;
  desk.Called(desk.Quillet()->get_GetSessionList(names.Receive()));
  desk.Called(desk.Quillet()->ConnectSession(Text(L"NOBODY")));
  desk.Called(desk.Quillet()->StopLoop());
  if (FAILED(desk.Called(desk.Quillet()->ConnectSession(Text(L"B"))))) {
    desk.ReleaseAll();
  }
}

// --- PNRs -----------------------------------------------------------------------------------------------------------

void ReadThePnr(Desk& desk) {
  Text text;
  SHORT count = 0;
  Reference<IDispatch> toolkit;
  desk.Called(desk.Pnr()->get_Text(text.Receive()));
  desk.Called(desk.Pnr()->get_RecordLocator(text.Receive()));
  desk.Called(desk.Pnr()->get_CreationDate(text.Receive()));
  desk.Called(desk.Pnr()->get_PNR(toolkit.Receive()));
  desk.Called(desk.Pnr()->get_NameElementsCount(&count));
  desk.Called(desk.Pnr()->get_AirSegmentsCount(&count));
}

void CountTheDisplay(Desk& desk) {
  SHORT count = 0;
  desk.Called(desk.Pnr()->get_SpecialServiceElementsCount(&count));
  desk.Called(desk.Pnr()->get_OtherServiceElementsCount(&count));
  desk.Called(desk.Pnr()->get_ManualTktElementsCount(&count));
  desk.Called(desk.Pnr()->get_ValidatingAirlineElementsCount(&count));
  desk.Called(desk.Pnr()->get_AirSequenceNrElementsCount(&count));
}

using RecordMember = HRESULT (STDMETHODCALLTYPE _IGet::*)(IDispatch**, IDispatch**);

constexpr RecordMember kRecords[] = {
    &_IGet::ActiveAirSegments,    &_IGet::AirSegments,   &_IGet::AllAirSegments,
    &_IGet::CarSegment,           &_IGet::NameElement,   &_IGet::PNRHeader,
    &_IGet::RemarkElement,        &_IGet::TicketElement, &_IGet::ValidatingAirlineElement,
    &_IGet::AirSequenceNrElement,
};

// Indexes 0 and 1: most kinds have one element, so that half of the calls fail with their number.
void ReadRecords(Desk& desk) {
  const Reference<_CPNR> pnr(desk.Pnr());
  const auto records = pnr.As<_IGet>();
  desk.Put(L"intKeyIndex", static_cast<SHORT>(desk.Below(2)));
  for (const RecordMember member : kRecords) {
    IDispatch* bag = desk.Bag();
    Reference<IDispatch> result;
    desk.Called((records.Get()->*member)(&bag, result.Receive()));
  }
}

constexpr const wchar_t* kKinds[] = {L"SSR", L"OSI", L"FH", L"MIS", L"FA", L"ATX", L"* SP", L"NONE", L""};

void ReadElements(Desk& desk) {
  const Reference<_CPNR> pnr(desk.Pnr());
  const auto elements = pnr.As<_IGetPNR>();
  desk.Put(L"intKeyIndex", static_cast<SHORT>(desk.Below(2)));
  for (const wchar_t* kind : kKinds) {
    desk.Put(L"strKeyPNRElement", kind);
    IDispatch* bag = desk.Bag();
    Reference<IDispatch> result;
    desk.Called(elements->Elements(&bag, result.Receive()));
  }
}

// --- Queues and batches ---------------------------------------------------------------------------------------------

void FillQueue(Desk& desk) {
  const Text entry(L"RM HELLO");
  const Text key(L"KEY");
  for (int added = 0; added < 3; ++added) {
    BSTR passedEntry = entry;
    BSTR passedKey = key;
    Reference<_CQuillet> quillet;
    desk.Called(desk.Queue()->Add(&passedEntry, added == 1 ? nullptr : &passedKey, quillet.Receive()));
  }
  OwnedVariant position;
  V_VT(&position) = VT_I4;
  V_I4(&position) = static_cast<LONG>(desk.Below(4));
  Reference<_CQuillet> found;
  desk.Called(desk.Queue()->Item(position, found.Receive()));
  LONG count = 0;
  desk.Called(desk.Queue()->get_Count(&count));
  Reference<IUnknown> walk;
  desk.Called(desk.Queue()->get_NewEnum(walk.Receive()));
  OwnedVariant first;
  walk.As<IEnumVARIANT>()->Next(1, &first, nullptr);
  desk.Called(desk.Queue()->RemoveAll());
}

void SubmitBatch(Desk& desk) {
  Reference<_CQueue> commands;
  desk.Called(desk.Batch()->get_Commands(commands.Receive()));
  const Text entry(L"RM HELLO;RM WORLD");
  BSTR passed = entry;
  Reference<_CQuillet> quillet;
  desk.Called(commands->Add(&passed, nullptr, quillet.Receive()));
  IDispatch* bag = desk.Bag();
  desk.Called(desk.Batch()->SubmitWithResponse(&bag));
  desk.Called(desk.Batch()->Submit());
  desk.Called(commands->RemoveAll());
  SAFEARRAY* elements = nullptr;
  desk.Called(desk.Batch()->RMBatch(Text(L"RM*PAY AT AIRPORT/P1"), &elements));
  SafeArrayDestroy(elements);
}

void HandOutTheSession(Desk& desk) {
  Reference<IDispatch> connection;
  desk.Called(desk.EncodeUtils()->get_EncodeSession(connection.Receive()));
}

// --- Late bound -----------------------------------------------------------------------------------------------------

void CallLate(Desk& desk) {
  IDispatch* const quillet = desk.Quillet();
  IDispatch* const pnr = desk.Pnr();
  desk.Called(CallByName(quillet, L"SendCommand", L"JD"));
  desk.Called(CallByName(quillet, L"LastBuffer", L""));
  desk.Called(CallByName(quillet, L"ConnectSession", L"NOBODY"));
  desk.Called(CallByName(quillet, L"ConnectSession", L"A"));
  desk.Called(CallByName(quillet, L"SendKey", L"not a number"));
  desk.Called(CallByName(quillet, L"NoSuchMember", L""));
  desk.Called(CallByName(pnr, L"TicketElementsCount", L""));
  desk.Called(CallByName(pnr, L"NameElement", L"no bag"));
}

// --- Failures and lives ---------------------------------------------------------------------------------------------

// No entry here asks for the alarm lock: a lock that fails falls back to an entry and a pause.
void FailOneOfTheNextCalls(Desk& desk) {
  constexpr std::uint32_t kCallsAtLeast = 12;
  const Text every(L"*");
  desk.Quillet();  // without it nothing could go on: its creation is not among the calls
  desk.Control()->FailNext(every, E_FAIL, static_cast<LONG>(1 + desk.Below(kCallsAtLeast)));
  for (int sent = 0; sent < 4; ++sent) {
    Send(desk, &_CQuillet::SendCommand, L"JD");
  }
  desk.Control()->FailNext(every, E_ACCESSDENIED, static_cast<LONG>(1 + desk.Below(kCallsAtLeast)));
  for (int retrieved = 0; retrieved < 4; ++retrieved) {
    VARIANT_BOOL found = VARIANT_FALSE;
    desk.Called(desk.Quillet()->RetrieveRecLoc(Text(L"ABC123"), &found));
  }
}

template <typename Interface>
void LiveAndDie(Desk& desk, const CLSID& id) {
  Reference<Interface> object;
  desk.Called(CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, __uuidof(Interface), object.ReceiveVoid()));
}

void CreateOneOfEach(Desk& desk) {
  LiveAndDie<_CQuillet>(desk, CLSID_CQuillet);
  LiveAndDie<_CPNR>(desk, CLSID_CPNR);
  LiveAndDie<_CQueue>(desk, CLSID_CQueue);
  LiveAndDie<_CBatch>(desk, CLSID_CBatch);
  LiveAndDie<_CEncodeUtils>(desk, CLSID_CEncodeUtils);
  LiveAndDie<_IGet>(desk, CLSID_IGet);
  LiveAndDie<_IGetPNR>(desk, CLSID_IGetPNR);
}

// The last object takes everything shared with it.
void StartAnew(Desk& desk) {
  desk.ReleaseAll();
  desk.Quillet();
}

constexpr void (*kActions[])(Desk&) = {
    SendEntries, SendPages,         SendWithBag,     ReadTheLastResponse, Retrieve,        PressAndLock,
    ReadThePnr,  ReadRecords,       CountTheDisplay, ReadElements,        FillQueue,       SubmitBatch,
    CallLate,    HandOutTheSession, ChooseSessions,  StartAnew,           CreateOneOfEach, FailOneOfTheNextCalls,
};

}  // namespace

std::size_t ActionCount() {
  return std::size(kActions);
}

void Act(Desk& desk, std::size_t action) {
  kActions[action](desk);
}

}  // namespace wendrill::soak
