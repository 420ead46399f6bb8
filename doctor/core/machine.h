// The ports through which the doctor examines a machine. doctor/windows implements them over Windows, the tests in
// memory. No method changes the machine, and no method throws. All text is UTF-8.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace wendrill::doctor {

enum class Bits { Unknown, k32, k64 };
enum class Hive { User, Machine };

// A view of the registry. On 64-bit Windows, some keys differ between 32-bit and 64-bit programs; on 32-bit Windows
// both views are equal.
enum class View { k32, k64 };

class Registry {
 public:
  virtual ~Registry() = default;

  // Returns a value as text; an empty `name` means the key's default value. `key` is the path below the hive, such as
  // "Software\Classes\.vbs". Returns nullopt when the key or the value does not exist, or when the value is not a
  // string.
  virtual std::optional<std::string> Value(Hive hive, View view, const std::string& key,
                                           const std::string& name = {}) const = 0;
};

struct FileIdentity {
  std::string version;      // four numbers, as in "1.0.0.0"; empty when the file has no version resource
  std::string description;  // the FileDescription of the version resource, which does not change with the file's name
};

// Paths mean what they mean to a 32-bit program: on 64-bit Windows, System32 is the folder of the 32-bit programs, and
// Sysnative is the folder of the 64-bit programs.
class Files {
 public:
  virtual ~Files() = default;

  virtual bool Exists(const std::string& path) const = 0;
  virtual Bits BitsOf(const std::string& path) const = 0;  // Unknown when the file is neither a program nor a DLL
  virtual FileIdentity IdentityOf(const std::string& path) const = 0;
  virtual bool IsMarkedAsDownloaded(const std::string& path) const = 0;

  // Returns the application manifest with which Windows starts the program: the program's manifest resource number 1,
  // else the file PROGRAM.manifest beside the program. Returns nullopt when the program has neither.
  virtual std::optional<std::string> ManifestOf(const std::string& program) const = 0;
};

class System {
 public:
  virtual ~System() = default;

  virtual std::string Name() const = 0;  // such as "Windows 10.0.19045" or "Wine 8.0"
  virtual bool IsWine() const = 0;
  virtual bool Is64Bit() const = 0;     // whether Windows is 64-bit
  virtual Bits OwnBits() const = 0;     // whether the doctor is a 32-bit or a 64-bit program
  virtual bool IsElevated() const = 0;  // whether the doctor runs with administrator rights

  virtual std::string WindowsFolder() const = 0;  // such as C:\Windows, without a separator at the end
  virtual std::string OwnFolder() const = 0;      // the folder of the doctor, without a separator at the end
  virtual std::optional<std::string> Variable(const std::string& name) const = 0;
  virtual std::string Expanded(const std::string& text) const = 0;  // replaces variables such as %SystemRoot%
};

// The result of creating an object as a trial.
struct Creation {
  bool succeeded = false;
  std::string failure;  // the reason of the failure and the HRESULT; empty when the creation succeeded
};

// Creates objects and releases them at once. No other port runs code of the library or the terminal.
class Components {
 public:
  virtual ~Components() = default;

  virtual Creation Create(const std::string& programmaticName) const = 0;

  struct Sessions {
    int count = 0;
    std::string failure;  // why the sessions could not be counted; empty when they could be counted
  };
  virtual Sessions CountSessions() const = 0;
};

struct Machine {
  const Registry& registry;
  const Files& files;
  const System& system;
  const Components* components = nullptr;  // null when the checks must not create any object
};

}  // namespace wendrill::doctor
