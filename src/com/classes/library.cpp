#include "com/classes/library.h"

#include <memory>

namespace wendrill::com {
namespace {

// The process's one library. Objects of other servers hang off it, so it must be gone before the DLL is.
std::unique_ptr<Library>& Slot() {
  // Never destroyed by the run time: at that point the loader's lock is held and nothing may be released any more.
  static auto& slot = *new std::unique_ptr<Library>();
  return slot;
}

}  // namespace

Library& TheLibrary() {
  if (!Slot()) {
    Slot() = std::make_unique<Library>();
  }
  return *Slot();
}

void DropLibrary() {
  Slot().reset();
}

}  // namespace wendrill::com
