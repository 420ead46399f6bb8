// CQueue early bound, its enumerator, and indexes of every kind.
#include <array>
#include <limits>

#include "desktop_fixture.h"
#include "late_calls.h"

namespace wendrill::com::testing {
namespace {

class QueueObject : public Desktop {
 protected:
  Reference<_CQueue> QueueOf(std::initializer_list<const wchar_t*> entries) {
    const auto queue = Create<_CQueue>(CLSID_CQueue);
    for (const wchar_t* entry : entries) {
      Add(queue, entry, nullptr);
    }
    return queue;
  }

  static Reference<_CQuillet> Add(const Reference<_CQueue>& queue, const wchar_t* entry, const wchar_t* key) {
    const Text given(entry);
    const Text under(key == nullptr ? L"" : key);
    BSTR command = given;
    BSTR name = under;
    Reference<_CQuillet> stored;
    EXPECT_EQ(S_OK, queue->Add(&command, key == nullptr ? nullptr : &name, stored.Receive()));
    return stored;
  }
};

std::wstring CommandOf(const Reference<_CQuillet>& quillet) {
  Text command;
  EXPECT_EQ(S_OK, quillet->get_Command(command.Receive()));
  return command.Wide();
}

Reference<_CQuillet> ItemOf(const Reference<_CQueue>& queue, VARIANT index) {
  Reference<_CQuillet> stored;
  EXPECT_EQ(S_OK, queue->Item(index, stored.Receive()));
  return stored;
}

LONG CountOf(const Reference<_CQueue>& queue) {
  LONG count = -1;
  EXPECT_EQ(S_OK, queue->get_Count(&count));
  return count;
}

Reference<IEnumVARIANT> WalkOf(const Reference<_CQueue>& queue) {
  Reference<IUnknown> walk;
  EXPECT_EQ(S_OK, queue->get_NewEnum(walk.Receive()));
  return walk.As<IEnumVARIANT>();
}

// The commands of up to `wanted` next elements, joined.
std::wstring NextCommands(const Reference<IEnumVARIANT>& walk, ULONG wanted, HRESULT expected) {
  std::array<VARIANT, 8> elements{};
  ULONG fetched = 99;
  EXPECT_EQ(expected, walk->Next(wanted, elements.data(), &fetched));
  std::wstring commands;
  for (ULONG index = 0; index < fetched; ++index) {
    EXPECT_EQ(VT_DISPATCH, V_VT(&elements[index]));
    commands += CommandOf(Reference<IDispatch>(V_DISPATCH(&elements[index])).As<_CQuillet>()) + L" ";
    VariantClear(&elements[index]);
  }
  return commands;
}

TEST_F(QueueObject, EntriesAreHeldInOrderAndUnderTheirKeys) {
  const auto queue = QueueOf({L"ONE"});
  EXPECT_EQ(L"TWO", CommandOf(Add(queue, L"TWO", L"Second")));
  EXPECT_EQ(2, CountOf(queue));
  EXPECT_EQ(L"ONE", CommandOf(ItemOf(queue, Number(1))));
  const Text key(L"SECOND");
  EXPECT_EQ(L"TWO", CommandOf(ItemOf(queue, String(key))));
  EXPECT_EQ(S_OK, queue->Remove(Number(1)));
  EXPECT_EQ(L"TWO", CommandOf(ItemOf(queue, Number(1))));
  EXPECT_EQ(S_OK, queue->RemoveAll());
  EXPECT_EQ(S_OK, queue->RemoveAll());
  EXPECT_EQ(0, CountOf(queue));
}

TEST_F(QueueObject, AStoredObjectIsOneObjectHoweverItIsReached) {
  const auto queue = QueueOf({});
  const auto added = Add(queue, L"ONE", L"first");
  const Text key(L"FIRST");
  const auto identity = added.As<IUnknown>();
  EXPECT_EQ(identity.Get(), ItemOf(queue, Number(1)).As<IUnknown>().Get());
  EXPECT_EQ(identity.Get(), ItemOf(queue, String(key)).As<IUnknown>().Get());
  VARIANT element{};
  ASSERT_EQ(S_OK, WalkOf(queue)->Next(1, &element, nullptr));
  EXPECT_EQ(identity.Get(), Reference<IDispatch>(V_DISPATCH(&element)).As<IUnknown>().Get());
  VariantClear(&element);
}

TEST_F(QueueObject, AMissingEntryIsAnEmptyOneAndAMissingKeyIsNone) {
  const auto queue = QueueOf({});
  BSTR none = nullptr;
  Reference<_CQuillet> stored;
  EXPECT_EQ(S_OK, queue->Add(nullptr, nullptr, stored.Receive()));
  EXPECT_EQ(L"", CommandOf(stored));
  EXPECT_EQ(S_OK, queue->Add(&none, &none, stored.Receive()));
  EXPECT_EQ(2, CountOf(queue));
}

TEST_F(QueueObject, AKeyThatIsPresentIs2400) {
  const auto queue = QueueOf({});
  Add(queue, L"ONE", L"first");
  const Text again(L"First");
  BSTR key = again;
  Reference<_CQuillet> stored;
  EXPECT_OWN_ERROR(2400, queue->Add(nullptr, &key, stored.Receive()));
  EXPECT_FALSE(stored);
  EXPECT_EQ(1, CountOf(queue));
}

TEST_F(QueueObject, AddWithoutASessionIs2400) {
  Load(L"[terminal]\n");
  const auto queue = QueueOf({});
  Reference<_CQuillet> stored;
  EXPECT_OWN_ERROR(2400, queue->Add(nullptr, nullptr, stored.Receive()));
  EXPECT_EQ(0, CountOf(queue));
}

TEST_F(QueueObject, MissingPlacesForResultsAreRejected) {
  const auto queue = QueueOf({L"ONE"});
  EXPECT_EQ(E_POINTER, queue->Add(nullptr, nullptr, nullptr));
  EXPECT_EQ(1, CountOf(queue));
  EXPECT_EQ(E_POINTER, queue->Item(Number(1), nullptr));
  EXPECT_EQ(E_POINTER, queue->get_Count(nullptr));
  EXPECT_EQ(E_POINTER, queue->get_NewEnum(nullptr));
}

// --- Indexes of every kind

struct IndexCase {
  const char* what;
  VARIANT index;
  int number;  // the error
};

VARIANT Long64(LONGLONG number) {
  VARIANT variant = OfType(VT_I8);
  V_I8(&variant) = number;
  return variant;
}

TEST_F(QueueObject, IndexesThatNameNothingAreRejectedAndLeaveTheQueueAlone) {
  const auto queue = QueueOf({L"ONE", L"TWO"});
  const Text one(L"1");
  const Text empty(L"");
  LONG zero = 0;
  VARIANT zeroByReference = OfType(VT_BYREF | VT_I4);
  V_I4REF(&zeroByReference) = &zero;
  VARIANT truth = OfType(VT_BOOL);
  V_BOOL(&truth) = VARIANT_TRUE;
  VARIANT failure = OfType(VT_ERROR);
  V_ERROR(&failure) = E_FAIL;
  SAFEARRAY* const numbers = SafeArrayCreateVector(VT_I4, 0, 2);
  VARIANT array = OfType(VT_ARRAY | VT_I4);
  V_ARRAY(&array) = numbers;
  VARIANT notAutomation = OfType(VT_UNKNOWN);
  const auto walk = WalkOf(queue);
  V_UNKNOWN(&notAutomation) = walk.Get();
  const IndexCase cases[] = {
      {"0", Number(0), 5},
      {"3", Number(3), 5},
      {"-1", Number(-1), 5},
      {"the largest 32-bit number", Number(std::numeric_limits<LONG>::max()), 5},
      {"the smallest 32-bit number", Number(std::numeric_limits<LONG>::min()), 5},
      {"a 64-bit number", Long64(std::numeric_limits<LONGLONG>::max()), 6},
      {"a 64-bit number whose lower half is 1", Long64(0x100000001), 6},
      {"0.5", Real(0.5), 5},
      {"1e300", Real(1e300), 6},
      {"infinity", Real(std::numeric_limits<double>::infinity()), 6},
      {"no number", Real(std::numeric_limits<double>::quiet_NaN()), 6},
      {"a reference to 0", zeroByReference, 5},
      {"True", truth, 5},
      {"Empty", OfType(VT_EMPTY), 5},
      {"an argument that was left out", Omitted(), 5},
      {"Null", OfType(VT_NULL), 94},
      {"an error value", failure, 13},
      {"an array", array, 13},
      {"Nothing", Object(nullptr), 91},
      {"an object", Object(queue.Get()), 13},
      {"an object without automation", notAutomation, 13},
      {"a type that does not exist", OfType(0xFFF), 13},
      {"an unknown key", String(one), 5},
      {"an empty key", String(empty), 5},
      {"a key without a string", String(nullptr), 5},
  };
  for (const IndexCase& given : cases) {
    SCOPED_TRACE(given.what);
    Reference<_CQuillet> stored;
    EXPECT_OWN_ERROR(given.number, queue->Item(given.index, stored.Receive()));
    EXPECT_FALSE(stored);
    EXPECT_OWN_ERROR(given.number, queue->Remove(given.index));
    EXPECT_EQ(2, CountOf(queue));
  }
  SafeArrayDestroy(numbers);
}

TEST_F(QueueObject, IndexesOfEveryNumberTypeFindTheirPlace) {
  const auto queue = QueueOf({L"ONE", L"TWO"});
  for (const VARTYPE type : {VT_I1, VT_UI1, VT_I2, VT_UI2, VT_I4, VT_UI4, VT_INT, VT_UINT, VT_I8, VT_UI8, VT_R4, VT_R8,
                             VT_CY, VT_DATE, VT_DECIMAL}) {
    OwnedVariant index;
    VARIANT two = Number(2);
    ASSERT_EQ(S_OK, VariantChangeType(&index, &two, 0, type)) << type;
    EXPECT_EQ(L"TWO", CommandOf(ItemOf(queue, index))) << type;
    VARIANT byReference = ByReference(&index);
    EXPECT_EQ(L"TWO", CommandOf(ItemOf(queue, byReference))) << type << " by reference";
  }
}

TEST_F(QueueObject, AFailureOfTheDefaultMemberReachesLateBoundCallers) {
  const auto queue = QueueOf({L"ONE"});
  EXCEPINFO exception{};
  EXPECT_EQ(DISP_E_EXCEPTION, Invoke(queue.Get(), DISPID_VALUE, DISPATCH_METHOD | DISPATCH_PROPERTYGET, {Number(2)},
                                     nullptr, &exception));
  const Exception taken = Taken(exception);
  EXPECT_EQ(static_cast<SCODE>(0x800A0005), taken.code);
  EXPECT_EQ(L"Wendrill23", taken.source);
  EXPECT_EQ(L"Invalid procedure call or argument", taken.description);
}

TEST_F(QueueObject, LateBoundAddTakesVariablesOfAnyTypeThatIsText) {
  const auto queue = QueueOf({});
  OwnedVariant entry;
  V_VT(&entry) = VT_I4;
  V_I4(&entry) = 4505;
  OwnedVariant result;
  EXPECT_EQ(S_OK, Invoke(queue.Get(), L"Add", {ByReference(&entry), Omitted()}, &result));
  ASSERT_EQ(VT_DISPATCH, V_VT(&result));
  EXPECT_EQ(L"4505", CommandOf(Reference<IDispatch>(V_DISPATCH(&result)).As<_CQuillet>()));
  EXPECT_EQ(VT_I4, V_VT(&entry));  // what did not change keeps its type
  for (const VARIANT& misfit : {OfType(VT_NULL), Object(nullptr), Object(queue.Get()), OfType(0xFFF)}) {
    UINT argument = 99;
    EXPECT_EQ(DISP_E_TYPEMISMATCH, Invoke(queue.Get(), L"Add", {misfit}, nullptr, nullptr, &argument)) << V_VT(&misfit);
    EXPECT_EQ(0U, argument);
  }
  EXPECT_EQ(1, CountOf(queue));
}

// --- The enumerator

TEST_F(QueueObject, TheEnumeratorFollowsItsContract) {
  const auto queue = QueueOf({L"ONE", L"TWO", L"THREE", L"FOUR"});
  const auto walk = WalkOf(queue);
  ASSERT_TRUE(walk);
  EXPECT_EQ(L"ONE TWO ", NextCommands(walk, 2, S_OK));
  Reference<IEnumVARIANT> twin;
  EXPECT_EQ(S_OK, walk->Clone(twin.Receive()));
  EXPECT_EQ(L"THREE FOUR ", NextCommands(walk, 5, S_FALSE));
  EXPECT_EQ(L"", NextCommands(walk, 1, S_FALSE));
  EXPECT_EQ(L"", NextCommands(walk, 0, S_OK));
  EXPECT_EQ(S_OK, twin->Skip(1));
  EXPECT_EQ(L"FOUR ", NextCommands(twin, 1, S_OK));
  EXPECT_EQ(S_FALSE, twin->Skip(1));
  EXPECT_EQ(S_OK, walk->Reset());
  EXPECT_EQ(S_FALSE, walk->Skip(std::numeric_limits<ULONG>::max()));
  EXPECT_EQ(S_OK, walk->Reset());
  EXPECT_EQ(L"ONE ", NextCommands(walk, 1, S_OK));
  EXPECT_EQ(E_POINTER, walk->Clone(nullptr));
  EXPECT_EQ(E_POINTER, walk->Next(1, nullptr, nullptr));
  VARIANT two[2] = {};
  EXPECT_EQ(E_POINTER, walk->Next(2, two, nullptr));
}

TEST_F(QueueObject, AWalkShowsTheQueueAsItWasAndOutlivesIt) {
  auto queue = QueueOf({L"ONE", L"TWO"});
  const auto walk = WalkOf(queue);
  EXPECT_EQ(S_OK, queue->RemoveAll());
  Add(queue, L"LATER", nullptr);
  queue = {};
  EXPECT_EQ(L"ONE TWO ", NextCommands(walk, 3, S_FALSE));
}

TEST_F(QueueObject, ManyEntriesAreHeldAndLetGo) {
  constexpr LONG kMany = 2000;
  const auto queue = QueueOf({});
  for (LONG number = 1; number <= kMany; ++number) {
    const std::wstring text = std::to_wstring(number);
    Add(queue, text.c_str(), (L"key" + text).c_str());
  }
  EXPECT_EQ(kMany, CountOf(queue));
  EXPECT_EQ(std::to_wstring(kMany), CommandOf(ItemOf(queue, Number(kMany))));
  const Text key(L"KEY1999");
  EXPECT_EQ(L"1999", CommandOf(ItemOf(queue, String(key))));
  EXPECT_EQ(S_OK, queue->RemoveAll());
  EXPECT_EQ(0, LiveObjects());
}

}  // namespace
}  // namespace wendrill::com::testing
