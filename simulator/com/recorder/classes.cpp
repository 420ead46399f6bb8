// The creatable classes of QuilletRecorder.dll. All classes except QuilletRecorder.Run have the ProgIDs of the
// components to which the recorder forwards calls.

#include "com/recorder/behind.h"
#include "com/recorder/run.h"
#include "com/recorder/run_recorder.h"
#include "com/recorder/wrapper.h"
#include "com/server/boundary.h"
#include "com/server/counted_object.h"
#include "com/server/module.h"
#include "recorder_classes.h"

namespace wendrill::recorder {
namespace {

// Creates an object of the terminal and returns the wrapper of that object.
template <const com::ClassIdentity& kClass, Kind kKind>
HRESULT CreateWrapped(const IID& wanted, void** object) {
  return com::Guarded([&]() -> HRESULT {
    const com::ObjectLock whileItIsCreated;
    TheRun().StartOfEnvironment();
    Notes* const notes = TheRun().Recording();
    com::Reference<IDispatch> real;
    HRESULT status = E_FAIL;
    try {
      status = CreateBehind(kClass.programmaticId, IID_IDispatch, real.ReceiveVoid());
    } catch (...) {
      status = com::ReportCurrentException();
    }
    if (FAILED(status)) {
      if (notes != nullptr && kKind == Kind::Alarm) {
        notes->AlarmRefused();
      }
      return status;
    }
    const auto wrapper = Wrapper::Of(real.Get(), kKind);
    if (const auto ours = wrapper.As<IWrapper>(); ours && notes != nullptr) {
      notes->Created(ours->Itself());
    }
    return wrapper->QueryInterface(wanted, object);
  });
}

// Creates an object whose calls are not recorded, and returns that object without a wrapper.
template <const com::ClassIdentity& kClass>
HRESULT CreateUnwrapped(const IID& wanted, void** object) {
  return com::Guarded([&] {
    TheRun().StartOfEnvironment();
    return CreateBehind(kClass.programmaticId, wanted, object);
  });
}

class RunRecorder final : public com::CountedObject<com::CountOfAnyThread, com::ObjectLock, IRunRecorder> {
 public:
  HRESULT Start(const recording::Settings& settings) override {
    return com::Guarded([&] {
      recording::Settings asked = settings;
      asked.readsWholePnrs = ReadsWholePnrs();
      TheRun().Start(std::move(asked), EndedBy::Program);
    });
  }
  const recording::Outcome* End() override { return TheRun().End(); }
};

HRESULT CreateRun(const IID& wanted, void** object) {
  return com::Guarded([&] {
    const auto created = com::Reference<RunRecorder>::Adopt(new RunRecorder());
    return created->QueryInterface(wanted, object);
  });
}

constexpr com::ServerClass kClasses[] = {
    {com::kRecordedSessionList, CreateWrapped<com::kRecordedSessionList, Kind::SessionList>},
    {com::kRecordedSession, CreateWrapped<com::kRecordedSession, Kind::Session>},
    {com::kRecordedPNR, CreateWrapped<com::kRecordedPNR, Kind::Pnr>},
    {com::kRecordedAlarmManager, CreateWrapped<com::kRecordedAlarmManager, Kind::Alarm>},
    {com::kRecordedTextHelper, CreateWrapped<com::kRecordedTextHelper, Kind::TextHelper>},
    {com::kPassedParamBag, CreateUnwrapped<com::kPassedParamBag>},
    {com::kPassedControl, CreateUnwrapped<com::kPassedControl>},
    {com::kPassedExpect, CreateUnwrapped<com::kPassedExpect>},
    {com::kRun, CreateRun},
};

constexpr char16_t kWhyNever[] =
    u"The recorder takes the names of the terminal's components for one program alone, by that program's manifest: it "
    u"is never registered.";

}  // namespace
}  // namespace wendrill::recorder

namespace wendrill::com {

const ServerDescription kServer{.typeLibrary = LIBID_QuilletRecorder,
                                .classes = recorder::kClasses,
                                .lastObjectGone = recorder::LastObjectGone,
                                .neededWords = kSimulate,
                                .whyNeeded = recorder::kWhyNever,
                                .processEnds = recorder::ProcessEnds};

}  // namespace wendrill::com
