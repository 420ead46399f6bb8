// What the doctor asks of a machine: ports, implemented over Windows in doctor/windows and in memory by the tests. No
// method changes anything, and none throws. All text is UTF-8.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace wendrill::doctor {

enum class Bits { Unknown, k32, k64 };
enum class Hive { User, Machine };

// 64-bit Windows shows some keys differently to 32-bit and to 64-bit programs. Elsewhere both views are the same.
enum class View { k32, k64 };

class Registry {
 public:
  virtual ~Registry() = default;

  // A value as text; `name` is empty for the key's default value. `key` is the path below the hive, as in
  // "Software\Classes\.vbs". Nothing when there is no such key or value, or when it is not text.
  virtual std::optional<std::string> Value(Hive hive, View view, const std::string& key,
                                           const std::string& name = {}) const = 0;
};

struct FileIdentity {
  std::string version;      // four numbers, as in "1.0.0.0"; empty where the file has no version resource
  std::string description;  // what the file says that it is, which stays when the file is renamed
};

// Paths are read as a 32-bit program reads them: on 64-bit Windows System32 is the folder of the 32-bit programs, and
// Sysnative the one of the 64-bit programs.
class Files {
 public:
  virtual ~Files() = default;

  virtual bool Exists(const std::string& path) const = 0;
  virtual Bits BitsOf(const std::string& path) const = 0;  // of a program or DLL; Unknown for other files
  virtual FileIdentity IdentityOf(const std::string& path) const = 0;
  virtual bool IsMarkedAsDownloaded(const std::string& path) const = 0;

  // The application manifest that holds from the program's start: its resource number 1, else the file beside it.
  // Nothing where it has neither.
  virtual std::optional<std::string> ManifestOf(const std::string& program) const = 0;
};

class System {
 public:
  virtual ~System() = default;

  virtual std::string Name() const = 0;  // such as "Windows 10.0.19045" or "Wine 8.0"
  virtual bool IsWine() const = 0;
  virtual bool Is64Bit() const = 0;     // of Windows
  virtual Bits OwnBits() const = 0;     // of the doctor
  virtual bool IsElevated() const = 0;  // the doctor runs with administrator rights

  virtual std::string WindowsFolder() const = 0;  // such as C:\Windows, without a separator at the end
  virtual std::string OwnFolder() const = 0;      // of the doctor, the same way
  virtual std::optional<std::string> Variable(const std::string& name) const = 0;
  virtual std::string Expanded(const std::string& text) const = 0;  // with variables such as %SystemRoot% replaced
};

// The result of a trial creation.
struct Creation {
  bool succeeded = false;
  std::string failure;  // the reason, with the number
};

// Creates objects and releases them; the only port that runs code of other makers.
class Components {
 public:
  virtual ~Components() = default;

  virtual Creation Create(const std::string& programmaticName) const = 0;

  struct Sessions {
    int count = 0;
    std::string failure;  // empty when they could be counted
  };
  virtual Sessions CountSessions() const = 0;
};

struct Machine {
  const Registry& registry;
  const Files& files;
  const System& system;
  const Components* components = nullptr;  // null: nothing is created
};

}  // namespace wendrill::doctor
