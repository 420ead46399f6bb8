#include "mode_manifest.h"

#include <filesystem>
#include <string>

#include "program_path.h"
#include "script_object.h"

namespace wendrill::script_host {

namespace {

struct ModeRow {
  Mode mode;
  WORD resource;
  const wchar_t* dlls;
};

constexpr ModeRow kModes[] = {
    {Mode::Simulated, SIMULATED_MANIFEST, L"Wendrill23.dll and QuilletSimulator.dll"},
    {Mode::Terminal, TERMINAL_MANIFEST, L"Wendrill23.dll"},
};

const ModeRow& RowOf(Mode mode) {
  for (const ModeRow& row : kModes) {
    if (row.mode == mode) {
      return row;
    }
  }
  return kModes[0];
}

[[noreturn]] void Refuse(const ModeRow& row, DWORD reason) {
  throw UsageError{std::wstring(row.dlls) + L" must be beside this program: " +
                   SystemMessage(HRESULT_FROM_WIN32(reason)) + L" (" + std::to_wstring(reason) + L")"};
}

}  // namespace

ModeManifest::ModeManifest(Mode mode) {
  const ModeRow& row = RowOf(mode);
  const std::filesystem::path program = ProgramPath();
  const std::filesystem::path folder = program.parent_path();
  ACTCTXW wanted{};
  wanted.cbSize = sizeof(wanted);
  wanted.dwFlags = ACTCTX_FLAG_RESOURCE_NAME_VALID | ACTCTX_FLAG_ASSEMBLY_DIRECTORY_VALID;
  wanted.lpSource = program.c_str();
  wanted.lpAssemblyDirectory = folder.c_str();
  wanted.lpResourceName = MAKEINTRESOURCEW(row.resource);
  context_ = CreateActCtxW(&wanted);
  if (context_ == INVALID_HANDLE_VALUE) {
    Refuse(row, GetLastError());
  }
  if (ActivateActCtx(context_, &cookie_) == FALSE) {
    const DWORD reason = GetLastError();
    ReleaseActCtx(context_);
    Refuse(row, reason);
  }
}

ModeManifest::~ModeManifest() {
  DeactivateActCtx(0, cookie_);
  ReleaseActCtx(context_);
}

}  // namespace wendrill::script_host
