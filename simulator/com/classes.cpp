// The creatable classes of QuilletSimulator.dll: the simulated components of the terminal, under the ProgIDs of the
// real components, and the simulator's own classes Control and Expect.

#include "com/control_object.h"
#include "com/dispatch_object.h"
#include "com/expect_object.h"
#include "com/helper_objects.h"
#include "com/mixture.h"
#include "com/server/module.h"
#include "com/simulation.h"
#include "com/terminal_objects.h"
#include "platform_classes.h"

namespace wendrill::simulator {
namespace {

HRESULT CreatePnr(const IID& wanted, void** object) {
  return com::Guarded([&] {
    const auto created = com::Reference<IDispatch>::Adopt(DispatchObject::For(TheSimulation().world.MakePnr()));
    return created->QueryInterface(wanted, object);
  });
}

using com::CreateObjectOf;

std::span<const com::ServerClass> TerminalComponents();

template <auto kCreate>
HRESULT CreateTraced(const IID& wanted, void** object) {
  return com::Guarded([&] {
    StartTraceOfEnvironment();
    return kCreate(wanted, object);
  });
}

template <auto kCreate>
HRESULT CreateUnmixed(const IID& wanted, void** object) {
  return com::Guarded([&] {
    RefuseMixture(TerminalComponents());
    return CreateTraced<kCreate>(wanted, object);
  });
}

// The creatable classes of this DLL. The last kOwnClasses of them are the simulator's own; all classes before those
// replace components of the terminal.
constexpr std::size_t kOwnClasses = 2;
constexpr com::ServerClass kClasses[] = {
    {com::kHostSessionList, CreateUnmixed<CreateObjectOf<HostSessionListObject>>},
    {com::kHostSession, CreateUnmixed<CreateObjectOf<HostSessionObject>>},
    {com::kPNR, CreateUnmixed<CreatePnr>},
    {com::kAlarmManager, CreateUnmixed<CreateObjectOf<AlarmManagerObject>>},
    {com::kParamBag, CreateUnmixed<CreateObjectOf<ParamBagObject>>},
    {com::kTextHelper, CreateUnmixed<CreateObjectOf<TextHelperObject>>},
    {com::kControl, CreateTraced<CreateObjectOf<ControlObject>>},
    {com::kExpect, CreateTraced<CreateObjectOf<ExpectObject>>},
};

std::span<const com::ServerClass> TerminalComponents() {
  return std::span(kClasses).first(std::size(kClasses) - kOwnClasses);
}

constexpr char16_t kWhyConsent[] =
    u"The simulator takes the names of the terminal's components, so it registers only when that is asked for: "
    u"regsvr32 /n /i:simulate QuilletSimulator.dll";

}  // namespace
}  // namespace wendrill::simulator

namespace wendrill::com {

const ServerDescription kServer{
    LIBID_QuilletSimulator, simulator::kClasses, simulator::EndEventDelivery, kSimulate, kSimulate,
    simulator::kWhyConsent};

}  // namespace wendrill::com
