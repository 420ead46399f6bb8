// The state that all objects of the process share: one struct, created once in the library and once per test.
#pragma once

#include <cstdint>
#include <memory>

#include "common/value.h"

namespace wendrill {

class Platform;           // toolkit/platform.h
class Clock;              // toolkit/clock.h
class MessagePump;        // toolkit/message_pump.h
class HostSession;        // toolkit/terminal.h
class HostResponse;       // toolkit/terminal.h
class TextHelperService;  // toolkit/text_helper_service.h
class TextForms;          // common/text_forms.h

struct ModuleState {
  ModuleState(Platform& platformPort, Clock& clockPort, MessagePump& pumpPort, const TextForms& textForms)
      : platform(platformPort), clock(clockPort), pump(pumpPort), texts(textForms) {}

  Platform& platform;
  Clock& clock;
  MessagePump& pump;
  const TextForms& texts;

  std::int16_t LiveInstanceCount = 0;                // live CQuillet objects
  std::shared_ptr<HostSession> SharedSession;        // the connected session; null when not connected
  std::shared_ptr<HostResponse> LastResponseObject;  // the response of the entry in progress; null otherwise
  ObjectRef gobjPNR;                                 // the current PNR object; null before the first connection
  bool ResponseArrived = false;                      // set and cleared by the wait for a response
  std::shared_ptr<TextHelperService> TextHelper;     // created on first use, kept until unloading; see TextHelperOf
};

}  // namespace wendrill
