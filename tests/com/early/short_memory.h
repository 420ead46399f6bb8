// Memory that runs short, for the objects that are linked into this program: operator new and the system's functions
// that give memory fail on demand. The terminal's components, in a DLL of their own, keep theirs.
#pragma once

namespace wendrill::com::testing {

enum class Shortage {
  Once,     // one request fails
  Lasting,  // so does every later one
};

// While it lives, the `nth` request for memory (counted from 1) fails. Whoever makes requests while it lives is struck:
// a test makes none of its own.
class ShortMemory {
 public:
  ShortMemory(long nth, Shortage shortage);
  ~ShortMemory();
  ShortMemory(const ShortMemory&) = delete;
  ShortMemory& operator=(const ShortMemory&) = delete;

  // Whether the request has been made. Ends the shortage.
  bool End();
};

// Blocks in use: this program's own, and the process's automation strings and arrays. WatchMemory comes before.
struct BlocksInUse {
  long own = 0;
  long automation = 0;
  friend bool operator==(const BlocksInUse&, const BlocksInUse&) = default;
};
void WatchMemory();
BlocksInUse CountBlocks();

}  // namespace wendrill::com::testing
