// Keeps exceptions working in a process that has loaded another unwinder, the one in libgcc_s_dw2-1.dll.
//
// When a binary of this tool chain is loaded, its start-up code registers the unwind tables of the binary. If the
// process has loaded libgcc_s_dw2-1.dll, the start-up code registers the tables with the unwinder in that DLL,
// otherwise with the unwinder inside the binary. Each unwinder has its own list of tables. The DLLs of this project
// always use the unwinder inside themselves. If a DLL's tables were registered only with libgcc_s_dw2-1.dll, the
// unwinder inside the DLL would find no handler for the first exception and would end the process. So this file
// registers the tables with the unwinder inside the DLL as well.
//
// No other source file refers to this file, so the linker would omit it from a static library. Therefore each DLL lists
// this file as a source.

#include <windows.h>

#include <cstring>

extern "C" {

extern const IMAGE_DOS_HEADER __ImageBase;  // the start of this binary in memory; the linker defines it

// Registers unwind tables with the unwinder inside this binary. The unwinder keeps its record of the tables in the
// memory at `object`, which must stay valid while the tables are registered.
void __register_frame_info(const void* tables, void* object);
}

namespace {

constexpr wchar_t kForeignUnwinder[] = L"libgcc_s_dw2-1.dll";

// The name of the section of the unwind tables, ".eh_frame", as the binary contains it. Section names have at most
// eight characters, so the last letter of ".eh_frame" is missing.
constexpr char kTables[IMAGE_SIZEOF_SHORT_NAME + 1] = ".eh_fram";

// The memory for the unwinder's record of the tables. The record has at most eight words in GCC 12 to 14; the array has
// sixteen words, to be safe.
void* record[16];

// The unwind tables of this binary; null when the binary has no section of the name kTables.
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

// Registers the tables of this binary when the start-up code has registered them only with libgcc_s_dw2-1.dll. Runs
// before every constructor that may throw. The start-up code and this function both check whether libgcc_s_dw2-1.dll is
// loaded. The loader lock is held from the first check to the second, so both checks have the same result. The tables
// are never deregistered, because the DLL stays loaded until the process ends.
[[gnu::constructor(101)]] void RegisterOwnUnwindTables() {
  const void* const tables = GetModuleHandleW(kForeignUnwinder) != nullptr ? OwnUnwindTables() : nullptr;
  if (tables != nullptr) {
    __register_frame_info(tables, record);
  }
}

}  // namespace
