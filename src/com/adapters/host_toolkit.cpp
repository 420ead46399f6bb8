#include "com/adapters/host_toolkit.h"

#include <array>

#include "com/adapters/recycled.h"
#include "com/adapters/response_event_sink.h"
#include "com/server/conversions.h"
#include "common/error.h"
#include "common/numeric.h"

namespace wendrill::com {
namespace {

constexpr WORD kCall = DISPATCH_METHOD | DISPATCH_PROPERTYGET;

// An object of the toolkit, whose members are called by name. Each method with a parameter `name` calls the member with
// this name; Text, Received, Number and ObjectAt also convert the result to a C++ type.
class NamedMembers {
 public:
  NamedMembers(Reference<IDispatch> object, KnownNames& names) : object_(std::move(object), names) {}

  IDispatch* Object() const { return object_.Get(); }
  KnownNames& Names() const { return object_.Names(); }

  std::u16string Text(std::u16string_view name) { return TextResult(Object(), object_.IdOf(name)); }
  ReceivedText Received(std::u16string_view name) { return ReceivedResult(Object(), object_.IdOf(name)); }
  std::int32_t Number(std::u16string_view name) { return NumberResult(Object(), object_.IdOf(name)); }
  Reference<IDispatch> ObjectAt(std::u16string_view name) {
    OwnedVariant result;
    Call(name, {}, &result);
    return TakeObject(result);
  }
  void Call(std::u16string_view name, std::span<VARIANT> arguments, VARIANT* result) {
    CallMember(Object(), object_.IdOf(name), kCall, arguments, result);
  }

 private:
  NamedObject object_;
};

bool IsTrue(VARIANT& result) {
  if (V_VT(&result) != VT_BOOL && FAILED(ChangeType(&result, &result, VT_BOOL))) {
    Raise(RunTimeError::TypeMismatch);
  }
  return V_BOOL(&result) != VARIANT_FALSE;
}

// ByReference returns a VARIANT that refers to the given variable (VT_BYREF). Such a VARIANT is passed for a parameter
// that the toolkit declares by reference, because components that were written for early-bound callers reject an
// argument by value.
VARIANT ByReference(BSTR* text) {
  VARIANT variant;
  V_VT(&variant) = VT_BYREF | VT_BSTR;
  V_BSTRREF(&variant) = text;
  return variant;
}
VARIANT ByReference(VARIANT_BOOL* truth) {
  VARIANT variant;
  V_VT(&variant) = VT_BYREF | VT_BOOL;
  V_BOOLREF(&variant) = truth;
  return variant;
}
VARIANT Number(std::int32_t number) {
  VARIANT variant;
  V_VT(&variant) = VT_I4;
  V_I4(&variant) = number;
  return variant;
}
VARIANT Number16(std::int16_t number) {
  VARIANT variant;
  V_VT(&variant) = VT_I2;
  V_I2(&variant) = number;
  return variant;
}

class ToolkitResponse final : public HostResponse {
 public:
  ToolkitResponse(Reference<IDispatch> object, KnownNames& names) : members_(std::move(object), names) {}

  std::u16string Buffer() override { return members_.Text(u"Buffer"); }
  ReceivedText ReceivedBuffer() override { return members_.Received(u"Buffer"); }
  std::u16string HostCommand() override { return members_.Text(u"HostCommand"); }
  std::int32_t ResponseType() override { return members_.Number(u"ResponseType"); }
  std::u16string Text() override { return members_.Text(u"Text"); }
  std::int16_t NumberOfColumns() override { return Narrow16(members_.Number(u"NumberOfColumns")); }
  std::int16_t NumberOfLines() override { return Narrow16(members_.Number(u"NumberOfLines")); }
  std::u16string Line(std::int16_t index) override {
    std::array<VARIANT, 1> arguments{Number16(index)};
    OwnedVariant result;
    members_.Call(u"Line", arguments, &result);
    return ToText(ToValue(result, ForeignObjects(members_.Names())), UsersTextForms());
  }

 private:
  NamedMembers members_;
};

// Implements HostResponse over a response of the toolkit. Returns null when `response` is null (Nothing).
std::shared_ptr<HostResponse> AdaptResponse(Reference<IDispatch> response, KnownNames& names) {
  return response ? MakeRecycled<ToolkitResponse>(std::move(response), names) : nullptr;
}

class ToolkitSession final : public HostSession {
 public:
  ToolkitSession(Reference<IDispatch> object, KnownNames& names) : members_(std::move(object), names) {}

  std::shared_ptr<HostResponse> Send(std::u16string_view entry, bool transmit) override {
    OwnedString text(entry);
    VARIANT_BOOL transmitted = transmit ? VARIANT_TRUE : VARIANT_FALSE;
    // The first argument refers to the BSTR in `text`. The toolkit may replace this BSTR by a new one; `text` owns the
    // new BSTR and frees it.
    std::array<VARIANT, 2> arguments{ByReference(text.Place()), ByReference(&transmitted)};
    OwnedVariant result;
    members_.Call(u"Send", arguments, &result);
    return AdaptResponse(TakeObject(result), members_.Names());
  }

  std::shared_ptr<HostResponse> LastResponse() override {
    return AdaptResponse(members_.ObjectAt(u"LastResponse"), members_.Names());
  }
  std::u16string SessionName() override { return members_.Text(u"SessionName"); }
  ObjectRef HostConnection() override {
    const Reference<IDispatch> connection = members_.ObjectAt(u"HostConnection");
    return connection ? ForeignObjects(members_.Names()).ToCore(connection.Get()) : ObjectRef();
  }
  bool SendKey(KeyCode key) override {
    std::array<VARIANT, 1> arguments{Number(key)};
    OwnedVariant result;
    members_.Call(u"SendKey", arguments, &result);
    return IsTrue(result);
  }
  std::unique_ptr<EventConnection> OnReceivedResponse(std::function<void()> handler) override {
    return ConnectReceivedResponse(members_.Object(), std::move(handler));
  }

 private:
  NamedMembers members_;
};

class ToolkitSessionList final : public HostSessionList {
 public:
  ToolkitSessionList(Reference<IDispatch> object, KnownNames& names) : members_(std::move(object), names) {}

  std::int32_t Count() override { return members_.Number(u"Count"); }

  std::shared_ptr<HostSession> Item(const Value& nameOrIndex) override {
    OwnedVariant key;
    ToVariant(nameOrIndex, &key, ForeignObjects(members_.Names()), ArrayForm::Strings);
    std::array<VARIANT, 1> arguments{key};
    OwnedVariant result;
    members_.Call(u"Item", arguments, &result);
    Reference<IDispatch> session = TakeObject(result);
    if (!session) {
      Raise(RunTimeError::ObjectNotSet);
    }
    return AdaptSession(std::move(session), members_.Names());
  }

  std::vector<std::shared_ptr<HostSession>> Sessions() override {
    std::vector<std::shared_ptr<HostSession>> sessions;
    ForeignObject list(Reference<IDispatch>(members_.Object()), members_.Names());
    const std::unique_ptr<ObjectWalk> walk = list.Walk();
    while (const ObjectRef session = walk->Next()) {
      sessions.push_back(
          AdaptSession(Reference<IDispatch>(static_cast<const ForeignObject&>(*session).Object()), members_.Names()));
    }
    return sessions;
  }

 private:
  NamedMembers members_;
};

class ToolkitAlarmManager final : public AlarmManager {
 public:
  ToolkitAlarmManager(Reference<IDispatch> object, KnownNames& names) : members_(std::move(object), names) {}

  Value LockAlarm(bool lock) override {
    VARIANT_BOOL locked = lock ? VARIANT_TRUE : VARIANT_FALSE;
    std::array<VARIANT, 1> arguments{ByReference(&locked)};
    OwnedVariant result;
    members_.Call(u"LockAlarm", arguments, &result);
    return ToValue(result, ForeignObjects(members_.Names()));
  }

 private:
  NamedMembers members_;
};

class ToolkitTextHelper final : public TextHelperService {
 public:
  ToolkitTextHelper(Reference<IDispatch> object, KnownNames& names) : members_(std::move(object), names) {}

  std::int32_t TerminalReady() override { return members_.Number(u"TerminalReady"); }
  std::int32_t HostReady() override { return members_.Number(u"HostReady"); }
  std::u16string TerminalVersion() override { return members_.Text(u"TerminalVersion"); }
  std::u16string HostDateText(const Value& date) override {
    const ForeignObjects bridge(members_.Names());
    OwnedVariant given;
    ToVariant(date, &given, bridge, ArrayForm::Strings);
    std::array<VARIANT, 1> arguments{given};
    OwnedVariant result;
    members_.Call(u"HostDateText", arguments, &result);
    return ToText(ToValue(result, bridge), UsersTextForms());
  }

 private:
  NamedMembers members_;
};

}  // namespace

std::shared_ptr<HostSessionList> AdaptSessionList(Reference<IDispatch> list, KnownNames& names) {
  return std::make_shared<ToolkitSessionList>(std::move(list), names);
}

std::shared_ptr<HostSession> AdaptSession(Reference<IDispatch> session, KnownNames& names) {
  return std::make_shared<ToolkitSession>(std::move(session), names);
}

std::shared_ptr<AlarmManager> AdaptAlarmManager(Reference<IDispatch> alarm, KnownNames& names) {
  return std::make_shared<ToolkitAlarmManager>(std::move(alarm), names);
}

std::shared_ptr<TextHelperService> AdaptTextHelper(Reference<IDispatch> helper, KnownNames& names) {
  return std::make_shared<ToolkitTextHelper>(std::move(helper), names);
}

}  // namespace wendrill::com
