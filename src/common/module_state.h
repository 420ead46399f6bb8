// What all objects of the process share: one struct, made once in the library and once per test.
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
  std::shared_ptr<HostSession> SharedSession;        // the connected session, or none
  std::shared_ptr<HostResponse> LastResponseObject;  // the response of the entry in progress, or none
  ObjectRef gobjPNR;                                 // the PNR retrieved last, or none
  bool ResponseArrived = false;                      // written by the response wait
  std::shared_ptr<TextHelperService> TextHelper;     // made on first use, kept for the library's life; see TextHelperOf
};

}  // namespace wendrill
