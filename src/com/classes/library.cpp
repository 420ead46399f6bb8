#include "com/classes/library.h"

#include <utility>

namespace wendrill::com {
namespace {

// The library of this process; null while no object of the DLL is live. The library holds references to objects of
// other servers, so DropLibrary destroys it together with the last object. Static destruction must not destroy the
// library: static destructors run while the loader lock is held, and objects of other servers must not be released at
// that time.
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
