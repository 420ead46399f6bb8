// The state that all objects of the process share: one struct, created once in the library and once in each test.
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

  std::int16_t LiveInstanceCount = 0;                // the number of live CQuillet objects
  std::shared_ptr<HostSession> SharedSession;        // the connected session; null when no session is connected
  std::shared_ptr<HostResponse> LastResponseObject;  // the response to the entry in progress; else null
  ObjectRef gobjPNR;                                 // the PNR object that every CPNR reads; null without a PNR object
  bool ResponseArrived = false;                      // whether the last wait for a response ended with a response
  std::shared_ptr<TextHelperService> TextHelper;     // null until the first call of TextHelperOf
};

}  // namespace wendrill
