#include "com/classes/pnr_object.h"

#include "com/classes/results.h"

namespace wendrill::com {
namespace {

// From the default interface to another one of the same object: a script holds the default one and can reach IGet and
// IGetPNR in no other way than by their members' names.
template <typename Interface>
struct FromDefault {
  static Interface* From(void* object) { return static_cast<CPNRObject*>(static_cast<_CPNR*>(object)); }
};

// IGet and IGetPNR use the same identifiers each for itself; on the default interface Elements follows IGet's last one.
constexpr DISPID kElementsByDefault = 0x60030014;

const DispatchTable& FurtherMembers() {
#define ROW(name, id) Function<&_IGet::name, VT_DISPATCH, FromDefault<_IGet>>(id, L## #name, {L"objParams"}),
  static constexpr auto kMembers = std::to_array<DispatchRow>({
      WENDRILL_GET_MEMBERS(ROW)  //
      Function<&_IGetPNR::Elements, VT_DISPATCH, FromDefault<_IGetPNR>>(kElementsByDefault, L"Elements",
                                                                        {L"objParams"}),
  });
#undef ROW
  static const DispatchTable table(kMembers);
  return table;
}

}  // namespace

template <>
const DispatchTable& TableOf<_CPNR>() {
  using I = _CPNR;
#define ROW(name, id) Property<&I::get_##name##Count>(id, L## #name L"Count"),
  static constexpr auto kMembers = std::to_array<DispatchRow>({
      Property<&I::get_Command, &I::put_Command>(1, L"Command"), Property<&I::get_PNR, &I::put_PNR>(2, L"PNR"),
      Property<&I::get_Text>(3, L"Text"), Property<&I::get_RecordLocator>(4, L"RecordLocator"),
      Property<&I::get_CreationOfficeID>(5, L"CreationOfficeID"),
      Property<&I::get_CreationAgentSign>(6, L"CreationAgentSign"), Property<&I::get_CreationDate>(7, L"CreationDate"),
      WENDRILL_TOOLKIT_COUNTS(ROW)  //
      Property<&I::get_ValidatingAirlineElementsCount>(31, L"ValidatingAirlineElementsCount"),
      Property<&I::get_AirSequenceNrElementsCount>(32, L"AirSequenceNrElementsCount"),
      WENDRILL_SCANNED_COUNTS(ROW)  //
  });
#undef ROW
  static const DispatchTable table(kMembers, &FurtherMembers());
  return table;
}

template <>
const DispatchTable& TableOf<_IGet>() {
#define ROW(name, id) Function<&_IGet::name>(id, L## #name, {L"objParams"}),
  static constexpr auto kMembers = std::to_array<DispatchRow>({WENDRILL_GET_MEMBERS(ROW)});
#undef ROW
  static const DispatchTable table(kMembers);
  return table;
}

template <>
const DispatchTable& TableOf<_IGetPNR>() {
  static constexpr auto kMembers = std::to_array<DispatchRow>({
      Function<&_IGetPNR::Elements>(0x60030000, L"Elements", {L"objParams"}),
  });
  static const DispatchTable table(kMembers);
  return table;
}

CPNRObject::CPNRObject()
    : core_(TheLibrary().state),
      records_(TheLibrary().state),
      scans_(TheLibrary().state),
      elements_(TheLibrary().state, core_, scans_) {}

HRESULT CPNRObject::get_Command(BSTR* result) {
  return Guarded([&] { return GiveResult(result, [&] { return core_.Command(); }); });
}

HRESULT CPNRObject::put_Command(BSTR strCommand) {
  return Guarded([&] { core_.SetCommand(TextOf(strCommand)); });
}

HRESULT CPNRObject::get_PNR(IDispatch** result) {
  return Run([&] { return GiveResult(result, [&] { return core_.PNR(); }); });
}

HRESULT CPNRObject::put_PNR(IDispatch* objPNR) {
  return Run([&] {
    const ForeignObjects bridge(TheLibrary().names);
    core_.SetPNR(objPNR == nullptr ? ObjectRef() : bridge.ToCore(objPNR));
  });
}

HRESULT CPNRObject::get_Text(BSTR* result) {
  return Run([&] { return GiveResult(result, [&] { return core_.Text(); }); });
}

HRESULT CPNRObject::get_RecordLocator(BSTR* result) {
  return Run([&] { return GiveResult(result, [&] { return core_.RecordLocator(); }); });
}

HRESULT CPNRObject::get_CreationOfficeID(BSTR* result) {
  return Run([&] { return GiveResult(result, [&] { return core_.CreationOfficeID(); }); });
}

HRESULT CPNRObject::get_CreationAgentSign(BSTR* result) {
  return Run([&] { return GiveResult(result, [&] { return core_.CreationAgentSign(); }); });
}

HRESULT CPNRObject::get_CreationDate(BSTR* result) {
  return Run([&] { return GiveResult(result, [&] { return core_.CreationDate(); }); });
}

HRESULT CPNRObject::get_ValidatingAirlineElementsCount(SHORT* result) {
  return Run([&] { return GiveResult(result, [&] { return records_.ValidatingAirlineElementsCount(); }); });
}

HRESULT CPNRObject::get_AirSequenceNrElementsCount(SHORT* result) {
  return Run([&] { return GiveResult(result, [&] { return records_.AirSequenceNrElementsCount(); }); });
}

#define DEFINE_COUNT(name, id)                                                                                \
  HRESULT CPNRObject::get_##name##Count(SHORT* result) {                                                      \
    return Run([&] { return GiveResult(result, [&] { return Count(TheLibrary().state, CountOf::name); }); }); \
  }
WENDRILL_TOOLKIT_COUNTS(DEFINE_COUNT)
#undef DEFINE_COUNT

#define DEFINE_COUNT(name, id)                                                                       \
  HRESULT CPNRObject::get_##name##Count(SHORT* result) {                                             \
    return Run([&] { return GiveResult(result, [&] { return scans_.Count(ScannedKind::name); }); }); \
  }
WENDRILL_SCANNED_COUNTS(DEFINE_COUNT)
#undef DEFINE_COUNT

#define DEFINE_MEMBER(name, id)                                         \
  HRESULT CPNRObject::name(IDispatch** objParams, IDispatch** result) { \
    return Record(GetMember::name, objParams, result);                  \
  }
WENDRILL_GET_MEMBERS(DEFINE_MEMBER)
#undef DEFINE_MEMBER

HRESULT CPNRObject::Elements(IDispatch** objParams, IDispatch** result) {
  return Run([&] { return GiveResult(result, [&] { return elements_.Elements(BagIn(objParams)); }); });
}

HRESULT CPNRObject::Record(GetMember member, IDispatch** objParams, IDispatch** result) {
  return Run([&] { return GiveResult(result, [&] { return records_.Get(member, BagIn(objParams)); }); });
}

}  // namespace wendrill::com
