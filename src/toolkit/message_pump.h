// Port to the message queue of the caller's thread.
#pragma once

namespace wendrill {

class MessagePump {
 public:
  virtual ~MessagePump() = default;

  // Delivers the messages in the queue, toolkit events included, and returns without waiting for further messages.
  // Returns in bounded time, even when a message handler posts a new message each time it runs.
  //
  // Returns true when the program was told to close, and false otherwise. True means that the queue contains the quit
  // message (WM_QUIT), which stays in the queue for the caller's own message loop.
  //
  // During this call, the same script or another client may call any member of the library. So the caller of RunOnce
  // must read the module-wide state again after the call.
  virtual bool RunOnce() = 0;
};

}  // namespace wendrill
