#include "com/classes/library.h"

#include <utility>

namespace wendrill::com {
namespace {

// The library of this process; null while no object of the DLL is live. The library holds references to objects of
// other servers, so DropLibrary destroys the library when the last object of the DLL is released. Static destruction
// would be too late: static destructors run while the loader lock is held, and objects of other servers must not be
// released under that lock.
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
