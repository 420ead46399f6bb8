// Finds the servers of COM classes in the registry.
#pragma once

#include <optional>
#include <string>

#include "core/machine.h"

namespace wendrill::doctor {

struct Server {
  std::string path;            // the path of the DLL or of the program
  bool inProcess = true;       // true for a DLL, false for a program
  std::string threading = {};  // the ThreadingModel; empty when the registry has none
};

// A value of a key below Software\Classes in one hive, as 32-bit programs see it; nullopt when there is none.
std::optional<std::string> ClassValue(const Registry& registry, Hive hive, const std::string& key,
                                      const std::string& name = {});
// The default value of a key below Software\Classes, as a 32-bit program finds it: in the user's hive, else in the
// machine's; nullopt when neither hive has the value.
std::optional<std::string> ClassValue(const Registry& registry, const std::string& key);

// The server of a class: with `hive`, the server registered in that hive; without, the user's server, else the
// machine's. nullopt when there is none. A DLL is preferred to a program.
std::optional<Server> ServerOf(const Machine& machine, Hive hive, const std::string& classId);
std::optional<Server> ServerOf(const Machine& machine, const std::string& classId);

// Whether the library is registered for 64-bit programs, which use it through a surrogate process.
bool SurrogateIsRegistered(const Registry& registry);

}  // namespace wendrill::doctor
