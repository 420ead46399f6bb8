// The checks of the terminal's components: whether the terminal or the simulator serves each component, whether
// simulated and real components are mixed, and how many sessions run.
#include <algorithm>
#include <optional>

#include "core/check.h"
#include "core/paths.h"
#include "core/servers.h"
#include "platform_identities.h"

namespace wendrill::doctor {
namespace {

constexpr std::string_view kSimulatorsOwn = "QuilletSimulator.";  // the prefix of classes that no terminal has
constexpr char kSimulator[] = "QuilletSimulator";                 // the description in the simulator's version resource

constexpr char kRepair[] =
    "Repair the terminal's installation: open Settings, Apps, and start its repair or its installer again.";

enum class Origin { Nowhere, Terminal, Simulator, DisguisedSimulator };

struct Component {
  std::string name;
  std::string classId = {};
  std::optional<Server> server = {};
  Origin origin = Origin::Nowhere;
};

// Whether a component with a server belongs to the terminal or to the simulator. The simulator is recognised by its
// class identifier or by its file's description. DisguisedSimulator is a simulator whose file has another name or that
// is registered under a class identifier of a terminal.
Origin OriginOf(const Machine& machine, const Component& component, std::string_view simulatedId) {
  const bool hasSimulatedId = SameText(component.classId, simulatedId);
  const bool isSimulatorsFile = machine.files.IdentityOf(component.server->path).description == kSimulator;
  if (!hasSimulatedId && !isSimulatorsFile) {
    return Origin::Terminal;
  }
  const bool hasOwnName = SameText(FileNameOf(component.server->path), std::string(kSimulator) + ".dll");
  return hasSimulatedId && hasOwnName ? Origin::Simulator : Origin::DisguisedSimulator;
}

Component ComponentOf(const Machine& machine, std::string_view name, std::string_view simulatedId) {
  Component component{std::string(name)};
  component.classId = ClassValue(machine.registry, component.name + "\\CLSID").value_or("");
  if (component.classId.empty()) {
    return component;
  }
  component.server = ServerOf(machine, component.classId);
  if (component.server) {
    component.origin = OriginOf(machine, component, simulatedId);
  }
  return component;
}

std::vector<Component> ComponentsOf(const Machine& machine) {
  std::vector<Component> components;
  for (const auto& [name, id] : kQuilletSimulatorClasses) {
    if (!std::string_view(name).starts_with(kSimulatorsOwn)) {
      components.push_back(ComponentOf(machine, name, id));
    }
  }
  return components;
}

bool IsSimulated(const Component& component) {
  return component.origin == Origin::Simulator || component.origin == Origin::DisguisedSimulator;
}

std::string HowToTakeBack(const Machine& machine, const std::string& simulator) {
  return "Open a command prompt as administrator and type:\n  " +
         Regsvr32(machine.system, "/u /n /i:simulate", simulator);
}

std::string TextOf(Origin origin) {
  switch (origin) {
    case Origin::Simulator:
      return "simulated";
    case Origin::DisguisedSimulator:
      return "the simulator in disguise";
    case Origin::Terminal:
    case Origin::Nowhere:
      break;
  }
  return "the terminal's";
}

// Checks the server of a component: whether its file exists, and whether it is a 64-bit DLL. Reports one problem at
// most.
Check CheckOfServer(const Machine& machine, const Component& component) {
  const Server& server = *component.server;
  Check check{component.name, server.path};
  if (!machine.files.Exists(server.path)) {
    check.found += ", file not there";
    check.state = State::Missing;
    check.whatToDo = kRepair;
    return check;
  }
  const Bits bits = machine.files.BitsOf(server.path);
  check.found += ", " + doctor::TextOf(bits) + ", " + TextOf(component.origin);
  if (server.inProcess && bits == Bits::k64) {
    check.state = State::Missing;
    check.whatToDo = "The library needs the 32-bit edition of the terminal. Install that one.";
  }
  return check;
}

void TryToCreate(const Machine& machine, Check& check) {
  if (machine.components == nullptr) {
    return;
  }
  const Creation creation = machine.components->Create(check.name);
  check.found += creation.succeeded ? ", can be created" : ", cannot be created: " + creation.failure;
  if (!creation.succeeded && check.state != State::Missing) {
    check.state = State::Missing;
    check.whatToDo =
        "Start the terminal, sign in, and start this program again. If the line stays: " + std::string(kRepair);
  }
}

Check CheckOf(const Machine& machine, const Component& component) {
  if (component.classId.empty()) {
    return {component.name, "not registered", State::Missing, "See the line \"terminal\"."};
  }
  if (!component.server) {
    return {component.name, component.classId + ", without a server", State::Missing, kRepair};
  }
  Check check = CheckOfServer(machine, component);
  TryToCreate(machine, check);
  return check;
}

Check CheckOfAll(const Machine& machine, const std::vector<Component>& components) {
  const auto countOf = [&components](auto predicate) {
    return std::count_if(components.begin(), components.end(), predicate);
  };
  const auto registered = countOf([](const Component& component) { return component.server.has_value(); });
  const auto simulated = countOf(IsSimulated);
  const auto disguised =
      countOf([](const Component& component) { return component.origin == Origin::DisguisedSimulator; });
  const auto all = static_cast<std::ptrdiff_t>(components.size());
  const auto counted = [all](std::ptrdiff_t count) { return std::to_string(count) + " of " + std::to_string(all); };
  if (registered == 0) {
    return {"terminal", "not installed", State::Missing,
            "Install the terminal with its components for scripts. Without a terminal, scripts run against the "
            "simulator:\n  " +
                Quoted(machine.system.OwnFolder() + "\\script_host.exe") + " SCRIPT.vbs"};
  }
  const auto firstSimulated = std::find_if(components.begin(), components.end(), IsSimulated);
  if (simulated > 0 && simulated < registered) {
    return {"terminal", "a mixture: " + counted(simulated) + " components simulated", State::Missing,
            "Simulated and real components do not work together. Take the simulator's registration back. " +
                HowToTakeBack(machine, firstSimulated->server->path)};
  }
  if (disguised > 0) {
    return {"terminal", "the simulator in disguise", State::Warn,
            "These look like components of a terminal and are the simulator: no entry reaches a host. " +
                HowToTakeBack(machine, firstSimulated->server->path) + "\nThen repair the terminal's installation."};
  }
  if (simulated > 0) {
    return {"terminal", "simulated", State::Warn,
            "Answers come from the simulator: no entry reaches a host. To use a terminal, take the simulator's "
            "registration back. " +
                HowToTakeBack(machine, firstSimulated->server->path)};
  }
  if (registered < all) {
    return {"terminal", counted(registered) + " components installed", State::Missing, kRepair};
  }
  return {"terminal", "all components installed"};
}

Check CheckOfSessions(const Machine& machine) {
  if (machine.components == nullptr) {
    return {"sessions", "not counted (doctor --create counts them)"};
  }
  const Components::Sessions sessions = machine.components->CountSessions();
  if (!sessions.failure.empty()) {
    return {"sessions", "cannot be counted: " + sessions.failure, State::Missing,
            "Start the terminal, sign in, and start this program again."};
  }
  if (sessions.count == 0) {
    return {"sessions", "none is running", State::Warn, "Start the terminal and sign in."};
  }
  return {"sessions", std::to_string(sessions.count) + " running"};
}

}  // namespace

Checks ExamineTerminal(const Machine& machine) {
  const std::vector<Component> components = ComponentsOf(machine);
  Checks checks{CheckOfAll(machine, components)};
  for (const Component& component : components) {
    checks.push_back(CheckOf(machine, component));
  }
  checks.push_back(CheckOfSessions(machine));
  return checks;
}

}  // namespace wendrill::doctor
