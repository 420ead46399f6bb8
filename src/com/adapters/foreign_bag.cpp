#include "com/adapters/foreign_bag.h"

#include <array>

#include "com/server/boundary.h"
#include "platform.h"

namespace wendrill::com {
namespace {

class AdaptedBag : public ParamBag {
 public:
  AdaptedBag(Reference<IDispatch> object, KnownNames& names) : object_(std::move(object)), bridge_(names) {}

  IDispatch* Object() const { return object_.Get(); }

 protected:
  const ForeignObjects& Bridge() const { return bridge_; }

 private:
  Reference<IDispatch> object_;
  ForeignObjects bridge_;
};

// A parameter bag that is called through the vtable of _ParamBag. The methods Set and Get are the first two slots after
// the slots of IDispatch.
class SlotBag final : public AdaptedBag {
 public:
  SlotBag(Reference<IDispatch> object, Reference<_ParamBag> bag, KnownNames& names)
      : AdaptedBag(std::move(object), names), bag_(std::move(bag)) {}

  void Set(std::u16string_view key, const Value& value) override {
    const OwnedString name(key);
    OwnedVariant given;
    ToVariant(value, &given, Bridge(), ArrayForm::Strings);
    CheckCall(bag_->Set(name.Get(), given), bag_.Get());
  }

  Value Get(std::u16string_view key) override {
    // The BSTR of the key is kept for the next call: most accessors read the same key at every step of a loop.
    if (keyRead_.Text() != key) {
      *keyRead_.Receive() = NewString(key);
    }
    Reference<_ParamBagEntry> entry;
    CheckCall(bag_->Get(keyRead_.Get(), entry.Receive()), bag_.Get());
    if (!entry) {
      return {};
    }
    OwnedVariant value;
    CheckCall(entry->get_Value(&value), entry.Get());
    return ToValue(value, Bridge());
  }

 private:
  Reference<_ParamBag> bag_;
  OwnedString keyRead_;  // the key of the last Get
};

// A parameter bag that is called through its default member (DISPID_VALUE), with the key as the argument.
class DictionaryBag final : public AdaptedBag {
 public:
  using AdaptedBag::AdaptedBag;

  void Set(std::u16string_view key, const Value& value) override {
    OwnedVariant name;
    OwnedVariant given;
    ToVariant(key, &name, Bridge(), ArrayForm::Variants);
    ToVariant(value, &given, Bridge(), ArrayForm::Variants);
    std::array<VARIANT, 2> arguments{name, given};
    CallMember(Object(), DISPID_VALUE, DISPATCH_PROPERTYPUT, arguments, nullptr);
  }

  Value Get(std::u16string_view key) override {
    // Get checks whether the key exists, because reading a missing key would add the key to a scripting dictionary.
    if (!Exists(key)) {
      return {};
    }
    OwnedVariant value;
    ReadWithKey(DISPID_VALUE, key, &value);
    return ToValue(value, Bridge());
  }

 private:
  // Whether the object has the key, as its method Exists reports. True when the object has no method Exists.
  bool Exists(std::u16string_view key) {
    auto* asked = const_cast<LPOLESTR>(L"Exists");
    DISPID id = DISPID_UNKNOWN;
    if (FAILED(Object()->GetIDsOfNames(IID_NULL, &asked, 1, LOCALE_USER_DEFAULT, &id))) {
      return true;
    }
    OwnedVariant exists;
    ReadWithKey(id, key, &exists);
    return ToBoolean(ToValue(exists, Bridge()));
  }

  void ReadWithKey(DISPID id, std::u16string_view key, VARIANT* result) {
    OwnedVariant name;
    ToVariant(key, &name, Bridge(), ArrayForm::Variants);
    std::array<VARIANT, 1> arguments{name};
    CallMember(Object(), id, DISPATCH_METHOD | DISPATCH_PROPERTYGET, arguments, result);
  }
};

}  // namespace

ParamBagRef AdaptParamBag(IDispatch* object, KnownNames& names) {
  if (object == nullptr) {
    return {};
  }
  const Reference<IDispatch> held(object);
  if (auto bag = held.As<_ParamBag>()) {
    return std::make_shared<SlotBag>(held, std::move(bag), names);
  }
  return std::make_shared<DictionaryBag>(held, names);
}

IDispatch* ObjectBehind(const ParamBagRef& bag) {
  return bag ? static_cast<const AdaptedBag&>(*bag).Object() : nullptr;
}

}  // namespace wendrill::com
