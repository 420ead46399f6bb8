// Keeps exceptions working in a process that holds a foreign unwinder.
//
// Each binary of this tool chain tells an unwinder at start where its unwind tables are. The start-up code tells
// libgcc_s_dw2-1.dll when the process holds that DLL, and the unwinder inside the binary otherwise. These DLLs carry
// their unwinder inside, which knows its own list alone: where the tables went to the other one, it finds no handler
// for the first exception and ends the process. So they are given to it here as well.
//
// The linker would drop this file from a static library, because nothing calls it: each DLL lists it as a source.

#include <windows.h>

#include <cstring>

extern "C" {

extern const IMAGE_DOS_HEADER __ImageBase;  // where the linker puts this binary

// Of the unwinder inside. `object` is its own record of the tables, kept for as long as they are known.
void __register_frame_info(const void* tables, void* object);
}

namespace {

constexpr wchar_t kForeignUnwinder[] = L"libgcc_s_dw2-1.dll";

// The names of sections have eight characters in a binary: ".eh_frame" loses its last.
constexpr char kTables[IMAGE_SIZEOF_SHORT_NAME + 1] = ".eh_fram";

// The unwinder's record has at most eight words in the compilers known so far (12 to 14); twice that, to be safe.
void* record[16];

const void* OwnUnwindTables() {
  const auto* base = reinterpret_cast<const char*>(&__ImageBase);
  const auto* headers = reinterpret_cast<const IMAGE_NT_HEADERS*>(base + __ImageBase.e_lfanew);
  const IMAGE_SECTION_HEADER* section = IMAGE_FIRST_SECTION(headers);
  const IMAGE_SECTION_HEADER* const end = section + headers->FileHeader.NumberOfSections;
  for (; section != end; ++section) {
    if (std::memcmp(section->Name, kTables, sizeof section->Name) == 0) {
      return base + section->VirtualAddress;
    }
  }
  return nullptr;
}

// Before every constructor that may throw. The loader's lock is held from the start-up code's decision to this one, so
// that both see the same DLLs. The tables are never taken back: the DLL stays until the process ends.
[[gnu::constructor(101)]] void RegisterOwnUnwindTables() {
  const void* const tables = GetModuleHandleW(kForeignUnwinder) != nullptr ? OwnUnwindTables() : nullptr;
  if (tables != nullptr) {
    __register_frame_info(tables, record);
  }
}

}  // namespace
