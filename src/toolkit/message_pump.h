// Port to the caller's message queue.
#pragma once

namespace wendrill {

class MessagePump {
 public:
  virtual ~MessagePump() = default;

  // Lets the caller's message queue run once: delivers what waits there, toolkit events included, and returns. Other
  // calls into the library may run inside.
  virtual void RunOnce() = 0;
};

}  // namespace wendrill
