#include "com/classes/library.h"

#include <utility>

namespace wendrill::com {
namespace {

// The process's one library. Objects of other servers hang off it, so it must be gone before the DLL is; never
// destroyed by the run time: at that point the loader's lock is held and nothing may be released any more.
Library* library = nullptr;

}  // namespace

Library& TheLibrary() {
  if (library == nullptr) {
    library = new Library();
  }
  return *library;
}

void DropLibrary() {
  delete std::exchange(library, nullptr);
}

}  // namespace wendrill::com
