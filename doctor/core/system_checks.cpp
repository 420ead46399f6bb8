// The checks of the system, the script hosts, downloaded files and environment variables.
#include "core/check.h"
#include "core/paths.h"
#include "core/servers.h"

namespace wendrill::doctor {
namespace {

Check CheckOfDoctor(const System& system) {
  Check check{"this program", TextOf(system.OwnBits()) + (system.IsElevated() ? ", as administrator" : "")};
  if (system.OwnBits() != Bits::k32) {
    check.state = State::Warn;
    check.whatToDo = "Use the doctor that was installed with the library: it is a 32-bit program, as the library is.";
  }
  return check;
}

// The view of the registry that Explorer uses: on 64-bit Windows, Explorer is a 64-bit program.
View ViewOfExplorer(const System& system) {
  return system.Is64Bit() ? View::k64 : View::k32;
}

std::optional<std::string> ExplorersClassValue(const Machine& machine, const std::string& key) {
  for (const Hive hive : {Hive::User, Hive::Machine}) {
    if (auto value = machine.registry.Value(hive, ViewOfExplorer(machine.system), "Software\\Classes\\" + key)) {
      return value;
    }
  }
  return std::nullopt;
}

// The program that a double click on a .vbs file starts; empty when there is none. The program that the user chose in
// Explorer takes precedence over the association of the file type.
std::string ProgramForScripts(const Machine& machine) {
  auto kind = machine.registry.Value(Hive::User, ViewOfExplorer(machine.system),
                                     R"(Software\Microsoft\Windows\CurrentVersion\Explorer\FileExts\.vbs\UserChoice)",
                                     "ProgId");
  if (!kind) {
    kind = ExplorersClassValue(machine, ".vbs");
  }
  const auto command = kind ? ExplorersClassValue(machine, *kind + R"(\shell\open\command)") : std::nullopt;
  return command ? ProgramOf(machine.system.Expanded(*command)) : "";
}

std::string With32BitHost(const System& system, const std::string& host) {
  return FolderOf32BitPrograms(system) + "\\" + host + " SCRIPT.vbs";
}

Check CheckOfAssociation(const Machine& machine) {
  const std::string program = ProgramForScripts(machine);
  const std::string byHand =
      "To run a script, type in a command prompt:\n  " + With32BitHost(machine.system, "cscript.exe");
  if (program.empty()) {
    return {".vbs files", "no program opens them", State::Warn, byHand};
  }
  const std::string name = FileNameOf(program);
  const Bits bits = machine.files.BitsOf(SeenBy64Bit(machine.system, program));
  const std::string found = program + ", " + TextOf(bits);
  if (!SameText(name, "wscript.exe") && !SameText(name, "cscript.exe")) {
    return {".vbs files", found, State::Warn, "A double click opens a script in another program. " + byHand};
  }
  if (bits != Bits::k64 || SurrogateIsRegistered(machine.registry)) {
    return {".vbs files", found};
  }
  return {".vbs files", found, State::Warn,
          "A double click starts the 64-bit script host, which cannot load the library. " + byHand};
}

Check CheckOfCscript(const Machine& machine) {
  const std::string path = machine.system.WindowsFolder() + "\\System32\\cscript.exe";
  const std::string native = SeenBy64Bit(machine.system, path);
  if (!machine.files.Exists(native)) {
    return {"cscript", "not there", State::Warn,
            "Windows' own script host is gone. Run scripts with script_host.exe --terminal SCRIPT.vbs instead."};
  }
  const Bits bits = machine.files.BitsOf(native);
  if (bits != Bits::k64 || SurrogateIsRegistered(machine.registry)) {
    return {"cscript", path + ", " + TextOf(bits)};
  }
  return {"cscript", path + ", 64-bit", State::Warn,
          "In a command prompt cscript is the 64-bit script host, which cannot load the library. Type instead:\n  " +
              With32BitHost(machine.system, "cscript.exe")};
}

Check CheckOfVBScript(const Machine& machine) {
  const auto id = ClassValue(machine.registry, "VBScript\\CLSID");
  const auto engine = id ? ServerOf(machine, *id) : std::nullopt;
  if (engine) {
    return {"VBScript", engine->path};
  }
  return {"VBScript", "not installed", State::Missing,
          "Open Settings, System, Optional features, add the feature VBSCRIPT, and restart the computer."};
}

constexpr const char* kVariables[] = {"QUILLET_SCENARIO", "QUILLET_SIMULATOR_MIX", "WENDRILL_REGISTER_LOG"};

Check CheckOfVariable(const Machine& machine, const std::string& name, const std::string& value) {
  if (name == "QUILLET_SCENARIO" && !machine.files.Exists(value)) {
    return {name, value + ", file not there", State::Warn,
            "The simulator answers from this file, which is gone. Correct the variable, or remove it."};
  }
  if (name == "QUILLET_SIMULATOR_MIX" && value == "1") {
    return {name, value, State::Warn,
            "Simulated and real components may be mixed. This variable is for tests of the library alone: remove it "
            "(search for \"environment variables\" in the Start menu) and start the program again."};
  }
  return {name, value};
}

// The files that are checked for the mark of a download: Windows may refuse to load a file that has this mark.
constexpr const char* kDeliveredFiles[] = {"Wendrill23.dll",  "QuilletSimulator.dll", "QuilletRecorder.dll",
                                           "script_host.exe", "doctor.exe",           "wendrill.exe"};

}  // namespace

Checks ExamineSystem(const Machine& machine) {
  return {{"system", machine.system.Name() + (machine.system.Is64Bit() ? ", 64-bit" : ", 32-bit")},
          CheckOfDoctor(machine.system)};
}

Checks ExamineScriptHosts(const Machine& machine) {
  return {CheckOfAssociation(machine), CheckOfCscript(machine), CheckOfVBScript(machine)};
}

Checks ExamineDownloads(const Machine& machine) {
  std::string marked;
  for (const char* name : kDeliveredFiles) {
    if (machine.files.IsMarkedAsDownloaded(machine.system.OwnFolder() + "\\" + name)) {
      marked += (marked.empty() ? "" : ", ") + std::string(name);
    }
  }
  if (marked.empty()) {
    return {{"downloaded files", "none is blocked"}};
  }
  return {{"downloaded files", "blocked: " + marked, State::Warn,
           "Open the folder " + Quoted(machine.system.OwnFolder()) +
               ". Click each of these files with the right button, choose Properties, tick Unblock and click OK."}};
}

Checks ExamineVariables(const Machine& machine) {
  Checks checks;
  for (const char* name : kVariables) {
    const auto value = machine.system.Variable(name);
    if (value && !value->empty()) {
      checks.push_back(CheckOfVariable(machine, name, *value));
    }
  }
  if (checks.empty()) {
    checks.push_back({"variables", "none is set"});
  }
  return checks;
}

}  // namespace wendrill::doctor
