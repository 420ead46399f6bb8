// Port to the message queue of the caller's thread.
#pragma once

namespace wendrill {

class MessagePump {
 public:
  virtual ~MessagePump() = default;

  // Delivers the messages that wait in the queue, toolkit events included, and returns without waiting for more.
  // Returns in bounded time even when a handler posts a message to itself at every turn.
  //
  // Returns true when the program was told to close: the quit message (WM_QUIT) is in the queue and is left there for
  // the caller's own message loop.
  //
  // During this call any member of the library may be called, by the same script or by another client: the caller of
  // RunOnce must read the module-wide state again afterwards.
  virtual bool RunOnce() = 0;
};

}  // namespace wendrill
