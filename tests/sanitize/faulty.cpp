// A program with one fault, the one that it is asked for.
#include <cstdio>
#include <limits>
#include <string_view>

namespace {

// Volatile, so that the compiler keeps the faults.
int* volatile kept = nullptr;
volatile int largest = std::numeric_limits<int>::max();

void Leak() {
  kept = new int(1);
  kept = nullptr;
}

int UseAfterFree() {
  kept = new int(1);
  delete kept;
  return *kept;
}

int Overflow() {
  return largest + 1;
}

}  // namespace

int main(int count, char** arguments) {
  const std::string_view fault = count == 2 ? arguments[1] : "";
  if (fault == "leak") {
    Leak();
  } else if (fault == "use-after-free") {
    std::printf("%d\n", UseAfterFree());
  } else if (fault == "overflow") {
    std::printf("%d\n", Overflow());
  }
}
