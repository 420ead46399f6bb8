#include "stand_in.h"

#include <algorithm>
#include <cwctype>

namespace wendrill::com::testing {
namespace {

constexpr DISPID kFirstName = 10000;  // beyond every identifier of the object model
constexpr DISPID kRetrieveCurrent = 80;
constexpr DISPID kRetrieve = 81;
constexpr wchar_t kSource[] = L"PnrStandIn";

// What the objects below have in common.
template <typename Interface>
class Object : public Interface {
 public:
  Object() { ++TheStandIn().living; }
  Object(const Object&) = delete;
  Object& operator=(const Object&) = delete;

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID wanted, void** object) override {
    const bool known = wanted == IID_IUnknown || wanted == __uuidof(Interface);
    *object = known ? static_cast<Interface*>(this) : nullptr;
    if (known) {
      AddRef();
    }
    return known ? S_OK : E_NOINTERFACE;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }
  ULONG STDMETHODCALLTYPE Release() override {
    const ULONG left = --references_;
    if (left == 0) {
      delete this;
    }
    return left;
  }

 protected:
  virtual ~Object() { --TheStandIn().living; }

 private:
  ULONG references_ = 1;
};

class Dispatch : public Object<IDispatch> {
 public:
  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override {
    *count = 0;
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR* names, UINT, LCID, DISPID* ids) override {
    *ids = TheStandIn().IdOf(*names);
    return S_OK;
  }
};

IDispatch* NewObject(std::shared_ptr<Node> node);

class Items final : public Object<IEnumVARIANT> {
 public:
  explicit Items(std::shared_ptr<Node> collection) : collection_(std::move(collection)) {}

  HRESULT STDMETHODCALLTYPE Next(ULONG count, VARIANT* elements, ULONG* fetched) override {
    ULONG given = 0;
    for (; given < count && next_ < collection_->items.size(); ++given) {
      V_DISPATCH(&elements[given]) = NewObject(collection_->items[next_++]);
      V_VT(&elements[given]) = VT_DISPATCH;
    }
    if (fetched != nullptr) {
      *fetched = given;
    }
    return given == count ? S_OK : S_FALSE;
  }
  HRESULT STDMETHODCALLTYPE Skip(ULONG) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE Reset() override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE Clone(IEnumVARIANT**) override { return E_NOTIMPL; }

 private:
  std::shared_ptr<Node> collection_;
  std::size_t next_ = 0;
};

void SetNumber(VARIANT* result, LONG number) {
  V_VT(result) = VT_I4;
  V_I4(result) = number;
}

HRESULT FailWith(const Answer& answer, EXCEPINFO* exception) {
  if (!answer.description || exception == nullptr) {
    return answer.status;
  }
  *exception = EXCEPINFO{};
  exception->scode = answer.status;
  exception->bstrSource = SysAllocString(kSource);
  if (!answer.description->empty()) {
    exception->bstrDescription = SysAllocString(answer.description->c_str());
  }
  return DISP_E_EXCEPTION;
}

class PnrObject final : public Dispatch {
 public:
  explicit PnrObject(std::shared_ptr<Node> node) : node_(std::move(node)) {}

  HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS*, VARIANT* result, EXCEPINFO* exception,
                                   UINT*) override {
    const std::wstring member = TheStandIn().MemberOf(id);
    TheStandIn().reads.push_back(node_->path.empty() ? member : node_->path + L"." + member);
    const auto found = node_->members.find(member);
    if (found != node_->members.end()) {
      return Give(found->second, result, exception);
    }
    if (node_->isCollection && member == L"Count") {
      SetNumber(result, static_cast<LONG>(node_->items.size()));
      return S_OK;
    }
    if (node_->isCollection && id == DISPID_NEWENUM) {
      V_UNKNOWN(result) = new Items(node_);
      V_VT(result) = VT_UNKNOWN;
      return S_OK;
    }
    if (node_->path.empty() && (id == kRetrieveCurrent || id == kRetrieve)) {
      SetNumber(result, 0);
      return S_OK;
    }
    return DISP_E_MEMBERNOTFOUND;
  }

 private:
  static HRESULT Give(const Answer& answer, VARIANT* result, EXCEPINFO* exception) {
    if (FAILED(answer.status)) {
      return FailWith(answer, exception);
    }
    if (answer.object) {
      V_DISPATCH(result) = NewObject(answer.object);
      V_VT(result) = VT_DISPATCH;
      return S_OK;
    }
    return VariantCopy(result, const_cast<OwnedVariant*>(&answer.value));
  }

  std::shared_ptr<Node> node_;
};

IDispatch* NewObject(std::shared_ptr<Node> node) {
  return new PnrObject(std::move(node));
}

std::wstring TextOfArgument(const VARIANT& argument) {
  OwnedVariant text;
  VariantChangeType(&text, const_cast<VARIANT*>(&argument), 0, VT_BSTR);
  return V_VT(&text) == VT_BSTR ? std::wstring(V_BSTR(&text), SysStringLen(V_BSTR(&text))) : std::wstring();
}

LONG NumberOfArgument(const VARIANT& argument) {
  OwnedVariant number;
  VariantChangeType(&number, const_cast<VARIANT*>(&argument), 0, VT_I4);
  return V_VT(&number) == VT_I4 ? V_I4(&number) : E_INVALIDARG;
}

class Control final : public Dispatch {
 public:
  // It is not one of the PNR's objects.
  Control() { --TheStandIn().living; }
  ~Control() override { ++TheStandIn().living; }

  HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS* given, VARIANT* result, EXCEPINFO*,
                                   UINT*) override {
    StandIn& standIn = TheStandIn();
    const std::wstring member = standIn.MemberOf(id);
    const auto argument = [given](UINT n) -> const VARIANT& { return given->rgvarg[given->cArgs - n]; };
    if (member == L"Answer" && given->cArgs == 2) {
      Answer& answer = standIn.AnswerAt(TextOfArgument(argument(1)));
      answer.status = S_OK;
      return VariantCopyInd(&answer.value, const_cast<VARIANT*>(&argument(2)));
    }
    if (member == L"Fail" && (given->cArgs == 2 || given->cArgs == 3)) {
      Answer& answer = standIn.AnswerAt(TextOfArgument(argument(1)));
      answer.status = NumberOfArgument(argument(2));
      answer.description = given->cArgs == 3 ? std::optional(TextOfArgument(argument(3))) : std::nullopt;
      return S_OK;
    }
    if (member == L"Forget") {
      standIn.Forget();
      return S_OK;
    }
    if (member == L"Living" && result != nullptr) {
      SetNumber(result, standIn.living);
      return S_OK;
    }
    if (member == L"Reads" && result != nullptr) {
      std::wstring lines;
      for (const std::wstring& read : std::exchange(standIn.reads, {})) {
        lines += read + L"\r\n";
      }
      V_BSTR(result) = SysAllocStringLen(lines.data(), static_cast<UINT>(lines.size()));
      V_VT(result) = VT_BSTR;
      return S_OK;
    }
    return DISP_E_MEMBERNOTFOUND;
  }
};

bool IsNumber(const std::wstring& text) {
  return !text.empty() && std::ranges::all_of(text, [](wchar_t c) { return std::iswdigit(c) != 0; });
}

}  // namespace

StandIn& TheStandIn() {
  static StandIn standIn;
  return standIn;
}

// A step such as Passengers[0], 44 or 24.
Node& StandIn::ItemAt(Node& from, const std::wstring& step) {
  const std::size_t bracket = step.find(L'[');
  const std::wstring member = step.substr(0, bracket);
  Answer& answer = from.members[member];
  if (!answer.object) {
    answer.object = std::make_shared<Node>();
    answer.object->path = from.path.empty() ? member : from.path + L"." + member;
  }
  Node& object = *answer.object;
  if (bracket == std::wstring::npos) {
    return object;
  }
  object.isCollection = true;
  const auto place = static_cast<std::size_t>(std::stoi(step.substr(bracket + 1)));
  while (object.items.size() <= place) {
    object.items.push_back(std::make_shared<Node>());
    object.items.back()->path = object.path + L"[" + std::to_wstring(object.items.size() - 1) + L"]";
  }
  return *object.items[place];
}

Answer& StandIn::AnswerAt(const std::wstring& path) {
  Node* node = pnr_.get();
  std::size_t begin = 0;
  for (std::size_t dot = path.find(L'.'); dot != std::wstring::npos; dot = path.find(L'.', begin)) {
    node = &ItemAt(*node, path.substr(begin, dot - begin));
    begin = dot + 1;
  }
  return node->members[path.substr(begin)];
}

void StandIn::Forget() {
  pnr_ = std::make_shared<Node>();
  reads.clear();
}

IDispatch* StandIn::NewPnr() {
  return NewObject(pnr_);
}

DISPID StandIn::IdOf(const std::wstring& member) {
  if (IsNumber(member)) {
    return std::stoi(member);
  }
  const auto known = std::ranges::find(names_, member);
  if (known != names_.end()) {
    return kFirstName + static_cast<DISPID>(known - names_.begin());
  }
  names_.push_back(member);
  return kFirstName + static_cast<DISPID>(names_.size()) - 1;
}

std::wstring StandIn::MemberOf(DISPID id) const {
  if (id == DISPID_NEWENUM) {
    return L"_NewEnum";
  }
  const auto place = static_cast<std::size_t>(id - kFirstName);
  return id >= kFirstName && place < names_.size() ? names_[place] : std::to_wstring(id);
}

IDispatch* NewControl() {
  return new Control();
}

}  // namespace wendrill::com::testing
