// Classes in the registry: who serves them.
#pragma once

#include <optional>
#include <string>

#include "core/machine.h"

namespace wendrill::doctor {

struct Server {
  std::string path;            // of the DLL, or of the program
  bool inProcess = true;       // a DLL
  std::string threading = {};  // ThreadingModel; empty where it is not set
};

// Keys below Software\Classes, as 32-bit programs see them.
std::optional<std::string> ClassValue(const Registry& registry, Hive hive, const std::string& key,
                                      const std::string& name = {});
// The same, of the user or, where the user has no such value, of the machine: what a program finds.
std::optional<std::string> ClassValue(const Registry& registry, const std::string& key);

std::optional<Server> ServerOf(const Machine& machine, Hive hive, const std::string& classId);
std::optional<Server> ServerOf(const Machine& machine, const std::string& classId);

// Whether 64-bit programs reach the library through a surrogate process.
bool SurrogateIsRegistered(const Registry& registry);

}  // namespace wendrill::doctor
