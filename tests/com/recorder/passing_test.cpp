// What a program sees through the recorder is what it sees without it: identifiers, arguments, results, errors,
// identities. Behind the recorder is the simulator.
#include <olectl.h>

#include "derive/object_model.h"
#include "desktop_fixture.h"
#include "event_sink.h"
#include "late_calls.h"
#include "platform.h"
#include "recorder.h"

namespace wendrill::com::testing {
namespace {

constexpr wchar_t kScenario[] =
    LR"toml(
session = [{ name = "A" }, { name = "B" }]
reply = [{ starts = "", screen = "DONE" }]

[[pnr]]
RecordLocator = "ABC123"
on_display = true
display = "DISPLAY"
[pnr.Header]
Text = "HEADER"
[[pnr.AirSegments]]
kind = "timed"
ElementNo = "1"
[[pnr.AirSegments]]
kind = "open"
ElementNo = "2"
[[pnr.AirSegments]]
kind = "flown"
ElementNo = "3"
)toml";

class Passing : public Desktop {
 protected:
  Passing() { Load(kScenario); }
  void TearDown() override {
    Desktop::TearDown();
    EXPECT_TRUE(CanUnloadDll(L"QuilletRecorder.dll"));
  }

  Reference<IDispatch> List() { return Create<IDispatch>(CLSID_RecordedSessionList); }
  Reference<IDispatch> Session() { return Create<IDispatch>(CLSID_RecordedSession); }
  Reference<IDispatch> Pnr() { return Create<IDispatch>(CLSID_RecordedPNR); }

  static Reference<IDispatch> ObjectOf(const VARIANT& value) {
    EXPECT_EQ(VT_DISPATCH, V_VT(&value));
    return Reference<IDispatch>(V_VT(&value) == VT_DISPATCH ? V_DISPATCH(&value) : nullptr);
  }
  static Reference<IDispatch> Get(const Reference<IDispatch>& object, const wchar_t* name,
                                  std::initializer_list<VARIANT> arguments = {}) {
    OwnedVariant result;
    EXPECT_EQ(S_OK, Invoke(object.Get(), name, arguments, &result)) << std::string(name, name + wcslen(name));
    return ObjectOf(result);
  }
  static Reference<IDispatch> Get(const Reference<IDispatch>& object, DISPID id) {
    OwnedVariant result;
    EXPECT_EQ(S_OK, Invoke(object.Get(), id, DISPATCH_PROPERTYGET, {}, &result)) << id;
    return ObjectOf(result);
  }
  Reference<IDispatch> Retrieved(const Reference<IDispatch>& connection) {
    Reference<IDispatch> pnr = Pnr();
    OwnedVariant status;
    EXPECT_EQ(S_OK, Invoke(pnr.Get(), 80, DISPATCH_METHOD, {Object(connection.Get())}, &status));
    return pnr;
  }
};

void ExpectSame(IUnknown* expected, IUnknown* found) {
  Reference<IUnknown> one;
  Reference<IUnknown> other;
  expected->QueryInterface(IID_IUnknown, one.ReceiveVoid());
  found->QueryInterface(IID_IUnknown, other.ReceiveVoid());
  EXPECT_EQ(one.Get(), other.Get());
}

TEST_F(Passing, EveryPropertyOfThePnrByNameAndIdentifier) {
  const Reference<IDispatch> session = Session();
  const Reference<IDispatch> pnr = Retrieved(Get(session, L"HostConnection"));
  for (const simulator::Collection& collection : simulator::kCollections) {
    EXPECT_EQ(collection.id, IdOf(pnr.Get(), WideOf(collection.name.data())));
    const Reference<IDispatch> list = Get(pnr, collection.id);
    OwnedVariant count;
    EXPECT_EQ(S_OK, Invoke(list.Get(), L"Count", {}, &count));
    EXPECT_EQ(collection.id == 78                               ? 3
              : collection.kind != simulator::SegmentKind::None ? 1
                                                                : 0,
              V_I4(&count))
        << collection.id;
  }
  OwnedVariant text;
  EXPECT_EQ(S_OK, Invoke(pnr.Get(), 75, DISPATCH_PROPERTYGET, {}, &text));
  EXPECT_EQ(0U, TextOf(V_BSTR(&text)).find(u"DISPLAY"));
  OwnedVariant header;
  EXPECT_EQ(S_OK, Invoke(Get(pnr, 76).Get(), L"Text", {}, &header));
  EXPECT_EQ(u"HEADER", TextOf(V_BSTR(&header)));
  OwnedVariant nothing;
  EXPECT_EQ(S_OK, Invoke(pnr.Get(), 81, DISPATCH_METHOD,
                         {Object(Get(session, L"HostConnection").Get()), String(Text(L"RTABC123"))}, &nothing));
}

// By name, with the identifiers that the terminal gives.
void ExpectMembers(const Reference<IDispatch>& object, std::initializer_list<const wchar_t*> names) {
  DISPID expected = 1;
  for (const wchar_t* name : names) {
    EXPECT_EQ(expected++, IdOf(object.Get(), name)) << std::string(name, name + wcslen(name));
  }
}

VARIANT ByReference(BSTR* text) {
  VARIANT variant = OfType(VT_BYREF | VT_BSTR);
  V_BSTRREF(&variant) = text;
  return variant;
}
VARIANT ByReference(VARIANT_BOOL* truth) {
  VARIANT variant = OfType(VT_BYREF | VT_BOOL);
  V_BOOLREF(&variant) = truth;
  return variant;
}

TEST_F(Passing, EveryMemberOfSessionAndResponseWithArgumentsByReference) {
  const Reference<IDispatch> session = Get(List(), L"Item", {String(Text(L"B"))});
  ExpectMembers(session, {L"Send", L"LastResponse", L"SessionName", L"HostConnection", L"SendKey"});
  OwnedVariant name;
  EXPECT_EQ(S_OK, Invoke(session.Get(), L"SessionName", {}, &name));
  EXPECT_EQ(u"B", TextOf(V_BSTR(&name)));
  OwnedVariant accepted;
  EXPECT_EQ(S_OK, Invoke(session.Get(), L"SendKey", {Number(353)}, &accepted));
  EXPECT_EQ(VT_BOOL, V_VT(&accepted));
  EXPECT_EQ(VARIANT_TRUE, V_BOOL(&accepted));

  OwnedString entry(u"JI");
  VARIANT_BOOL transmit = VARIANT_TRUE;
  const Reference<IDispatch> response = Get(session, L"Send", {ByReference(entry.Place()), ByReference(&transmit)});
  ASSERT_TRUE(response);
  ExpectMembers(response,
                {L"Buffer", L"HostCommand", L"ResponseType", L"Text", L"NumberOfColumns", L"NumberOfLines", L"Line"});
  OwnedVariant line;
  EXPECT_EQ(S_OK, Invoke(response.Get(), L"Line", {Number(1)}, &line));
  EXPECT_EQ(0U, TextOf(V_BSTR(&line)).find(u"DONE"));
  OwnedVariant columns;
  EXPECT_EQ(S_OK, Invoke(response.Get(), L"NumberOfColumns", {}, &columns));
  EXPECT_EQ(VT_I2, V_VT(&columns));
  EXPECT_EQ(80, V_I2(&columns));
  OwnedVariant command;
  EXPECT_EQ(S_OK, Invoke(Get(session, L"LastResponse").Get(), L"HostCommand", {}, &command));
  EXPECT_EQ(u"JI", TextOf(V_BSTR(&command)));
}

TEST_F(Passing, EveryMemberOfAlarmAndTextHelper) {
  const auto alarm = Create<IDispatch>(CLSID_RecordedAlarmManager);
  ExpectMembers(alarm, {L"LockAlarm"});
  VARIANT_BOOL lock = VARIANT_TRUE;
  OwnedVariant code;
  EXPECT_EQ(S_OK, Invoke(alarm.Get(), L"LockAlarm", {ByReference(&lock)}, &code));
  EXPECT_EQ(VT_I4, V_VT(&code));
  const auto helper = Create<IDispatch>(CLSID_RecordedTextHelper);
  ExpectMembers(helper, {L"TerminalReady", L"HostReady", L"TerminalVersion", L"HostDateText"});
  OwnedVariant version;
  EXPECT_EQ(S_OK, Invoke(helper.Get(), L"TerminalVersion", {}, &version));
  EXPECT_EQ(u"3.0P1", TextOf(V_BSTR(&version)));
  VARIANT date = OfType(VT_DATE);
  V_DATE(&date) = 39611;  // 12 June 2008
  OwnedVariant text;
  EXPECT_EQ(S_OK, Invoke(helper.Get(), L"HostDateText", {date}, &text));
  EXPECT_EQ(u"12JUN08", TextOf(V_BSTR(&text)));
}

TEST_F(Passing, OneObjectHasOneWrapper) {
  const Reference<IDispatch> session = Session();
  const Reference<IDispatch> connection = Get(session, L"HostConnection");
  ExpectSame(connection.Get(), Get(session, L"HostConnection").Get());
  ExpectSame(connection.Get(), Get(Session(), L"HostConnection").Get());
}

TEST_F(Passing, InterfacesAreOneObjectAndThoseOfTheTerminalsAlone) {
  const Reference<IDispatch> session = Session();
  for (const IID& wanted :
       {IID_ISupportErrorInfo, IID_IProvideClassInfo, IID_IConnectionPointContainer, IID_IDispatch}) {
    Reference<IUnknown> found;
    ASSERT_EQ(S_OK, session->QueryInterface(wanted, found.ReceiveVoid()));
    ExpectSame(session.Get(), found.Get());
  }
  Reference<IUnknown> none;
  EXPECT_EQ(E_NOINTERFACE, session->QueryInterface(IID_IEnumVARIANT, none.ReceiveVoid()));
  EXPECT_EQ(E_NOINTERFACE, session->QueryInterface(IID__TimedAirSegment, none.ReceiveVoid()));
  const Reference<IDispatch> pnr = Pnr();  // it does not describe itself
  EXPECT_EQ(E_NOINTERFACE, pnr->QueryInterface(IID_IProvideClassInfo, none.ReceiveVoid()));
  UINT count = 7;
  EXPECT_EQ(S_OK, pnr->GetTypeInfoCount(&count));
  EXPECT_EQ(0U, count);
  Reference<ITypeInfo> type;
  EXPECT_EQ(S_OK, session->GetTypeInfo(0, LOCALE_USER_DEFAULT, type.Receive()));
}

TEST_F(Passing, SegmentsKeepTheirIdentities) {
  const Reference<IDispatch> segments = Get(Retrieved(Get(Session(), L"HostConnection")), 78);
  const HRESULT timed[] = {S_OK, E_NOINTERFACE, E_NOINTERFACE};
  const HRESULT open[] = {E_NOINTERFACE, S_OK, E_NOINTERFACE};
  for (LONG place = 0; place < 3; ++place) {
    const Reference<IDispatch> segment = Get(segments, L"Item", {Number(place + 1)});
    Reference<IUnknown> marked;
    EXPECT_EQ(timed[place], segment->QueryInterface(IID__TimedAirSegment, marked.ReceiveVoid()));
    EXPECT_EQ(open[place], segment->QueryInterface(IID__UntimedAirSegment, marked.ReceiveVoid()));
  }
}

TEST_F(Passing, AConnectionInAVariableReachesThePnr) {
  const Reference<IDispatch> connection = Get(Session(), L"HostConnection");
  const Reference<IDispatch> pnr = Pnr();
  VARIANT variable = Object(connection.Get());
  OwnedVariant status;
  EXPECT_EQ(S_OK, Invoke(pnr.Get(), 80, DISPATCH_METHOD, {testing::ByReference(&variable)}, &status));
  EXPECT_EQ(connection.Get(), V_DISPATCH(&variable));
  IDispatch* pointer = connection.Get();
  VARIANT reference = OfType(VT_BYREF | VT_DISPATCH);
  V_DISPATCHREF(&reference) = &pointer;
  EXPECT_EQ(S_OK, Invoke(pnr.Get(), 80, DISPATCH_METHOD, {reference}, &status));
  EXPECT_EQ(connection.Get(), pointer);
}

TEST_F(Passing, WhatTheProgramStoresItGetsBack) {
  const Reference<IDispatch> pnr = Pnr();
  const Reference<IDispatch> connection = Get(Session(), L"HostConnection");
  const auto bag = Create<IDispatch>(CLSID_ParamBag);
  for (const Reference<IDispatch>& stored : {connection, bag}) {
    ASSERT_EQ(S_OK, Invoke(pnr.Get(), 0, DISPATCH_PROPERTYPUT, {Object(stored.Get())}, nullptr));
    ExpectSame(stored.Get(), Get(pnr, DISPID{0}).Get());
  }
  ASSERT_EQ(S_OK, Invoke(pnr.Get(), 0, DISPATCH_PROPERTYPUT, {Number(1)}, nullptr));
}

TEST_F(Passing, ErrorsArriveWithNumberSourceAndDescription) {
  const Reference<IDispatch> list = List();
  EXCEPINFO exception{};
  EXPECT_EQ(DISP_E_EXCEPTION, Invoke(list.Get(), L"Item", {String(Text(L"Z"))}, nullptr, &exception));
  const Exception error = Taken(exception);
  EXPECT_EQ(static_cast<SCODE>(0x800A0009), error.code);
  EXPECT_EQ(L"QuilletSimulator", error.source);
  EXPECT_EQ(L"No session of the name \"Z\" runs.", error.description);

  FailNext(L"Count", E_ACCESSDENIED, 1);
  EXPECT_EQ(DISP_E_EXCEPTION, Invoke(list.Get(), L"Count", {}, nullptr, &exception));
  EXPECT_EQ(E_ACCESSDENIED, Taken(exception).code);
  FailNext(L"Count", E_ACCESSDENIED, 1);
  EXPECT_EQ(E_ACCESSDENIED, Invoke(list.Get(), L"Count", {}, nullptr));
  EXPECT_EQ(L"QuilletSimulator", TakeError().source);
}

TEST_F(Passing, WrongCallsFailAsWithoutTheRecorder) {
  const Reference<IDispatch> session = Session();
  auto* unknown = const_cast<LPOLESTR>(L"Sendd");
  DISPID id = 0;
  EXPECT_EQ(DISP_E_UNKNOWNNAME, session->GetIDsOfNames(IID_NULL, &unknown, 1, LOCALE_USER_DEFAULT, &id));
  EXPECT_EQ(DISP_E_MEMBERNOTFOUND, Invoke(session.Get(), 4711, DISPATCH_METHOD, {}, nullptr));
  UINT argument = 7;
  EXPECT_EQ(DISP_E_TYPEMISMATCH,
            Invoke(session.Get(), L"SendKey", {String(Text(L"no key"))}, nullptr, nullptr, &argument));
  EXPECT_EQ(0U, argument);
  EXPECT_EQ(DISP_E_UNKNOWNINTERFACE,
            session->Invoke(1, IID_IUnknown, 0, DISPATCH_METHOD, nullptr, nullptr, nullptr, nullptr));
}

TEST_F(Passing, AnEnumeratorGivesWrappedSessions) {
  OwnedVariant result;
  ASSERT_EQ(S_OK, Invoke(List().Get(), DISPID_NEWENUM, DISPATCH_PROPERTYGET, {}, &result));
  ASSERT_EQ(VT_UNKNOWN, V_VT(&result));
  Reference<IEnumVARIANT> sessions;
  ASSERT_EQ(S_OK, V_UNKNOWN(&result)->QueryInterface(IID_IEnumVARIANT, sessions.ReceiveVoid()));
  {
    OwnedVariant elements[3];
    ULONG fetched = 0;
    EXPECT_EQ(S_FALSE, sessions->Next(3, elements, &fetched));
    ASSERT_EQ(2U, fetched);
    OwnedVariant name;
    EXPECT_EQ(S_OK, Invoke(V_DISPATCH(&elements[1]), L"SessionName", {}, &name));
    EXPECT_EQ(u"B", TextOf(V_BSTR(&name)));
    // A connection that the terminal knows: the session is one of its own behind a wrapper.
    const Reference<IDispatch> connection = Get(Reference<IDispatch>(V_DISPATCH(&elements[1])), L"HostConnection");
    EXPECT_TRUE(Retrieved(connection));
  }
  EXPECT_EQ(S_OK, sessions->Reset());
  EXPECT_EQ(S_OK, sessions->Skip(2));
  EXPECT_EQ(S_FALSE, sessions->Skip(1));
  Reference<IEnumVARIANT> clone;
  EXPECT_EQ(E_NOTIMPL, sessions->Clone(clone.Receive()));
  FailNext(L"Next", E_ACCESSDENIED, 1);
  EXPECT_EQ(S_OK, sessions->Reset());
  OwnedVariant element;
  EXPECT_EQ(E_ACCESSDENIED, sessions->Next(1, &element, nullptr));
  TakeError();
}

TEST_F(Passing, EventsReachTheProgramsSinkWithWrappedResponses) {
  const Reference<IDispatch> session = Session();
  const auto container = session.As<IConnectionPointContainer>();
  Reference<IConnectionPoint> point;
  EXPECT_EQ(CONNECT_E_NOCONNECTION, container->FindConnectionPoint(IID_IDispatch, point.Receive()));
  ASSERT_EQ(S_OK, container->FindConnectionPoint(DIID__HostSessionEvents, point.Receive()));
  const auto sink = Reference<EventSink>::Adopt(new EventSink());
  DWORD cookie = 0;
  ASSERT_EQ(S_OK, point->Advise(sink.Get(), &cookie));

  Reference<IEnumConnections> connections;
  ASSERT_EQ(S_OK, point->EnumConnections(connections.Receive()));
  CONNECTDATA connection{};
  ASSERT_EQ(S_OK, connections->Next(1, &connection, nullptr));
  ExpectSame(sink.Get(), connection.pUnk);
  EXPECT_EQ(cookie, connection.dwCookie);
  connection.pUnk->Release();

  VARIANT transmit = OfType(VT_BOOL);
  V_BOOL(&transmit) = VARIANT_TRUE;
  const Reference<IDispatch> sent = Get(session, L"Send", {String(Text(L"JI")), transmit});
  PumpMessages();
  EXPECT_EQ(1, sink->events);
  ASSERT_TRUE(sink->response);
  OwnedVariant command;
  EXPECT_EQ(S_OK, testing::Invoke(sink->response.Get(), L"HostCommand", {}, &command));
  EXPECT_EQ(u"JI", TextOf(V_BSTR(&command)));

  EXPECT_EQ(S_OK, point->Unadvise(cookie));
  EXPECT_EQ(CONNECT_E_NOCONNECTION, point->Unadvise(cookie));
  Get(session, L"Send", {String(Text(L"JI")), transmit});
  PumpMessages();
  EXPECT_EQ(1, sink->events);
  sink->response = {};
}

}  // namespace
}  // namespace wendrill::com::testing
