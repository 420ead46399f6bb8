#include "com/recorder/behind.h"

#include <filesystem>
#include <optional>
#include <string>

#include "com/server/automation_types.h"
#include "com/server/boundary.h"
#include "com/server/module.h"
#include "common/error.h"
#include "core/environment.h"

namespace wendrill::recorder {
namespace {

constexpr DWORD kCreated = CLSCTX_INPROC_SERVER | CLSCTX_LOCAL_SERVER;

[[noreturn]] void Refuse(RunTimeError number, std::u16string description) {
  throw Error(static_cast<std::int32_t>(number), u"QuilletRecorder", std::move(description));
}

// The activation context of a DLL whose manifest is the DLL's resource number 1. The context is kept until the process
// ends, because the classes that it declares remain in use.
class AssemblyBehind {
 public:
  explicit AssemblyBehind(const std::filesystem::path& dll) {
    const std::filesystem::path folder = dll.parent_path();
    ACTCTXW wanted{};
    wanted.cbSize = sizeof(wanted);
    wanted.dwFlags = ACTCTX_FLAG_RESOURCE_NAME_VALID | ACTCTX_FLAG_ASSEMBLY_DIRECTORY_VALID;
    wanted.lpSource = dll.c_str();
    wanted.lpAssemblyDirectory = folder.c_str();
    wanted.lpResourceName = MAKEINTRESOURCEW(1);
    context_ = CreateActCtxW(&wanted);
    if (context_ == INVALID_HANDLE_VALUE) {
      Refuse(RunTimeError::CannotCreateObject,
             std::u16string(kBehindVariable) + u" names no DLL with a manifest: " + dll.u16string());
    }
  }
  HANDLE Context() const { return context_; }

 private:
  HANDLE context_;
};

// Makes the thread search the given activation context before all others, from the constructor to the destructor of the
// object. Constructor and destructor must run on one thread.
class Activation {
 public:
  explicit Activation(HANDLE context) {
    if (ActivateActCtx(context, &cookie_) == FALSE) {
      com::RaiseStatus(HRESULT_FROM_WIN32(GetLastError()));
    }
  }
  ~Activation() { DeactivateActCtx(0, cookie_); }
  Activation(const Activation&) = delete;
  Activation& operator=(const Activation&) = delete;

 private:
  ULONG_PTR cookie_ = 0;
};

// The CLSID that the registry has for a ProgID; nullopt when the registry has no valid CLSID for the ProgID.
// CLSIDFromProgID cannot be used here: CLSIDFromProgID would search the program's activation context and find the
// recorder's own class.
std::optional<CLSID> RegisteredClass(const std::wstring& programmaticId) {
  wchar_t text[64] = L"";
  DWORD size = sizeof(text);
  CLSID id;
  const std::wstring key = programmaticId + L"\\CLSID";
  if (RegGetValueW(HKEY_CLASSES_ROOT, key.c_str(), nullptr, RRF_RT_REG_SZ, nullptr, text, &size) == ERROR_SUCCESS &&
      SUCCEEDED(CLSIDFromString(text, &id))) {
    return id;
  }
  return std::nullopt;
}

bool IsOwn(const CLSID& id) {
  for (const com::ServerClass& own : com::kServer.classes) {
    if (own.id == id) {
      return true;
    }
  }
  return false;
}

[[noreturn]] void RefuseUnknown(const wchar_t* programmaticId) {
  Refuse(
      RunTimeError::CannotCreateObject,
      u"There is no class \"" + std::u16string(com::TextOf(std::wstring_view(programmaticId))) +
          u"\" behind the recorder: the terminal is not installed here, or QUILLET_RECORD_BEHIND names another DLL.");
}

HRESULT CreateIn(const AssemblyBehind& assembly, const wchar_t* programmaticId, const IID& wanted, void** object) {
  const Activation activation(assembly.Context());
  CLSID id;
  if (FAILED(CLSIDFromProgID(programmaticId, &id)) || IsOwn(id)) {
    RefuseUnknown(programmaticId);
  }
  return CoCreateInstance(id, nullptr, kCreated, wanted, object);
}

}  // namespace

HRESULT CreateBehind(const wchar_t* programmaticId, const IID& wanted, void** object) {
  // The error information of an earlier failure must not be mistaken for the error information of this creation.
  SetErrorInfo(0, nullptr);
  static const std::filesystem::path dll(simulator::EnvironmentText(kBehindVariable));
  if (!dll.empty()) {
    static const AssemblyBehind assembly(std::filesystem::absolute(dll));
    return CreateIn(assembly, programmaticId, wanted, object);
  }
  const auto id = RegisteredClass(programmaticId);
  if (!id || IsOwn(*id)) {
    RefuseUnknown(programmaticId);
  }
  return CoCreateInstance(*id, nullptr, kCreated, wanted, object);
}

}  // namespace wendrill::recorder
