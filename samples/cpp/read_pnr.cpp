// Reads a PNR from C++, early bound: sends an entry, retrieves the PNR, counts what it holds and shows its names.
//
//   script/wine build/win32/bin/read_pnr.exe [LOCATOR]    beside the simulator
//   read_pnr.exe [LOCATOR]                                on a desktop with Quillet, the library registered
//
// Entry and locator are those of the simulator's built-in scenario; put your own in their place. What fails is told on
// standard error, with the number of the documentation, and the status is 1.
//
// To build it on its own: a C++17 compiler for 32-bit Windows (no 64-bit program can load the library), with MinGW-w64
// the option -municode, the system's libraries ole32, oleaut32 and uuid, and wendrill23.h, which the IDL compiler makes
// from idl/wendrill23.idl. What the program does stands at the end; what is before it is what any client needs.
#include <windows.h>

#include <cstdio>
#include <cwchar>
#include <iterator>
#include <string>
#include <utility>

#include "wendrill23.h"

namespace {

constexpr wchar_t kEntry[] = L"AN15JUNPARLON";
constexpr wchar_t kLocator[] = L"ABC123";

// What a call that failed has told.
struct Failure {
  HRESULT status;
  std::wstring source;
  std::wstring description;
};

// --- Owners: each gives back what it holds. Receive() is where a call puts its result; the owner must be empty then.

BSTR NewString(const std::wstring& text) {
  const BSTR string = SysAllocStringLen(text.data(), static_cast<UINT>(text.size()));
  if (string == nullptr) throw Failure{E_OUTOFMEMORY, {}, L"out of memory"};
  return string;
}

// The null string is the empty one.
std::wstring WideOf(BSTR string) {
  return string == nullptr ? L"" : std::wstring(string, SysStringLen(string));
}

class Text {
 public:
  Text() = default;
  explicit Text(const std::wstring& text) : string_(NewString(text)) {}
  Text(const Text&) = delete;
  Text& operator=(const Text&) = delete;
  ~Text() { SysFreeString(string_); }

  BSTR Get() const { return string_; }
  BSTR* Receive() { return &string_; }
  std::wstring Wide() const { return WideOf(string_); }

 private:
  BSTR string_ = nullptr;
};

class Value {
 public:
  Value() { VariantInit(&variant_); }
  explicit Value(SHORT number) : Value() {
    V_VT(&variant_) = VT_I2;
    V_I2(&variant_) = number;
  }
  explicit Value(const std::wstring& text) : Value() {
    V_BSTR(&variant_) = NewString(text);
    V_VT(&variant_) = VT_BSTR;
  }
  Value(const Value&) = delete;
  Value& operator=(const Value&) = delete;
  ~Value() { VariantClear(&variant_); }

  const VARIANT& Get() const { return variant_; }
  VARIANT* Receive() { return &variant_; }

 private:
  VARIANT variant_;
};

template <typename Interface>
class Object {
 public:
  Object() = default;
  Object(Object&& other) noexcept : pointer_(std::exchange(other.pointer_, nullptr)) {}
  Object& operator=(Object&&) = delete;
  ~Object() {
    if (pointer_ != nullptr) pointer_->Release();
  }

  Interface* Get() const { return pointer_; }
  Interface* operator->() const { return pointer_; }
  Interface** Receive() { return &pointer_; }

  // For a parameter that hands an object in and may hand another one out in its place.
  Interface** InOut() { return &pointer_; }

 private:
  Interface* pointer_ = nullptr;
};

// --- Errors

// A failed call leaves on its thread who failed and why; whoever takes that, takes it away. Where nothing is left, the
// caller's own words are used.
void Check(HRESULT status, const std::wstring& otherwise = L"the call failed") {
  if (SUCCEEDED(status)) return;
  Text source;
  Text description;
  Object<IErrorInfo> told;
  if (GetErrorInfo(0, told.Receive()) != S_OK) throw Failure{status, {}, otherwise};
  told->GetSource(source.Receive());
  told->GetDescription(description.Receive());
  throw Failure{status, source.Wide(), description.Wide()};
}

// A call by dispatch tells it in a structure of its own, whose strings are the caller's to free.
[[noreturn]] void Throw(EXCEPINFO& told) {
  if (told.pfnDeferredFillIn != nullptr) told.pfnDeferredFillIn(&told);
  Text source;
  Text description;
  Text help;
  *source.Receive() = told.bstrSource;
  *description.Receive() = told.bstrDescription;
  *help.Receive() = told.bstrHelpFile;
  const HRESULT status = told.scode != S_OK ? told.scode : static_cast<HRESULT>(0x800A0000 + told.wCode);
  throw Failure{status, source.Wide(), description.Wide()};
}

// The numbers of the library and of the run time travel as 0x800A0000 + number. Any other status is the number itself.
std::wstring NumberOf(HRESULT status) {
  const auto bits = static_cast<unsigned long>(status);
  if (bits >> 16 == 0x800A) return std::to_wstring(bits & 0xFFFF);
  wchar_t digits[16];
  std::swprintf(digits, std::size(digits), L"0x%08lX", bits);
  return digits;
}

// --- Output

void PrintLine(std::FILE* stream, const std::wstring& line) {
  const UINT encoding = GetConsoleOutputCP();
  const auto length = static_cast<int>(line.size());
  const int bytes = WideCharToMultiByte(encoding, 0, line.data(), length, nullptr, 0, nullptr, nullptr);
  std::string encoded(static_cast<std::size_t>(bytes), '\0');
  WideCharToMultiByte(encoding, 0, line.data(), length, encoded.data(), bytes, nullptr, nullptr);
  std::fprintf(stream, "%s\n", encoded.c_str());
}

void PrintLine(const std::wstring& line) {
  PrintLine(stdout, line);
}

void PrintFailure(const Failure& failure) {
  std::wstring line = L"Error " + NumberOf(failure.status);
  if (!failure.source.empty()) line += L" of " + failure.source;
  PrintLine(stderr, line + L": " + failure.description);
}

// --- Objects

// Makes the thread an apartment of its own, in which the library lives; a thread without one gets its errors without
// their texts. Objects must be gone before it is.
class Apartment {
 public:
  Apartment() { Check(CoInitialize(nullptr)); }
  Apartment(const Apartment&) = delete;
  Apartment& operator=(const Apartment&) = delete;
  ~Apartment() { CoUninitialize(); }
};

template <typename Interface>
Object<Interface> Create(const wchar_t* name) {
  const std::wstring otherwise = std::wstring(L"cannot create ") + name;
  CLSID id;
  Check(CLSIDFromProgID(name, &id), otherwise);
  Object<Interface> object;
  Check(CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, IID_PPV_ARGS(object.Receive())), otherwise);
  return object;
}

// What a property holds: Read(pnr, &_CPNR::get_RecordLocator).
template <typename Interface>
std::wstring Read(const Object<Interface>& object, HRESULT (STDMETHODCALLTYPE Interface::*property)(BSTR*)) {
  Text text;
  Check((object.Get()->*property)(text.Receive()));
  return text.Wide();
}

template <typename Interface>
SHORT Read(const Object<Interface>& object, HRESULT (STDMETHODCALLTYPE Interface::*property)(SHORT*)) {
  SHORT number = 0;
  Check((object.Get()->*property)(&number));
  return number;
}

// A parameter bag, used as a script uses it: its values stand behind its default member, by key. How the terminal's bag
// hands them out is the terminal's matter; a Scripting.Dictionary, which has them there, may take its place.
class Bag {
 public:
  // A new one that asks for the element at a position, counted from 0. Each call gets its own: what a member does not
  // put stays as an earlier call has left it.
  explicit Bag(SHORT index) : object_(Create<IDispatch>(L"Pellorin.ParamBag")) {
    const Value key(L"intKeyIndex");
    const Value position(index);
    VARIANT arguments[] = {position.Get(), key.Get()};  // the last one comes first
    DISPID assigned = DISPID_PROPERTYPUT;
    Call(DISPATCH_PROPERTYPUT, {arguments, &assigned, 2, 1}, nullptr);
  }

  IDispatch** InOut() { return object_.InOut(); }

  // The value under a key as text; empty when there is none.
  std::wstring operator[](const wchar_t* key) const {
    const Value name(key);
    VARIANT arguments[] = {name.Get()};
    Value found;
    Call(DISPATCH_PROPERTYGET, {arguments, nullptr, 1, 0}, found.Receive());
    Check(VariantChangeType(found.Receive(), found.Receive(), 0, VT_BSTR));
    return WideOf(V_BSTR(&found.Get()));
  }

 private:
  void Call(WORD kind, DISPPARAMS parameters, VARIANT* result) const {
    EXCEPINFO told{};
    const HRESULT status =
        object_->Invoke(DISPID_VALUE, IID_NULL, LOCALE_USER_DEFAULT, kind, &parameters, result, &told, nullptr);
    if (status == DISP_E_EXCEPTION) Throw(told);
    Check(status);
  }

  Object<IDispatch> object_;
};

// --- The program

// A response is one text of rows of the screen's width, without line breaks.
void ShowRows(const std::wstring& response, SHORT columns) {
  for (std::size_t start = 0; columns > 0 && start < response.size(); start += static_cast<std::size_t>(columns)) {
    std::wstring row = response.substr(start, static_cast<std::size_t>(columns));
    row.erase(row.find_last_not_of(L' ') + 1);
    if (!row.empty()) PrintLine(row);
  }
}

// One record for each name. CPNR has the members for records in an interface of their own.
void ShowNames(const Object<_CPNR>& pnr) {
  Object<_IGet> records;
  Check(pnr->QueryInterface(IID_PPV_ARGS(records.Receive())));
  const SHORT count = Read(pnr, &_CPNR::get_NameElementsCount);
  for (SHORT index = 0; index < count; ++index) {
    Bag bag(index);
    Object<IDispatch> nothing;  // most of these members return none; the values are in the bag
    Check(records->NameElement(bag.InOut(), nothing.Receive()));
    const std::wstring type = bag[L"strKeyPapType"];  // adult, child, infant: not every name says
    PrintLine(L"  " + bag[L"strKeyElementNr"] + L" " + bag[L"strKeyLastName"] + L" " + bag[L"strKeyInitial"] +
              (type.empty() ? L"" : L" " + type));
  }
}

void ShowPnr(const Object<_CPNR>& pnr) {
  PrintLine(L"PNR " + Read(pnr, &_CPNR::get_RecordLocator) + L", made by " + Read(pnr, &_CPNR::get_CreationOfficeID) +
            L" on " + Read(pnr, &_CPNR::get_CreationDate));
  PrintLine(std::to_wstring(Read(pnr, &_CPNR::get_NameElementsCount)) + L" names, " +
            std::to_wstring(Read(pnr, &_CPNR::get_AllAirSegmentsCount)) + L" flights, " +
            std::to_wstring(Read(pnr, &_CPNR::get_RemarkElementsCount)) + L" remarks");
  ShowNames(pnr);
}

void ReadPnr(const std::wstring& locator) {
  const auto quillet = Create<_CQuillet>(L"Wendrill23.CQuillet");  // connects to the running session
  const auto pnr = Create<_CPNR>(L"Wendrill23.CPNR");              // reads the PNR that was retrieved last

  PrintLine(std::wstring(L"> ") + kEntry);
  Text response;
  Check(quillet->SendCommand(Text(kEntry).Get(), response.Receive()));
  ShowRows(response.Wide(), Read(quillet, &_CQuillet::get_LastNumberOfColumns));

  VARIANT_BOOL found = VARIANT_FALSE;
  Check(quillet->RetrieveRecLoc(Text(locator).Get(), &found));
  if (found != VARIANT_FALSE) {
    ShowPnr(pnr);
  } else {
    PrintLine(L"There is no PNR " + locator + L".");  // no error but an answer
  }
}

}  // namespace

int wmain(int count, wchar_t** arguments) {
  try {
    const Apartment apartment;
    ReadPnr(count > 1 ? arguments[1] : kLocator);
    return 0;
  } catch (const Failure& failure) {
    PrintFailure(failure);
    return 1;
  }
}
