// A client in an apartment of its own, on a thread of its own.
#pragma once

#include <windows.h>

#include <functional>
#include <thread>

namespace wendrill::com::testing {

class ApartmentThread {
 public:
  // `apartment` is COINIT_APARTMENTTHREADED or COINIT_MULTITHREADED. The work lets go of everything that it created.
  ApartmentThread(DWORD apartment, std::function<void()> work);
  ~ApartmentThread();  // waits for the end of the work
  ApartmentThread(const ApartmentThread&) = delete;
  ApartmentThread& operator=(const ApartmentThread&) = delete;

  // Waits for the end of the work. Meanwhile the calling thread lets its messages run, as a single-threaded apartment
  // must whose objects others call.
  void PumpUntilEnded() const;

 private:
  HANDLE ended_;
  std::thread thread_;
};

}  // namespace wendrill::com::testing
