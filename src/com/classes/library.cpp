#include "com/classes/library.h"

#include <utility>

namespace wendrill::com {
namespace {

// The library of this process; null while no object of the DLL is live. The library holds references to objects of
// other servers, so DropLibrary destroys it together with the last object. Static destruction must not destroy it:
// static destructors run under the loader lock, when objects of other servers must not be released.
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
