// The doctor's ports, implemented over Windows.
#pragma once

#include "core/machine.h"

namespace wendrill::doctor {

class WindowsRegistry final : public Registry {
 public:
  std::optional<std::string> Value(Hive hive, View view, const std::string& key,
                                   const std::string& name) const override;
};

class WindowsFiles final : public Files {
 public:
  bool Exists(const std::string& path) const override;
  Bits BitsOf(const std::string& path) const override;
  FileIdentity IdentityOf(const std::string& path) const override;
  bool IsMarkedAsDownloaded(const std::string& path) const override;
  std::optional<std::string> ManifestOf(const std::string& program) const override;
};

class WindowsSystem final : public System {
 public:
  std::string Name() const override;
  bool IsWine() const override;
  bool Is64Bit() const override;
  Bits OwnBits() const override;
  bool IsElevated() const override;
  std::string WindowsFolder() const override;
  std::string OwnFolder() const override;
  std::optional<std::string> Variable(const std::string& name) const override;
  std::string Expanded(const std::string& text) const override;
};

// REQUIRES: the calling thread has entered an apartment.
class WindowsComponents final : public Components {
 public:
  Creation Create(const std::string& programmaticName) const override;
  Sessions CountSessions() const override;
};

}  // namespace wendrill::doctor
