#include "core/servers.h"

#include "core/paths.h"
#include "wendrill23_identities.h"

namespace wendrill::doctor {

std::optional<std::string> ClassValue(const Registry& registry, Hive hive, const std::string& key,
                                      const std::string& name) {
  return registry.Value(hive, View::k32, "Software\\Classes\\" + key, name);
}

std::optional<std::string> ClassValue(const Registry& registry, const std::string& key) {
  const std::optional<std::string> ofUser = ClassValue(registry, Hive::User, key);
  return ofUser ? ofUser : ClassValue(registry, Hive::Machine, key);
}

std::optional<Server> ServerOf(const Machine& machine, Hive hive, const std::string& classId) {
  const std::string key = "CLSID\\" + classId;
  if (const auto dll = ClassValue(machine.registry, hive, key + "\\InprocServer32")) {
    return Server{machine.system.Expanded(*dll), true,
                  ClassValue(machine.registry, hive, key + "\\InprocServer32", "ThreadingModel").value_or("")};
  }
  if (const auto command = ClassValue(machine.registry, hive, key + "\\LocalServer32")) {
    return Server{ProgramOf(machine.system.Expanded(*command)), false, ""};
  }
  return std::nullopt;
}

std::optional<Server> ServerOf(const Machine& machine, const std::string& classId) {
  const std::optional<Server> ofUser = ServerOf(machine, Hive::User, classId);
  return ofUser ? ofUser : ServerOf(machine, Hive::Machine, classId);
}

bool SurrogateIsRegistered(const Registry& registry) {
  const std::string key = R"(Software\Classes\CLSID\)" + std::string(kWendrill23Classes.front().second);
  const auto application = registry.Value(Hive::Machine, View::k64, key, "AppID");
  return application &&
         registry.Value(Hive::Machine, View::k64, R"(Software\Classes\AppID\)" + *application, "DllSurrogate")
             .has_value();
}

}  // namespace wendrill::doctor
