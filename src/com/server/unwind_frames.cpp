// Keeps exceptions working in a process that holds a foreign unwinder.
//
// Each binary of this tool chain registers its unwind tables with an unwinder when it is loaded. The start-up code
// registers them with libgcc_s_dw2-1.dll when the process has loaded that DLL, and with the unwinder inside the binary
// otherwise. The DLLs of this project always use the unwinder inside them, which has a list of its own. If a DLL's
// tables were registered only with libgcc_s_dw2-1.dll, the unwinder inside would find no handler for the first
// exception and end the process. So this file registers the tables with the unwinder inside as well.
//
// The linker would drop this file from a static library, because nothing calls it: each DLL lists it as a source.

#include <windows.h>

#include <cstring>

extern "C" {

extern const IMAGE_DOS_HEADER __ImageBase;  // where the linker puts this binary

// A function of the unwinder inside the binary. `object` is memory for its record of the tables and must stay valid
// while they are registered.
void __register_frame_info(const void* tables, void* object);
}

namespace {

constexpr wchar_t kForeignUnwinder[] = L"libgcc_s_dw2-1.dll";

// Section names in a binary have at most eight characters, so ".eh_frame" loses its last one.
constexpr char kTables[IMAGE_SIZEOF_SHORT_NAME + 1] = ".eh_fram";

// The unwinder's record has at most eight words in GCC 12 to 14; twice that, to be safe.
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

// Runs before every constructor that may throw. The loader lock is held from the start-up code's decision until this
// function has decided, so both see the same loaded DLLs. The tables are never deregistered: the DLL stays loaded until
// the process ends.
[[gnu::constructor(101)]] void RegisterOwnUnwindTables() {
  const void* const tables = GetModuleHandleW(kForeignUnwinder) != nullptr ? OwnUnwindTables() : nullptr;
  if (tables != nullptr) {
    __register_frame_info(tables, record);
  }
}

}  // namespace
