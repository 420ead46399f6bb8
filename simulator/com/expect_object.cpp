#include "com/expect_object.h"

#include "com/adapters/windows_platform.h"
#include "com/results.h"
#include "com/simulation.h"
#include "common/error.h"
#include "core/seconds_passed.h"

namespace wendrill::simulator {
namespace {

constexpr double kLongestWait = 3600;  // in seconds
constexpr std::chrono::milliseconds kBetweenReadings{20};
constexpr std::size_t kColumns = 80;

// The screens of all running sessions: for each session the Buffer of its newest response. A session without a response
// is left out.
std::vector<std::u16string> ScreensNow() {
  std::vector<std::u16string> screens;
  World& world = TheSimulation().world;
  for (const auto& running : world.RunningSessions()) {
    if (const auto response = SimulatedSession(world, running).NewestResponse()) {
      screens.push_back(response->Buffer());
    }
  }
  return screens;
}

// Whether `text` is on the screen of a running session. For the message of a failed expectation, also stores in
// `firstRow` the first row of one screen, without trailing blanks: of the last screen in the order of ScreensNow that
// is not empty. Leaves `firstRow` unchanged when all screens are empty.
bool IsOnAScreen(std::u16string_view text, std::u16string& firstRow) {
  bool found = false;
  for (const std::u16string& screen : ScreensNow()) {
    found = found || screen.find(text) != std::u16string::npos;
    if (!screen.empty()) {
      firstRow = screen.substr(0, kColumns);
      firstRow.erase(firstRow.find_last_not_of(u' ') + 1);
    }
  }
  return found;
}

// Waits at most `seconds` until the screen of a running session contains `text`, and adds an expectation to the run,
// which fails if `text` did not appear. Delivers the thread's messages during the wait; the message WM_QUIT ends the
// wait early. Raises 5 (invalid argument) when `seconds` is not from 0 to 3600.
void ExpectScreen(std::u16string_view text, double seconds) {
  if (!(seconds >= 0 && seconds <= kLongestWait)) {
    Fail(static_cast<std::int32_t>(RunTimeError::InvalidCall), u"Screen waits from 0 to 3600 seconds.");
  }
  com::LocalClock clock;
  com::ThreadMessages messages;
  const double start = clock.SecondsSinceMidnight();
  std::u16string firstRow;
  bool found = IsOnAScreen(text, firstRow);
  while (!found) {
    if (SecondsPassed(start, clock.SecondsSinceMidnight()) >= seconds || messages.RunOnce()) {
      break;
    }
    clock.Sleep(kBetweenReadings);
    found = IsOnAScreen(text, firstRow);
  }
  World& world = TheSimulation().world;
  world.Expectations().Screen(text, found, seconds, firstRow, world.Texts());
}

// Reads the property `name` into `result`. Returns false when the object does not have the property or when reading
// fails.
bool ReadByName(IDispatch* object, const std::wstring& name, VARIANT* result) {
  auto* asked = const_cast<LPOLESTR>(name.c_str());
  DISPID id = DISPID_UNKNOWN;
  DISPPARAMS none{};
  return SUCCEEDED(object->GetIDsOfNames(IID_NULL, &asked, 1, LOCALE_USER_DEFAULT, &id)) &&
         SUCCEEDED(
             object->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_PROPERTYGET, &none, result, nullptr, nullptr));
}

// Converts a value of a script to a Value. A JScript array arrives as an object with the property `length` and with
// elements named "0", "1" and so on; ScriptValueIn converts it to a ValueArray.
Value ScriptValueIn(const VARIANT& variant) {
  const VARIANT& value = V_VT(&variant) == (VT_BYREF | VT_VARIANT) ? *V_VARIANTREF(&variant) : variant;
  com::OwnedVariant length;
  if (V_VT(&value) != VT_DISPATCH || V_DISPATCH(&value) == nullptr ||
      !ReadByName(V_DISPATCH(&value), L"length", &length) || V_VT(&length) != VT_I4) {
    return ValueIn(variant);
  }
  ValueArray array;
  for (LONG index = 0; index < V_I4(&length); ++index) {
    com::OwnedVariant element;
    ReadByName(V_DISPATCH(&value), std::to_wstring(index), &element);
    array.items.push_back(ScriptValueIn(element));
  }
  return array;
}

template <typename Work>
HRESULT Expected(std::u16string_view member, Work work) {
  return com::Guarded([&] {
    World& world = TheSimulation().world;
    world.Tell(member);
    work(world);
  });
}

}  // namespace

HRESULT ExpectObject::Equal(BSTR name, VARIANT actual, VARIANT expected) {
  return Expected(u"Expect.Equal", [&](World& world) {
    world.Expectations().Equal(com::TextOf(name), ScriptValueIn(actual), ScriptValueIn(expected), world.Texts());
  });
}

HRESULT ExpectObject::Holds(BSTR name, VARIANT value) {
  return Expected(u"Expect.Holds",
                  [&](World& world) { world.Expectations().Holds(com::TextOf(name), ValueIn(value), world.Texts()); });
}

HRESULT ExpectObject::Sent(BSTR entry, VARIANT times) {
  return Expected(u"Expect.Sent", [&](World& world) {
    // An omitted `times` means 1.
    const std::int32_t count = V_VT(&times) == VT_ERROR ? 1 : ToInt32(ValueIn(times));
    world.Expectations().Sent(com::TextOf(entry), count, world.Record().Sent());
  });
}

HRESULT ExpectObject::NotSent(BSTR entry) {
  return Expected(u"Expect.NotSent",
                  [&](World& world) { world.Expectations().Sent(com::TextOf(entry), 0, world.Record().Sent()); });
}

HRESULT ExpectObject::InOrder(VARIANT entries) {
  return Expected(u"Expect.InOrder", [&](World& world) {
    world.Expectations().InOrder(ScriptValueIn(entries), world.Record().Sent(), world.Texts());
  });
}

HRESULT ExpectObject::Fails(BSTR name, LONG number, LONG expected) {
  return Expected(u"Expect.Fails",
                  [&](World& world) { world.Expectations().Fails(com::TextOf(name), number, expected); });
}

HRESULT ExpectObject::Screen(BSTR text, VARIANT seconds) {
  return Expected(u"Expect.Screen", [&](World&) { ExpectScreen(com::TextOf(text), ToDouble(ValueIn(seconds))); });
}

HRESULT ExpectObject::get_Failed(LONG* result) {
  return GiveResult(result, [] { return TheSimulation().world.Expectations().Failed(); });
}

HRESULT ExpectObject::get_Failures(VARIANT* result) {
  if (result == nullptr) {
    return E_POINTER;
  }
  return com::Guarded(
      [&] { ValueOut(TheSimulation().world.Expectations().Failures(), result, com::ArrayForm::Variants); });
}

}  // namespace wendrill::simulator
