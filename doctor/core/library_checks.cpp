// The checks of the library: its registration for the user and for the machine, its file and its type library.
#include <optional>

#include "core/check.h"
#include "core/paths.h"
#include "core/servers.h"
#include "wendrill23_identities.h"

namespace wendrill::doctor {
namespace {

constexpr char kLibraryFile[] = "Wendrill23.dll";

struct Scope {
  Hive hive;
  const char* whom;
  const char* registers;  // the switches with which regsvr32 registers the library
  const char* takesBack;  // the switches with which regsvr32 removes that registration
};
constexpr Scope kScopes[] = {{Hive::User, "this user", "/n /i:user", "/u /n /i:user"},
                             {Hive::Machine, "all users", "", "/u"}};

// The library's registration in one hive.
struct Registration {
  const Scope* scope;
  std::size_t classes = 0;    // the number of classes whose ProgID leads to the CLSID and whose CLSID has a server
  std::string file = {};      // the server of the first class that has one; empty when no class has a server
  bool oneFile = true;        // whether all classes have the same server
  bool hasThreading = false;  // whether a class has a ThreadingModel
};

Registration RegistrationIn(const Machine& machine, const Scope& scope) {
  Registration found{&scope};
  for (const auto& [name, id] : kWendrill23Classes) {
    const auto registered = ClassValue(machine.registry, scope.hive, std::string(name) + "\\CLSID");
    const auto server = ServerOf(machine, scope.hive, std::string(id));
    if (!server) {
      continue;
    }
    if (found.file.empty()) {
      found.file = server->path;
    }
    found.classes += registered && SameText(*registered, id) ? 1U : 0U;
    found.oneFile = found.oneFile && SameText(found.file, server->path);
    found.hasThreading = found.hasThreading || !server->threading.empty();
  }
  return found;
}

std::string OwnCopy(const Machine& machine) {
  const std::string path = machine.system.OwnFolder() + "\\" + kLibraryFile;
  return machine.files.Exists(path) ? path : "";
}

// Advice on how to register the library: the copy in the doctor's folder, else the file `registered`. When there is
// neither, the advice is to install the library.
std::string HowToRegister(const Machine& machine, const Scope& scope, const std::string& registered) {
  const std::string own = OwnCopy(machine);
  if (own.empty() && registered.empty()) {
    return "Install the library: start its installer.";
  }
  return std::string(scope.hive == Hive::Machine ? "Open a command prompt as administrator and type:\n  "
                                                 : "Open a command prompt and type:\n  ") +
         Regsvr32(machine.system, scope.registers, own.empty() ? registered : own);
}

Check CheckOfNothingRegistered(const Machine& machine) {
  std::string advice = HowToRegister(machine, kScopes[machine.system.IsWine() ? 1 : 0], "");
  if (!OwnCopy(machine).empty()) {
    advice += "\nOr run scripts without any registration:\n  " +
              Quoted(machine.system.OwnFolder() + "\\script_host.exe") + " --terminal SCRIPT.vbs";
  }
  return {"library", "not registered", State::Missing, advice};
}

// Checks for whom the library is registered. Warns when both registrations exist, since programs then find only the
// user's. Also warns when Wine or a program with administrator rights would not see the user's registration.
Check CheckOfScopes(const Machine& machine, bool forUser, bool forMachine, const std::string& fileOfUser) {
  if (forUser && forMachine) {
    return {
        "library", "registered for this user and for all users", State::Warn,
        "The registration for this user hides the one for all users. Take it back, unless you know why it is there. "
        "Open a command prompt and type:\n  " +
            Regsvr32(machine.system, kScopes[0].takesBack, fileOfUser)};
  }
  if (forMachine) {
    return {"library", "registered for all users"};
  }
  Check check{"library", "registered for this user"};
  if (machine.system.IsWine()) {
    check.state = State::Warn;
    check.whatToDo = "Wine does not find classes of one user. Type:\n  " + Regsvr32(machine.system, "", fileOfUser);
  } else if (machine.system.IsElevated()) {
    check.state = State::Warn;
    check.whatToDo =
        "A program that runs as administrator, as this one does, does not see it. Run scripts without administrator "
        "rights, or register for all users:\n  " +
        Regsvr32(machine.system, "", fileOfUser);
  }
  return check;
}

// Checks the registration in one hive. Reports only the first problem; the most severe problems are looked for first.
Check CheckOfRegistration(const Machine& machine, const Registration& registration) {
  const FileIdentity identity = machine.files.IdentityOf(registration.file);
  Check check{std::string("library, ") + registration.scope->whom, registration.file};
  const std::string again = HowToRegister(machine, *registration.scope, registration.file);
  const auto found = [&check](const std::string& what, State state, const std::string& whatToDo) {
    check.found += ", " + what;
    check.state = state;
    check.whatToDo = whatToDo;
    return check;
  };
  if (!machine.files.Exists(registration.file)) {
    return found("file not there", State::Missing,
                 "The file was moved or deleted. " + (OwnCopy(machine).empty() ? "Install the library again." : again));
  }
  if (!identity.version.empty()) {
    check.found += ", version " + identity.version;
  }
  if (machine.files.BitsOf(registration.file) == Bits::k64) {
    return found("64-bit", State::Missing, "Another library is registered in its place. " + again);
  }
  if (registration.classes < kWendrill23Classes.size()) {
    return found(std::to_string(registration.classes) + " of " + std::to_string(kWendrill23Classes.size()) + " classes",
                 State::Missing, "Part of the registration is gone. " + again);
  }
  if (!registration.oneFile) {
    return found("other classes from other files", State::Warn, "Two versions are mixed. " + again);
  }
  if (registration.hasThreading) {
    return found("registered by an older version", State::Warn,
                 "Programs with several threads may crash with it. " + again);
  }
  const std::string own = OwnCopy(machine);
  if (!own.empty() && machine.files.IdentityOf(own).version != identity.version) {
    return found("not the version beside this program (" + machine.files.IdentityOf(own).version + ")", State::Warn,
                 "Programs get the registered version. If you want the other one:\n" + again);
  }
  if (machine.files.IsMarkedAsDownloaded(registration.file)) {
    return found("blocked", State::Warn,
                 "Click this file with the right button, choose Properties, tick Unblock and click OK.");
  }
  return check;
}

Check CheckOfTypeLibrary(const Machine& machine, const Registration& registration) {
  const auto file = ClassValue(machine.registry, registration.scope->hive,
                               "TypeLib\\" + std::string(kWendrill23Library) + R"(\1.0\0\win32)");
  Check check{std::string("type library, ") + registration.scope->whom, file.value_or("not registered")};
  if (file && SameText(*file, registration.file)) {
    return check;
  }
  check.state = file ? State::Warn : State::Missing;
  check.whatToDo = (file ? "It belongs to another copy of the library. " : "") +
                   HowToRegister(machine, *registration.scope, registration.file);
  return check;
}

Checks ChecksOfCreation(const Machine& machine) {
  Checks checks;
  if (machine.components == nullptr) {
    return checks;
  }
  for (const auto& [name, id] : kWendrill23Classes) {
    const Creation creation = machine.components->Create(std::string(name));
    checks.push_back(creation.succeeded
                         ? Check{std::string(name), "can be created"}
                         : Check{std::string(name), "cannot be created: " + creation.failure, State::Missing,
                                 "Do first what the lines above say. If nothing is left there, send this table to "
                                 "whoever looks after the library."});
  }
  return checks;
}

}  // namespace

Checks ExamineLibrary(const Machine& machine) {
  std::vector<Registration> registrations;
  for (const Scope& scope : kScopes) {
    Registration registration = RegistrationIn(machine, scope);
    if (!registration.file.empty()) {
      registrations.push_back(std::move(registration));
    }
  }
  if (registrations.empty()) {
    return {CheckOfNothingRegistered(machine)};
  }
  const bool forUser = registrations.front().scope->hive == Hive::User;
  const bool forMachine = registrations.back().scope->hive == Hive::Machine;
  Checks checks{CheckOfScopes(machine, forUser, forMachine, registrations.front().file)};
  for (const Registration& registration : registrations) {
    checks.push_back(CheckOfRegistration(machine, registration));
    checks.push_back(CheckOfTypeLibrary(machine, registration));
  }
  for (Check& check : ChecksOfCreation(machine)) {
    checks.push_back(std::move(check));
  }
  return checks;
}

}  // namespace wendrill::doctor
