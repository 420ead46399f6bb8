// Callers without manners: every slot of every interface with null pointers and with counts that do not fit. Each call
// ends with a status; nothing crashes, hangs or leaks.
#include <map>

#include "every_object.h"
#include "published_slots.h"
#include "support/published_members.h"

namespace wendrill::com::testing {
namespace {

using HostileSlots = EveryObject;

using wendrill::testing::PublishedMemberCount;

TEST_F(HostileSlots, RejectNullForTheirResults) {
  std::size_t members = 0;
  for (const auto& object : objects_) {
    for (const Slot& slot : PublishedSlots(object.Get())) {
      SCOPED_TRACE(Narrow(slot.name));
      ++members;
      SlotArguments arguments(slot, bag_.Get(), [](std::size_t) { return true; });
      const HRESULT status = arguments.Call(object.Get());
      const bool hasResult = !slot.parameters.empty() && slot.parameters.back().isResult;
      if (hasResult) {
        EXPECT_EQ(E_POINTER, status);
      }
      Reconnect();
    }
  }
  // The members of IGet and IGetPNR twice: CPNR's, and those of the classes that do nothing.
  EXPECT_EQ(PublishedMemberCount() + PublishedMemberCount({"_IGet", "_IGetPNR"}), members);
}

TEST_F(HostileSlots, TakeNullForEachOfTheirPointersInTurn) {
  for (const auto& object : objects_) {
    for (const Slot& slot : PublishedSlots(object.Get())) {
      for (std::size_t index = 0; index < slot.parameters.size(); ++index) {
        SCOPED_TRACE(Narrow(slot.name) + ", parameter " + std::to_string(index));
        SlotArguments arguments(slot, bag_.Get(), [index](std::size_t at) { return at == index; });
        const HRESULT status = arguments.Call(object.Get());
        if (slot.parameters[index].isResult) {
          EXPECT_EQ(E_POINTER, status);
        }
        Reconnect();
      }
    }
  }
}

// The members that fail when every slot receives the text "JD", the number 0, an Empty Variant and an empty bag, on a
// PNR that the entry "JD" has left without elements; and their numbers. Every other member succeeds.
const std::map<std::wstring, int> kNumbersOfFailingSlots = {
    {L"ConnectSession", 2535},      // there is no session JD
    {L"GetLineFromLastBuffer", 9},  // the simulator's own error: its lines count from 1
    {L"Item", 5},                   // Empty is position 0, and positions count from 1
    {L"Remove", 5},                 // the same
    {L"Commands put", 13},          // the bag is not a queue
    // A missing index counts as 0, and there is no element 0.
    {L"ActiveAirSegments", 2205},
    {L"AirSegments", 2207},
    {L"AllAirSegments", 2209},
    {L"BillingAddressElements", 2235},
    {L"CarSegment", 2211},
    {L"ConfidentialRemarkElements", 2241},
    {L"ContactElements", 2239},
    {L"FareCommissionElement", 2215},
    {L"FlownAirSegments", 2217},
    {L"FormOfPaymentElement", 2219},
    {L"HotelSegment", 2221},
    {L"MailingAddressElements", 2237},
    {L"NameElement", 2223},
    {L"OpenAirSegments", 2225},
    {L"OptionElements", 2237},
    {L"PNRHeader", 2227},  // a header without text
    {L"RemarkElement", 2229},
    {L"TicketElement", 2231},
    {L"ValidatingAirlineElement", 2233},
    {L"AirSequenceNrElement", 2213},
};

// The last of the objects are of the classes IGet and IGetPNR, whose members do nothing.
constexpr std::size_t kEmptyObjects = 2;

TEST_F(HostileSlots, WithAllTheirPointersSucceedOrFailWithTheirNumber) {
  std::size_t failures = 0;
  for (std::size_t at = 0; at < objects_.size(); ++at) {
    const auto& object = objects_[at];
    for (const Slot& slot : PublishedSlots(object.Get())) {
      const bool isPut = (slot.kind & (INVOKE_PROPERTYPUT | INVOKE_PROPERTYPUTREF)) != 0;
      const std::wstring name = slot.name + (isPut ? L" put" : L"");
      SCOPED_TRACE(Narrow(name));
      SlotArguments arguments(slot, bag_.Get(), [](std::size_t) { return false; });
      const HRESULT status = arguments.Call(object.Get());
      const auto failing = kNumbersOfFailingSlots.find(name);
      if (failing == kNumbersOfFailingSlots.end() || at + kEmptyObjects >= objects_.size()) {
        EXPECT_EQ(S_OK, status);
      } else {
        EXPECT_EQ(static_cast<HRESULT>(0x800A0000 + failing->second), status);
        ++failures;
      }
      Reconnect();
    }
  }
  EXPECT_EQ(kNumbersOfFailingSlots.size(), failures);
}

TEST_F(HostileSlots, OfIDispatchAndIUnknownRejectNull) {
  for (const auto& object : objects_) {
    EXPECT_EQ(E_POINTER, object->QueryInterface(IID_IUnknown, nullptr));
    EXPECT_EQ(E_POINTER, object->GetTypeInfoCount(nullptr));
    EXPECT_EQ(E_POINTER, object->GetTypeInfo(0, 0, nullptr));
    Reference<ITypeInfo> none;
    EXPECT_EQ(DISP_E_BADINDEX, object->GetTypeInfo(1, 0, none.Receive()));
    DISPID id = 0;
    LPOLESTR noName = nullptr;
    EXPECT_TRUE(FAILED(object->GetIDsOfNames(IID_NULL, nullptr, 1, 0, &id)));
    EXPECT_TRUE(FAILED(object->GetIDsOfNames(IID_NULL, &noName, 1, 0, nullptr)));
    EXPECT_TRUE(FAILED(object->GetIDsOfNames(IID_NULL, &noName, 1, 0, &id)));
    EXPECT_TRUE(FAILED(object->GetIDsOfNames(IID_NULL, &noName, 0, 0, &id)));
    EXPECT_TRUE(FAILED(object->Invoke(1, IID_NULL, 0, DISPATCH_METHOD, nullptr, nullptr, nullptr, nullptr)));
    void* unknown = this;
    EXPECT_EQ(E_NOINTERFACE, object->QueryInterface(IID_IStream, &unknown));
    EXPECT_EQ(nullptr, unknown);
    EXPECT_EQ(E_POINTER, object.As<IProvideClassInfo>()->GetClassInfo(nullptr));
  }
}

// Counts that do not fit what stands behind them.
TEST_F(HostileSlots, OfIDispatchRejectArgumentsThatAreNotThere) {
  VARIANT one;
  VariantInit(&one);
  DISPID put = DISPID_PROPERTYPUT;
  const DISPPARAMS broken[] = {
      {nullptr, nullptr, 1, 0}, {nullptr, nullptr, 4, 0}, {&one, nullptr, 1, 1},          {&one, &put, 1, 2},
      {&one, &put, 0, 1},       {nullptr, &put, 1, 1},    {&one, nullptr, 0xFFFFFFFF, 0}, {&one, &put, 1, 0xFFFFFFFF},
  };
  for (const auto& object : objects_) {
    for (const Slot& slot : PublishedSlots(object.Get())) {
      auto* name = const_cast<LPOLESTR>(slot.name.c_str());
      DISPID id = DISPID_UNKNOWN;
      ASSERT_EQ(S_OK, object->GetIDsOfNames(IID_NULL, &name, 1, 0, &id)) << Narrow(slot.name);
      for (DISPPARAMS parameters : broken) {
        for (const WORD flags : {WORD{DISPATCH_METHOD | DISPATCH_PROPERTYGET}, WORD{DISPATCH_PROPERTYPUT}}) {
          OwnedVariant result;
          EXPECT_TRUE(FAILED(object->Invoke(id, IID_NULL, 0, flags, &parameters, &result, nullptr, nullptr)))
              << Narrow(slot.name) << " took " << parameters.cArgs << " arguments, " << parameters.cNamedArgs
              << " named";
        }
      }
    }
  }
}

TEST_F(HostileSlots, OfClassFactoriesRejectNullAndAggregation) {
  for (const CLSID& id :
       {CLSID_CQuillet, CLSID_CPNR, CLSID_CQueue, CLSID_CBatch, CLSID_CEncodeUtils, CLSID_IGet, CLSID_IGetPNR}) {
    Reference<IClassFactory> factory;
    ASSERT_EQ(S_OK, CoGetClassObject(id, CLSCTX_INPROC_SERVER, nullptr, IID_IClassFactory, factory.ReceiveVoid()));
    EXPECT_EQ(E_POINTER, factory->CreateInstance(nullptr, IID_IDispatch, nullptr));
    void* object = this;
    EXPECT_EQ(CLASS_E_NOAGGREGATION, factory->CreateInstance(bag_.Get(), IID_IUnknown, &object));
    EXPECT_EQ(nullptr, object);
    object = this;
    EXPECT_EQ(E_NOINTERFACE, factory->CreateInstance(nullptr, IID_IStream, &object));
    EXPECT_EQ(nullptr, object);
  }
}

TEST_F(HostileSlots, OfEnumeratorsRejectNull) {
  const auto queue = Create<_CQueue>(CLSID_CQueue);
  Reference<IUnknown> unknown;
  ASSERT_EQ(S_OK, queue->get_NewEnum(unknown.Receive()));
  const auto elements = unknown.As<IEnumVARIANT>();
  ULONG count = 1;
  EXPECT_EQ(E_POINTER, elements->Next(1, nullptr, &count));
  OwnedVariant element;
  EXPECT_EQ(E_POINTER, elements->Next(2, &element, nullptr));
  EXPECT_EQ(E_POINTER, elements->Clone(nullptr));
  EXPECT_EQ(S_FALSE, elements->Skip(0xFFFFFFFF));
  EXPECT_EQ(S_FALSE, elements->Next(1, &element, &count));
  EXPECT_EQ(0U, count);
}

}  // namespace
}  // namespace wendrill::com::testing
