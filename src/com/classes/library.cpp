#include "com/classes/library.h"

#include <utility>

namespace wendrill::com {
namespace {

// The library of this process. It holds references to objects of other servers, so DropLibrary destroys it with the
// last object. It must not be destroyed by static destruction, which runs under the loader lock, when objects of other
// servers must not be released.
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
