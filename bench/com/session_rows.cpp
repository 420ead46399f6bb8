#include <array>
#include <string>

#include "bare_calls.h"
#include "call_count.h"
#include "platform.h"
#include "rows.h"
#include "wendrill23.h"

namespace wendrill::com::bench {
namespace {

constexpr double kMostOfToolkitCalls = 1.2;
constexpr LONG kClearKey = 322;

constexpr int kScreenRows = 24;
constexpr int kPages = 100;

std::u16string Rows(int count) {
  std::u16string rows;
  for (; count > 0; --count) {
    rows += u" 1  AF1570 C4 D4 Y9 B9 M9 K0      CDG LHR 0715 0730    E0.735\n";
  }
  return rows;
}

// The scenario of these rows. The entry "AN15JUNPARLON" is answered with a full screen, "TQT" with 100 full screens,
// any other entry with one row. The library sends "ET" under the alarm lock.
std::u16string Scenario() {
  std::u16string text = u"[[session]]\nname = 'A'\n[[reply]]\nentry = 'AN15JUNPARLON'\nscreen = '''\n";
  text += Rows(kScreenRows) + u"'''\n[[reply]]\nentry = 'TQT'\ntype = 23\npages = [\n";
  for (int page = 1; page < kPages; ++page) {
    text += u"'''\n" + Rows(kScreenRows - 1) + u"MORE     \n''',\n";
  }
  return text + u"'''\n" + Rows(kScreenRows) + u"''']\n[[reply]]\nstarts = ''\nscreen = 'OK'\n";
}

// The reference: holds the toolkit's objects that the library holds, and makes the toolkit calls that sending an entry
// requires.
class BareTerminal {
 public:
  void Send(const OwnedString& entry) {
    PressClear();
    ReadBuffer(Transmitted(entry));
    AskWhetherReady();
  }

  // Makes the calls for an entry that is sent under the alarm lock, on a terminal that has the alarm component.
  void SendUnderLock(const OwnedString& entry) {
    PressClear();
    SwitchAlarm(VARIANT_TRUE);
    ReadBuffer(Transmitted(entry));
    SwitchAlarm(VARIANT_FALSE);
  }

  // Sends an entry and joins all pages of its response. Reads the response type of the first page, as the library does
  // to find out how the pages continue, but ignores it.
  void Collect(const OwnedString& entry) {
    std::u16string text;
    PressClear();
    const auto first = Transmitted(entry);
    ReadBuffer(first, &text);
    Read(first.Get(), responseType_);
    const OwnedString next(u"MD");
    for (int page = 2; page <= kPages; ++page) {
      ReadBuffer(Transmitted(next), &text);
    }
    AskWhetherReady();
    const OwnedString whole(text);
  }

  void ReadNumberOfLines() {
    const auto response = ObjectOf(session_.Get(), lastResponse_);
    AskForType(response);
    Read(response.Get(), numberOfLines_);
  }

 private:
  void PressClear() {
    VARIANT key = Number(kClearKey);
    OwnedVariant accepted;
    Call(session_.Get(), sendKey_, {&key, 1}, &accepted);
  }

  // Makes the call with which the library asks a response for its type. The library caches DISPIDs for each type, so it
  // needs the type of every response.
  static void AskForType(const Reference<IDispatch>& response) {
    Reference<ITypeInfo> type;
    Must(response->GetTypeInfo(0, LOCALE_USER_DEFAULT, type.Receive()));
  }

  void ReadBuffer(const Reference<IDispatch>& response, std::u16string* text = nullptr) {
    AskForType(response);
    OwnedVariant buffer;
    Call(response.Get(), buffer_, {}, &buffer);
    if (text != nullptr) {
      text->append(TextOf(V_BSTR(&buffer)));
    }
  }

  Reference<IDispatch> Transmitted(const OwnedString& entry) {
    // A string that is passed by reference may be replaced by the callee, so a copy of the entry is passed.
    OwnedString text(entry.Text());
    VARIANT_BOOL transmit = VARIANT_TRUE;
    std::array<VARIANT, 2> arguments{};
    V_VT(&arguments[0]) = VT_BYREF | VT_BOOL;
    V_BOOLREF(&arguments[0]) = &transmit;
    V_VT(&arguments[1]) = VT_BYREF | VT_BSTR;
    V_BSTRREF(&arguments[1]) = text.Place();
    return ObjectOf(session_.Get(), send_, arguments);
  }

  void AskWhetherReady() {
    Read(helper_.Get(), terminalReady_);
    Read(helper_.Get(), hostReady_);
  }

  // Creates the alarm component for each use, as the library does.
  void SwitchAlarm(VARIANT_BOOL lock) {
    AskWhetherReady();
    Read(helper_.Get(), terminalVersion_);
    VARIANT argument;
    V_VT(&argument) = VT_BYREF | VT_BOOL;
    V_BOOLREF(&argument) = &lock;
    OwnedVariant code;
    Call(Create(L"wzuScriptHelper.AlarmManager").Get(), lockAlarm_, {&argument, 1}, &code);
  }

  Reference<IDispatch> session_ = Create(L"kzuHostToolKit.HostSession");
  Reference<IDispatch> helper_ = Create(L"Pellorin.TextHelper");
  DISPID sendKey_ = IdOf(session_.Get(), L"SendKey");
  DISPID send_ = IdOf(session_.Get(), L"Send");
  DISPID lastResponse_ = IdOf(session_.Get(), L"LastResponse");
  DISPID terminalReady_ = IdOf(helper_.Get(), L"TerminalReady");
  DISPID hostReady_ = IdOf(helper_.Get(), L"HostReady");
  DISPID terminalVersion_ = IdOf(helper_.Get(), L"TerminalVersion");
  DISPID lockAlarm_ = IdOf(Create(L"wzuScriptHelper.AlarmManager").Get(), L"LockAlarm");
  DISPID buffer_ = IdOf(Transmitted(OwnedString(u"MD")).Get(), L"Buffer");
  DISPID responseType_ = IdOf(ObjectOf(session_.Get(), lastResponse_).Get(), L"ResponseType");
  DISPID numberOfLines_ = IdOf(ObjectOf(session_.Get(), lastResponse_).Get(), L"NumberOfLines");
};

// Measures rows with one simulated terminal.
class Comparison {
 public:
  Comparison(_Control* control, const Stopwatch& stopwatch) : control_(control), stopwatch_(stopwatch) {}

  template <typename Ours, typename Theirs>
  Row Beside(const char* what, const char* beside, Ours ours, Theirs theirs) const {
    RequireSameCalls(control_.Get(), what, ours, theirs);
    const Costs costs = stopwatch_.Compare(Repeat(ours), Repeat(theirs));
    control_->ClearJournal();
    return {what, beside, costs};
  }

 private:
  Reference<_Control> control_;
  const Stopwatch& stopwatch_;
};

Row Limited(Row row) {
  row.atMost = kMostOfToolkitCalls;
  return row;
}

}  // namespace

std::vector<Row> SessionRows(const Stopwatch& stopwatch) {
  const auto control = CreateAs<_Control>(L"QuilletSimulator.Control");
  Must(control->LoadText(OwnedString(Scenario()).Get()));
  const auto quillet = CreateAs<_CQuillet>(L"Wendrill23.CQuillet");
  BareTerminal terminal;
  const OwnedString wholeScreen(u"AN15JUNPARLON");
  const OwnedString row(u"MD");
  const OwnedString alarm(u"ET");
  const OwnedString pages(u"TQT");

  const auto sending = [&](const wchar_t* member) {
    return [&quillet, id = IdOf(quillet.Get(), member)](const OwnedString& entry) {
      VARIANT argument = String(entry.Get());
      OwnedVariant response;
      Call(quillet.Get(), id, {&argument, 1}, &response);
    };
  };
  const auto send = sending(L"SendCommand");
  const auto collect = sending(L"SendCommandGetAll");
  const DISPID lines = IdOf(quillet.Get(), L"LastNumberOfLines");
  constexpr const char* kToolkitCalls = "the toolkit calls that it makes";
  const Comparison comparison(control.Get(), stopwatch);
  return {
      Limited(comparison.Beside(
          "SendCommand, a screen of 24 rows", kToolkitCalls, [&] { send(wholeScreen); },
          [&] { terminal.Send(wholeScreen); })),
      Limited(comparison.Beside(
          "SendCommand, a row", kToolkitCalls, [&] { send(row); }, [&] { terminal.Send(row); })),
      Limited(comparison.Beside(
          "SendCommand under the alarm lock", kToolkitCalls, [&] { send(alarm); },
          [&] { terminal.SendUnderLock(alarm); })),
      comparison.Beside(
          "SendCommandGetAll, 100 pages of 24 rows", "the same calls, pages put together", [&] { collect(pages); },
          [&] { terminal.Collect(pages); }),
      comparison.Beside(
          "CQuillet.LastNumberOfLines", kToolkitCalls, [&] { Read(quillet.Get(), lines); },
          [&] { terminal.ReadNumberOfLines(); }),
  };
}

}  // namespace wendrill::com::bench
