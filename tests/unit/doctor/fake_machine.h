// A machine in memory. It begins as a 32-bit Windows with its script host and a copy of the library, version 1.0.0.0,
// beside the doctor; nothing of the library or of a terminal is registered.
#pragma once

#include <map>
#include <set>
#include <string>
#include <utility>

#include "core/check.h"
#include "core/machine.h"

namespace wendrill::doctor::testing {

inline constexpr char kOwnFolder[] = "C:\\Wendrill23\\bin";
inline constexpr char kOwnDll[] = "C:\\Wendrill23\\bin\\Wendrill23.dll";
inline constexpr char kSimulatorDll[] = "C:\\Wendrill23\\bin\\QuilletSimulator.dll";

struct FakeFile {
  Bits bits = Bits::k32;
  FileIdentity identity = {};
  bool isMarked = false;
  std::optional<std::string> manifest = {};
};

class FakeMachine final : public Registry, public Files, public System, public Components {
 public:
  FakeMachine();

  // --- What the machine holds. Paths and keys are compared without case.
  void SetFile(const std::string& path, FakeFile file);
  void SetClassValue(Hive hive, const std::string& key, const std::string& text, const std::string& name = {});
  void RemoveClassValue(Hive hive, const std::string& key, const std::string& name = {});
  void SetClassValue64(const std::string& key, const std::string& text, const std::string& name = {});
  void SetUsersChoice(const std::string& programOfScripts);

  // A 64-bit Windows, on which .vbs files and the command prompt start the 64-bit script host.
  void Become64Bit();
  void RegisterLibrary(Hive hive, const std::string& dll);
  void RegisterSurrogate();
  // One component, or all, of a real terminal: a 32-bit DLL in C:\Quillet.
  void InstallTerminal();
  void InstallTerminal(const std::string& name);
  void RegisterSimulator(const std::string& name);

  std::string name = "Windows 10.0.19045";
  bool isWine = false;
  bool isElevated = false;
  std::map<std::string, std::string> variables;
  std::map<std::string, std::string> refusals;  // by programmatic name; "" means the list of sessions
  int sessions = 1;

  Machine Ports(bool create = false) const { return {*this, *this, *this, create ? this : nullptr}; }

  // --- The ports
  std::optional<std::string> Value(Hive hive, View view, const std::string& key,
                                   const std::string& valueName) const override;
  bool Exists(const std::string& path) const override;
  Bits BitsOf(const std::string& path) const override;
  FileIdentity IdentityOf(const std::string& path) const override;
  bool IsMarkedAsDownloaded(const std::string& path) const override;
  std::optional<std::string> ManifestOf(const std::string& program) const override;
  std::string Name() const override { return name; }
  bool IsWine() const override { return isWine; }
  bool Is64Bit() const override { return is64Bit_; }
  Bits OwnBits() const override { return Bits::k32; }
  bool IsElevated() const override { return isElevated; }
  std::string WindowsFolder() const override { return "C:\\Windows"; }
  std::string OwnFolder() const override { return kOwnFolder; }
  std::optional<std::string> Variable(const std::string& variable) const override;
  std::string Expanded(const std::string& text) const override;
  Creation Create(const std::string& programmaticName) const override;
  Sessions CountSessions() const override;

 private:
  const FakeFile* Find(const std::string& path) const;
  void SetValue(Hive hive, View view, const std::string& key, const std::string& text, const std::string& valueName);

  bool is64Bit_ = false;
  std::map<std::string, FakeFile> files_;
  std::map<std::pair<std::string, std::string>, std::string> values_;
};

// The check of a name; fails the test when there is not exactly one.
Check CheckNamed(const Checks& checks, const std::string& name);

}  // namespace wendrill::doctor::testing
