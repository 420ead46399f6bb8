#include "com/mixture.h"

#include <string>
#include <utility>

#include "common/error.h"
#include "recorder.h"

namespace wendrill::simulator {
namespace {

bool MixtureIsWanted() {
  wchar_t text[4] = L"";
  return GetEnvironmentVariableW(L"QUILLET_SIMULATOR_MIX", text, 4) == 1 && text[0] == L'1';
}

// Remembers the activation context in which RefuseMixture last found no component of another server. The context is
// AddRef'ed, so that Windows cannot reuse its handle for another context.
class CleanContext {
 public:
  bool IsCurrent() const {
    const Current current;
    return known_ && current.context == context_;
  }
  void Remember() {
    Current current;
    std::swap(context_, current.context);
    known_ = true;
  }

 private:
  struct Current {
    Current() { GetCurrentActCtx(&context); }
    ~Current() {
      if (context != nullptr) {
        ReleaseActCtx(context);
      }
    }
    Current(const Current&) = delete;
    Current& operator=(const Current&) = delete;
    HANDLE context = nullptr;  // null for the default context of the process
  };
  HANDLE context_ = nullptr;
  bool known_ = false;
};

// Looks up a ProgID or a CLSID in the thread's activation context. An activation context can consist of several
// assemblies; a Declaration identifies the assembly whose manifest declares the ProgID or the CLSID.
class Declaration {
 public:
  explicit Declaration(const wchar_t* name)
      : known_(FindActCtxSectionStringW(FIND_ACTCTX_SECTION_KEY_RETURN_HACTCTX, nullptr,
                                        ACTIVATION_CONTEXT_SECTION_COM_PROGID_REDIRECTION, name, &data_) != FALSE) {}
  explicit Declaration(const CLSID& id)
      : known_(FindActCtxSectionGuid(FIND_ACTCTX_SECTION_KEY_RETURN_HACTCTX, nullptr,
                                     ACTIVATION_CONTEXT_SECTION_COM_SERVER_REDIRECTION, &id, &data_) != FALSE) {}
  ~Declaration() {
    if (known_ && data_.hActCtx != nullptr) {
      ReleaseActCtx(data_.hActCtx);
    }
  }
  Declaration(const Declaration&) = delete;
  Declaration& operator=(const Declaration&) = delete;

  bool IsInTheAssemblyOf(const Declaration& other) const {
    return known_ && other.known_ && data_.hActCtx == other.data_.hActCtx &&
           data_.ulAssemblyRosterIndex == other.data_.ulAssemblyRosterIndex;
  }

 private:
  static ACTCTX_SECTION_KEYED_DATA Empty() {
    ACTCTX_SECTION_KEYED_DATA data{};
    data.cbSize = sizeof(data);
    return data;
  }

  ACTCTX_SECTION_KEYED_DATA data_ = Empty();
  bool known_;
};

// Whether the ProgID of `component` belongs to the recorder: the manifest that declares the ProgID also declares a
// class of the recorder. The recorder is allowed beside the simulator, because it is not a terminal itself: it only
// forwards calls, either to simulated or to real components.
bool IsTheRecorders(const com::ServerClass& component) {
  return Declaration(component.programmaticId).IsInTheAssemblyOf(Declaration(CLSID_RecordedSessionList));
}

// Whether the ProgID of `component` belongs to a server other than the simulator and the recorder.
//
// The CLSID that CLSIDFromProgID returns is enough to decide this only for a ProgID in the registry. For a ProgID that
// a manifest declares, CLSIDFromProgID returns an alias of the CLSID, which differs from one activation context to
// another. So a ProgID that a manifest declares belongs to the simulator when that manifest also declares the
// simulator's class.
bool IsForeign(const com::ServerClass& component) {
  CLSID id;
  if (FAILED(CLSIDFromProgID(component.programmaticId, &id)) || id == component.id) {
    return false;
  }
  return !Declaration(component.programmaticId).IsInTheAssemblyOf(Declaration(component.id)) &&
         !IsTheRecorders(component);
}

}  // namespace

void RefuseMixture(std::span<const com::ServerClass> components) {
  static CleanContext clean;
  if (clean.IsCurrent() || MixtureIsWanted()) {
    return;
  }
  std::u16string foreign;
  for (const com::ServerClass& component : components) {
    if (IsForeign(component)) {
      foreign +=
          (foreign.empty() ? u"" : u", ") + std::u16string(com::TextOf(std::wstring_view(component.programmaticId)));
    }
  }
  if (!foreign.empty()) {
    throw Error(static_cast<std::int32_t>(RunTimeError::CannotCreateObject), u"QuilletSimulator",
                u"The simulated terminal does not mix with another one. These names belong to another server here: " +
                    foreign + u".");
  }
  clean.Remember();
}

}  // namespace wendrill::simulator
