// Clients in several apartments. All objects live in the process's main single-threaded apartment; a client elsewhere
// holds proxies of the type-library marshaller, which the manifests declare.
#include <functional>
#include <memory>
#include <utility>
#include <vector>

#include "com/support/apartment_thread.h"
#include "com/support/handed_classes.h"
#include "desktop_fixture.h"
#include "late_calls.h"

namespace wendrill::com::testing {
namespace {

constexpr wchar_t kScenario[] =
    LR"toml(
session = [{ name = "A" }]
reply = [
  { entry = "LATE", screen = "AT LAST", late = 1000000 },
  { entry = "SOON", screen = "AT LAST", late = 3 },
  { starts = "", screen = "DONE" },
]

[[pnr]]
RecordLocator = "ABC123"
on_display = true

[[pnr.Names]]
Text = "1.SMITH/JOHN MR(ADT)"
ElementNo = "1"
Initial = "JOHN MR"
LastName = "SMITH"
)toml";

constexpr HRESULT StatusOf(int number) {
  return static_cast<HRESULT>(0x800A0000 + number);
}
constexpr HRESULT kNotAnswered = StatusOf(2530);

template <typename Interface>
Reference<Interface> New(const CLSID& id) {
  Reference<Interface> object;
  EXPECT_EQ(S_OK, CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, __uuidof(Interface), object.ReceiveVoid()));
  return object;
}

using TextMember = HRESULT (STDMETHODCALLTYPE _CQuillet::*)(BSTR, BSTR*);

void ExpectAnswer(const wchar_t* answer, _CQuillet* quillet, TextMember member, const wchar_t* entry) {
  Text response;
  EXPECT_EQ(S_OK, (quillet->*member)(Text(entry), response.Receive()));
  EXPECT_EQ(Row(answer), response.Wide());
}

// --- No apartment but the multithreaded one: COM creates the one for the objects ------------------------------------

struct PublishedInterface {
  const char* name;
  const CLSID& id;
  const IID& interfaceId;
};

constexpr PublishedInterface kPublished[] = {
    {"CQuillet", CLSID_CQuillet, IID__CQuillet},
    {"CPNR", CLSID_CPNR, IID__CPNR},
    {"CPNR as IGet", CLSID_CPNR, IID__IGet},
    {"CPNR as IGetPNR", CLSID_CPNR, IID__IGetPNR},
    {"CQueue", CLSID_CQueue, IID__CQueue},
    {"CBatch", CLSID_CBatch, IID__CBatch},
    {"CEncodeUtils", CLSID_CEncodeUtils, IID__CEncodeUtils},
    {"IGet", CLSID_IGet, IID__IGet},
    {"IGetPNR", CLSID_IGetPNR, IID__IGetPNR},
    {"HostSessionList", CLSID_HostSessionList, IID__HostSessionList},
    {"HostSession", CLSID_HostSession, IID__HostSession},
    {"AlarmManager", CLSID_AlarmManager, IID__AlarmManager},
    {"ParamBag", CLSID_ParamBag, IID__ParamBag},
    {"TextHelper", CLSID_TextHelper, IID__TextHelper},
    {"Control", CLSID_Control, IID__Control},
    {"Expect", CLSID_Expect, IID__Expect},
};

// Wine writes a type library that it found by manifest to the registry, where the next program would find it.
void ForgetTheTypeLibraries() {
  const auto forget = [](const wchar_t* below, const GUID& id) {
    wchar_t text[40];
    StringFromGUID2(id, text, 40);
    RegDeleteTreeW(HKEY_LOCAL_MACHINE, (std::wstring(L"Software\\Classes\\") + below + L"\\" + text).c_str());
  };
  forget(L"TypeLib", LIBID_Wendrill23);
  forget(L"TypeLib", LIBID_QuilletSimulator);
  for (const PublishedInterface& published : kPublished) {
    forget(L"Interface", published.interfaceId);
  }
}

TEST(Apartments, TypedCreationInAnMtaWorksFromTheManifestAlone) {
  ForgetTheTypeLibraries();
  ApartmentThread(COINIT_MULTITHREADED, [] {
    const auto control = New<_Control>(CLSID_Control);
    ASSERT_TRUE(control);
    ASSERT_EQ(S_OK, control->LoadText(Text(kScenario)));
    {
      const auto quillet = New<_CQuillet>(CLSID_CQuillet);
      ASSERT_TRUE(quillet);
      ExpectAnswer(L"DONE", quillet.Get(), &_CQuillet::SendCommand, L"JD");
      EXPECT_EQ(StatusOf(2535), quillet->ConnectSession(Text(L"NOBODY")));
    }
    LONG live = -1;
    EXPECT_EQ(S_OK, control->get_LiveObjects(&live));
    EXPECT_EQ(0, live);
  });
}

TEST(Apartments, EveryPublishedInterfaceIsReachedFromAnMta) {
  ForgetTheTypeLibraries();
  ApartmentThread(COINIT_MULTITHREADED, [] {
    for (const PublishedInterface& published : kPublished) {
      Reference<IUnknown> object;
      EXPECT_EQ(S_OK, CoCreateInstance(published.id, nullptr, CLSCTX_INPROC_SERVER, published.interfaceId,
                                       object.ReceiveVoid()))
          << published.name;
    }
  });
}

// The state has no lock: an object that lived in the apartment of whoever creates it would be called on another thread
// than the rest of them. Every proxy answers for IMultiQI, and none of our objects does.
TEST(Apartments, ObjectsOfASecondStaLiveInTheMainOne) {
  CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
  ApartmentThread(COINIT_APARTMENTTHREADED, [] {
    for (const PublishedInterface& published : kPublished) {
      Reference<IUnknown> object;
      EXPECT_EQ(S_OK, CoCreateInstance(published.id, nullptr, CLSCTX_INPROC_SERVER, IID_IUnknown, object.ReceiveVoid()))
          << published.name;
      Reference<IUnknown> proxy;
      EXPECT_EQ(S_OK, object->QueryInterface(IID_IMultiQI, proxy.ReceiveVoid())) << published.name << " is no proxy";
    }
  }).PumpUntilEnded();
  CoUninitialize();
}

// --- Beside the main apartment --------------------------------------------------------------------------------------

class BesideTheMainApartment : public Desktop {
 protected:
  void SetUp() override {
    ForgetTheTypeLibraries();
    Load(kScenario);
  }

  // A client of an apartment of its own. The main one must let its messages run until it has ended.
  static std::unique_ptr<ApartmentThread> Start(DWORD apartment, std::function<void(const TakenClasses&)> work) {
    auto handed =
        std::make_shared<HandedClasses>(std::vector<CLSID>{CLSID_CQuillet, CLSID_CPNR, CLSID_ParamBag, CLSID_Control});
    return std::make_unique<ApartmentThread>(apartment, [handed, work = std::move(work)] {
      const TakenClasses classes(*handed);
      work(classes);
    });
  }
};

constexpr DWORD kApartments[] = {COINIT_APARTMENTTHREADED, COINIT_MULTITHREADED};

template <typename Interface>
Reference<Interface> New(const TakenClasses& classes, const CLSID& id) {
  Reference<Interface> object;
  EXPECT_EQ(S_OK, classes.Create(id, __uuidof(Interface), object.ReceiveVoid()));
  return object;
}

// Typed clients lose the description under Wine; late-bound ones have all.
TEST_F(BesideTheMainApartment, ALateBoundErrorArrivesWhole) {
  for (const DWORD apartment : kApartments) {
    Start(apartment, [](const TakenClasses& classes) {
      const auto quillet = New<_CQuillet>(classes, CLSID_CQuillet);
      const Text session(L"NOBODY");
      EXCEPINFO information{};
      EXPECT_EQ(DISP_E_EXCEPTION, Invoke(quillet.Get(), L"ConnectSession", {String(session)}, nullptr, &information));
      const Exception exception = Taken(information);
      EXPECT_EQ(StatusOf(2535), exception.code);
      EXPECT_EQ(L"Wendrill23", exception.source);
      EXPECT_EQ(WideMessageOf(2535), exception.description);
    })->PumpUntilEnded();
  }
}

std::wstring TextUnder(_ParamBag* bag, const wchar_t* key) {
  Reference<_ParamBagEntry> entry;
  OwnedVariant value;
  EXPECT_EQ(S_OK, bag->Get(Text(key), entry.Receive()));
  if (entry) {
    EXPECT_EQ(S_OK, entry->get_Value(&value));
  }
  return V_VT(&value) == VT_BSTR ? V_BSTR(&value) : L"no text";
}

// A by-reference object belongs to the call: a proxy releases what went in and passes what comes out.
TEST_F(BesideTheMainApartment, ATypedBagIsReadAndFilled) {
  for (const DWORD apartment : kApartments) {
    Start(apartment, [](const TakenClasses& classes) {
      const auto quillet = New<_CQuillet>(classes, CLSID_CQuillet);
      const auto records = New<_IGet>(classes, CLSID_CPNR);
      const auto bag = New<_ParamBag>(classes, CLSID_ParamBag);
      LONG status = -1;
      EXPECT_EQ(S_OK, quillet->RetrieveCurrent(&status));
      EXPECT_EQ(S_OK, bag->Set(Text(L"intKeyIndex"), OfType(VT_I2)));
      IDispatch* passed = Reference<IDispatch>(bag.Get()).Release();
      Reference<IDispatch> result;
      EXPECT_EQ(S_OK, records->NameElement(&passed, result.Receive()));
      const auto returned = Reference<IDispatch>::Adopt(passed);
      EXPECT_EQ(L"SMITH", TextUnder(bag.Get(), L"strKeyLastName"));
    })->PumpUntilEnded();
  }
}

// Waits until an entry was sent, which the journal shows. Asking for it is a call into the main apartment: as long as
// the sender waits, it is answered inside the wait.
void AwaitEntry(const TakenClasses& classes, const wchar_t* line) {
  const auto control = New<_Control>(classes, CLSID_Control);
  Text journal;
  do {
    ASSERT_EQ(S_OK, control->get_Journal(journal.Receive()));
  } while (journal.Wide().find(line) == std::wstring::npos);
}

// Sends an entry of its own while another one waits for its answer.
void Interfere(const TakenClasses& classes) {
  const auto quillet = New<_CQuillet>(classes, CLSID_CQuillet);
  AwaitEntry(classes, L"send LATE");
  ExpectAnswer(L"DONE", quillet.Get(), &_CQuillet::SendCommand, L"JD");
}

// The session has one response at a time. A wait cannot tell another entry's answer from its own, so it fails with its
// member's number; then the object works on.
void ExpectInterference(_CQuillet* waiting) {
  Text response;
  EXPECT_EQ(kNotAnswered, waiting->SendCommandNoClear(Text(L"LATE"), response.Receive()));
  ExpectAnswer(L"AT LAST", waiting, &_CQuillet::SendCommandNoClear, L"SOON");
}

TEST_F(BesideTheMainApartment, AnEntryOfAnotherApartmentEndsAWaitInTheMainOne) {
  for (const DWORD apartment : kApartments) {
    const auto waiting = CreateQuillet();
    const auto other = Start(apartment, Interfere);
    ExpectInterference(waiting.Get());
    other->PumpUntilEnded();
    Journal();
  }
}

TEST_F(BesideTheMainApartment, AnEntryOfOneApartmentEndsAWaitOfAnother) {
  for (const DWORD apartment : kApartments) {
    const auto waiting = Start(COINIT_APARTMENTTHREADED, [](const TakenClasses& classes) {
      ExpectInterference(New<_CQuillet>(classes, CLSID_CQuillet).Get());
    });
    const auto other = Start(apartment, Interfere);
    waiting->PumpUntilEnded();
    other->PumpUntilEnded();
    Journal();
  }
}

TEST_F(BesideTheMainApartment, ObjectsOfAnotherApartmentComeAndGoInsideAWait) {
  const auto waiting = CreateQuillet();
  const auto other = Start(COINIT_MULTITHREADED, [](const TakenClasses& classes) {
    AwaitEntry(classes, L"send LATE");
    for (int round = 0; round < 10; ++round) {
      EXPECT_TRUE(New<_CQuillet>(classes, CLSID_CQuillet));
    }
    EXPECT_EQ(S_OK, New<_CQuillet>(classes, CLSID_CQuillet)->StopLoop());
  });
  Text response;
  EXPECT_EQ(kNotAnswered, waiting->SendCommandNoClear(Text(L"LATE"), response.Receive()));
  other->PumpUntilEnded();
  EXPECT_EQ(S_OK, waiting->ConnectSession(Text(L"A")));
  ExpectAnswer(L"AT LAST", waiting.Get(), &_CQuillet::SendCommandNoClear, L"SOON");
}

}  // namespace
}  // namespace wendrill::com::testing
