#include "apartments.h"

#include <ole2.h>
#include <windows.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <cstdio>
#include <deque>
#include <iterator>
#include <stdexcept>
#include <string>
#include <string_view>

#include "com/support/apartment_thread.h"
#include "growth.h"
#include "platform_growth.h"
#include "soak_actions.h"
#include "soak_desk.h"

namespace wendrill::soak {
namespace {

using com::testing::ApartmentThread;

constexpr DWORD kApartments[] = {COINIT_APARTMENTTHREADED, COINIT_APARTMENTTHREADED, COINIT_APARTMENTTHREADED,
                                 COINIT_MULTITHREADED};
constexpr int kWarmUp = 50;
constexpr HRESULT kNoSuchEntry = static_cast<HRESULT>(0x800A0005);

void Require(bool met, const char* what, HRESULT status = S_OK) {
  if (!met) {
    char text[160];
    std::snprintf(text, sizeof text, "%s (status %08lX)", what, static_cast<unsigned long>(status));
    throw std::runtime_error(text);
  }
}

std::wstring Row(std::wstring_view text) {
  std::wstring row(text);
  row.resize(80, L' ');
  return row;
}

// Looked up once by each client in its own apartment, as a client does: each look-up keeps a reference to the factory
// for good under Wine.
class Classes {
 public:
  Classes() {
    for (std::size_t index = 0; index < std::size(kClasses); ++index) {
      const HRESULT status = CoGetClassObject(*kClasses[index], CLSCTX_INPROC_SERVER, nullptr, IID_IClassFactory,
                                              factories_[index].ReceiveVoid());
      Require(SUCCEEDED(status), "a class is not found", status);
    }
  }

  // As CoCreateInstance.
  HRESULT Create(const CLSID& id, const IID& wanted, void** object) const {
    const auto* found = std::ranges::find_if(kClasses, [&id](const CLSID* known) { return *known == id; });
    return factories_.at(static_cast<std::size_t>(found - std::begin(kClasses)))
        ->CreateInstance(nullptr, wanted, object);
  }

 private:
  static constexpr const CLSID* kClasses[] = {&CLSID_Control, &CLSID_CQuillet, &CLSID_CPNR, &CLSID_CQueue,
                                              &CLSID_ParamBag};
  std::array<Reference<IClassFactory>, std::size(kClasses)> factories_;
};

// Every entry is answered at once: no call waits, so that no other apartment's entry can come between.
void SendAnEntry(Desk& desk) {
  for (const auto member : {&_CQuillet::SendCommand, &_CQuillet::SendCommandNoClear}) {
    Text response;
    const HRESULT status = desk.Called((desk.Quillet()->*member)(Text(L"JD"), response.Receive()));
    Require(status == S_OK, "an entry failed", status);
    Require(response.Wide() == Row(L"RP/DONE"), "an entry has another answer");
  }
}

// All apartments share one PNR. All retrieve the same, so that each reads what it retrieved.
void ReadAPnr(Desk& desk) {
  VARIANT_BOOL found = VARIANT_FALSE;
  HRESULT status = desk.Called(desk.Quillet()->RetrieveRecLoc(Text(L"ABC123"), &found));
  Require(status == S_OK && found == VARIANT_TRUE, "a PNR was not retrieved", status);
  Text locator;
  status = desk.Called(desk.Pnr()->get_RecordLocator(locator.Receive()));
  Require(status == S_OK && locator.Wide() == L"ABC123", "the PNR has another locator", status);
  SHORT count = 0;
  status = desk.Called(desk.Pnr()->get_SpecialServiceElementsCount(&count));
  Require(status == S_OK && count == 1, "the PNR has another count", status);
}

void ReadARecord(Desk& desk) {
  const auto records = Reference<_CPNR>(desk.Pnr()).As<_IGet>();
  Require(static_cast<bool>(records), "the PNR has no records");
  desk.Put(L"intKeyIndex", static_cast<SHORT>(0));
  IDispatch* passed = Reference<IDispatch>(desk.Bag()).Release();  // a proxy releases what goes in
  Reference<IDispatch> result;
  const HRESULT status = desk.Called(records->NameElement(&passed, result.Receive()));
  const auto returned = Reference<IDispatch>::Adopt(passed);
  Require(status == S_OK, "a record failed", status);
  Require(desk.TextUnder(L"strKeyLastName") == L"SMITH", "a record holds another name");
}

// An empty queue has no entry, whoever else calls.
void Fail(Desk& desk) {
  Reference<_CQuillet> found;
  VARIANT position{};
  V_VT(&position) = VT_I4;
  V_I4(&position) = 1;
  HRESULT status = desk.Called(desk.Queue()->Item(position, found.Receive()));
  Require(status == kNoSuchEntry, "a call failed with another number", status);
  status = desk.Called(CallByName(desk.Queue(), L"Item", L"NONE"));  // the one late-bound call of a round
  Require(status == DISP_E_EXCEPTION, "a late-bound call did not raise its error", status);
}

// Objects come and go while others call. Late bound: each typed proxy costs a kilobyte under Wine for good, those of
// the system's own objects too.
void ComeAndGo(Desk& desk, const Classes& classes) {
  for (const CLSID* id : {&CLSID_CQuillet, &CLSID_CPNR, &CLSID_CQueue, &CLSID_ParamBag}) {
    Reference<IDispatch> object;
    const HRESULT status = desk.Called(classes.Create(*id, IID_IDispatch, object.ReceiveVoid()));
    Require(SUCCEEDED(status), "an object cannot be created", status);
  }
}

void GoThrough(int rounds, Desk& desk, const Classes& classes) {
  for (int round = 0; round < rounds; ++round) {
    SendAnEntry(desk);
    ReadAPnr(desk);
    ReadARecord(desk);
    Fail(desk);
    ComeAndGo(desk, classes);
    desk.Control()->ClearJournal();
  }
}

// A part of the run, at whose end all clients wait, so that memory can be compared.
struct Part {
  int rounds = 0;
  std::atomic<int> ended = 0;
  HANDLE next = CreateEventW(nullptr, TRUE, FALSE, nullptr);
};

class Clients {
 public:
  Clients(int warmUp, int rounds) {
    parts_[0].rounds = warmUp;
    parts_[1].rounds = rounds;
    for (const DWORD apartment : kApartments) {
      threads_.emplace_back(apartment, [this] { RunClient(); });
    }
  }

  // Returns when all clients have come to the end of a part, or failed.
  void PumpThrough(const Part& part) const {
    while (part.ended + failed_ < static_cast<int>(std::size(kApartments))) {
      MSG message;
      while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != FALSE) {
        DispatchMessageW(&message);
      }
      MsgWaitForMultipleObjects(0, nullptr, FALSE, kLookAgain, QS_ALLINPUT);
    }
  }

  // Whether every client came to the end.
  bool PumpToTheEnd() {
    for (const ApartmentThread& thread : threads_) {
      thread.PumpUntilEnded();
    }
    return failed_ == 0;
  }

  Part& WarmUp() { return parts_[0]; }
  Part& Rounds() { return parts_[1]; }

 private:
  static constexpr DWORD kLookAgain = 5;  // milliseconds

  void RunClient() {
    try {
      const Classes classes;
      Reference<_Control> control;
      const HRESULT status = classes.Create(CLSID_Control, IID__Control, control.ReceiveVoid());
      Require(SUCCEEDED(status), "an object cannot be created", status);
      Desk desk(control.Get(), [&classes](const CLSID& id, const IID& wanted, void** object) {
        return classes.Create(id, wanted, object);
      });
      for (Part& part : parts_) {
        GoThrough(part.rounds, desk, classes);
        ++part.ended;
        WaitForSingleObject(part.next, INFINITE);
      }
    } catch (const std::exception& exception) {
      std::printf("  in an apartment: %s\n", exception.what());
      ++failed_;
    }
  }

  std::array<Part, 2> parts_;
  std::atomic<int> failed_ = 0;
  std::deque<ApartmentThread> threads_;
};

// What the late-bound calls of all clients left behind without any code of this project taking part.
std::size_t KeptByMarshalling(double bytesPerCall, int rounds) {
  return static_cast<std::size_t>(bytesPerCall * rounds * static_cast<double>(std::size(kApartments)));
}

}  // namespace

bool RunApartments(int rounds) {
  Reference<_Control> control;
  CoCreateInstance(CLSID_Control, nullptr, CLSCTX_INPROC_SERVER, IID__Control, control.ReceiveVoid());
  Require(control && SUCCEEDED(control->LoadText(Text(kScenario))), "the simulated desktop cannot be set up");
  std::printf("%d rounds in three single-threaded apartments and the multithreaded one at once\n", rounds);
  const double keptPerCall = BytesKeptByMarshalling();
  std::printf("  the platform keeps %.1f bytes per late-bound call from another apartment: deducted below\n",
              keptPerCall);
  std::fflush(stdout);
  Clients clients(kWarmUp, rounds);
  clients.PumpThrough(clients.WarmUp());
  const Memory before = MemoryNow();
  const DWORD began = GetTickCount();
  SetEvent(clients.WarmUp().next);
  clients.PumpThrough(clients.Rounds());
  Memory after = MemoryNow();
  after.heapBytes -= KeptByMarshalling(keptPerCall, rounds);
  after.privateBytes -= KeptByMarshalling(keptPerCall, rounds);
  SetEvent(clients.Rounds().next);
  const bool ended = clients.PumpToTheEnd();
  std::printf("  %lu s\n", (GetTickCount() - began) / 1000);
  LONG live = -1;
  control->get_LiveObjects(&live);
  return NothingLeftBehind(before, after, live) && ended;
}

}  // namespace wendrill::soak
