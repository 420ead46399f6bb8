#include "com/support/apartment_thread.h"

#include <ole2.h>

#include <utility>

namespace wendrill::com::testing {

ApartmentThread::ApartmentThread(DWORD apartment, std::function<void()> work)
    : ended_(CreateEventW(nullptr, TRUE, FALSE, nullptr)), thread_([this, apartment, work = std::move(work)] {
        CoInitializeEx(nullptr, apartment);
        work();
        CoUninitialize();
        SetEvent(ended_);
      }) {}

ApartmentThread::~ApartmentThread() {
  thread_.join();
  CloseHandle(ended_);
}

void ApartmentThread::PumpUntilEnded() const {
  while (MsgWaitForMultipleObjects(1, &ended_, FALSE, INFINITE, QS_ALLINPUT) != WAIT_OBJECT_0) {
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != FALSE) {
      DispatchMessageW(&message);
    }
  }
}

}  // namespace wendrill::com::testing
