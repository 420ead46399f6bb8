#include "mode_manifest.h"

#include <filesystem>
#include <string>

#include "program_path.h"
#include "script_object.h"

namespace wendrill::script_host {

namespace {

// What belongs to one mode: the resource number of its manifest, and the names of the DLLs that the manifest declares.
// Error messages print these names as they are written here.
struct ModeRow {
  WORD resource;
  const wchar_t* dlls;
};

constexpr ModeRow kSimulated{SIMULATED_MANIFEST, L"Wendrill23.dll and QuilletSimulator.dll"};
constexpr ModeRow kTerminal{TERMINAL_MANIFEST, L"Wendrill23.dll"};
// The manifest for every recording, whether the run uses the simulator or a real terminal. The manifest declares the
// ProgIDs of the terminal's components as classes of QuilletRecorder.dll, so that the script creates the recorder's
// objects. The recorder forwards their calls to the simulator or to the terminal.
constexpr ModeRow kRecording{RECORDING_MANIFEST, L"Wendrill23.dll and QuilletRecorder.dll"};

const ModeRow& RowOf(const CommandLine& line) {
  if (!line.recording.empty()) {
    return kRecording;
  }
  return line.mode == Mode::Simulated ? kSimulated : kTerminal;
}

[[noreturn]] void Refuse(const ModeRow& row, DWORD reason) {
  throw UsageError{std::wstring(row.dlls) + L" must be beside this program: " +
                   SystemMessage(HRESULT_FROM_WIN32(reason)) + L" (" + std::to_wstring(reason) + L")"};
}

}  // namespace

ModeManifest::ModeManifest(const CommandLine& line) {
  const ModeRow& row = RowOf(line);
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
