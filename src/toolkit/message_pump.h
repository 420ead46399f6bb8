// Port to the caller's message queue.
#pragma once

namespace wendrill {

class MessagePump {
 public:
  virtual ~MessagePump() = default;

  // Lets the caller's message queue run once: delivers what waits there, toolkit events included, and returns. Other
  // calls into the library may run inside. True when the program was told to close: the quit message (WM_QUIT) waits
  // in the queue and stays there for the caller's own loop.
  virtual bool RunOnce() = 0;
};

}  // namespace wendrill
