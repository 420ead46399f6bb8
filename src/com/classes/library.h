// The state that all objects of this DLL share: the core's module-wide state and the implementations of its ports.
//
// Terms such as PNR, entry, segment and association: docs/glossary.md.
#pragma once

#include <unordered_map>

#include "com/adapters/foreign_object.h"
#include "com/adapters/windows_platform.h"
#include "com/server/conversions.h"
#include "common/module_state.h"

namespace wendrill {
class CQueue;
class CQuillet;
}  // namespace wendrill

namespace wendrill::com {

class CQueueObject;
class CQuilletObject;

struct Library {
  KnownNames names;
  RegisteredComponents components{names};
  LocalClock clock;
  ThreadMessages messages;
  ModuleState state{components, clock, messages, UsersTextForms()};

  // The live automation object of each core object, not AddRef'ed. These maps guarantee that a caller that asks twice
  // for the automation object of a core object gets the same pointer.
  std::unordered_map<const CQuillet*, CQuilletObject*> quillets;
  std::unordered_map<const CQueue*, CQueueObject*> queues;
};

// TheLibrary returns the library of the process, and creates the library when none exists. DropLibrary destroys the
// library; the server calls DropLibrary when the last object of the DLL is released.
Library& TheLibrary();
void DropLibrary();

}  // namespace wendrill::com
