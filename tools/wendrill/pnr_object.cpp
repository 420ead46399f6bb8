#include "pnr_object.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "common/error.h"
#include "toolkit/pnr_members.h"

namespace wendrill::tool {
namespace {

using simulator::DerivedContent;
using simulator::DerivedElement;
using simulator::DerivedHeader;
using simulator::DerivedPnr;
using simulator::PassengerNumbers;

// The base class of the objects below: every member raises RunTimeError::MemberNotSupported. Derived classes override
// the members that they implement.
class Bare : public AutomationObject {
 public:
  Value Get(const Member& /*member*/) override { Raise(RunTimeError::MemberNotSupported); }
  void Put(const Member& /*member*/, const Value& /*value*/) override { Raise(RunTimeError::MemberNotSupported); }
  Value Call(const Member& member, std::span<const Value> /*arguments*/) override { return Get(member); }
  std::unique_ptr<ObjectWalk> Walk() override { Raise(RunTimeError::MemberNotSupported); }
  bool Is(SegmentType /*type*/) const override { return false; }
};

class ListWalk final : public ObjectWalk {
 public:
  explicit ListWalk(std::shared_ptr<const std::vector<ObjectRef>> objects) : objects_(std::move(objects)) {}
  ObjectRef Next() override { return next_ < objects_->size() ? (*objects_)[next_++] : nullptr; }

 private:
  std::shared_ptr<const std::vector<ObjectRef>> objects_;
  std::size_t next_ = 0;
};

class List final : public Bare {
 public:
  explicit List(std::vector<ObjectRef> objects)
      : objects_(std::make_shared<const std::vector<ObjectRef>>(std::move(objects))) {}

  Value Get(const Member& member) override {
    return member.DispatchName() == u"Count" ? Value(static_cast<std::int32_t>(objects_->size())) : Bare::Get(member);
  }
  std::unique_ptr<ObjectWalk> Walk() override { return std::make_unique<ListWalk>(objects_); }

 private:
  std::shared_ptr<const std::vector<ObjectRef>> objects_;
};

// An object that returns the same value for every property.
class Holder final : public Bare {
 public:
  explicit Holder(Value content) : content_(std::move(content)) {}
  Value Get(const Member& /*member*/) override { return content_; }

 private:
  Value content_;
};

ObjectRef AssociationOf(const PassengerNumbers& numbers) {
  std::vector<ObjectRef> passengers;
  for (const std::u16string& number : numbers) {
    passengers.push_back(std::make_shared<Holder>(Value(number)));
  }
  return std::make_shared<Holder>(Value(ObjectRef(std::make_shared<List>(std::move(passengers)))));
}

struct ValueOf {
  Value operator()(std::monostate /*nothing*/) const { return {}; }
  Value operator()(TextView text) const { return text; }
  Value operator()(Date date) const { return date; }
  Value operator()(std::int32_t number) const { return number; }
  Value operator()(const PassengerNumbers& numbers) const { return AssociationOf(numbers); }
};

class Element final : public Bare {
 public:
  explicit Element(const DerivedElement& element) : element_(element) {}

  Value Get(const Member& member) override {
    const auto& properties = element_.type->properties;
    const auto found = std::ranges::find_if(properties, [&member](const simulator::Property& property) {
      return member.IsNamed() ? member.DispatchName() == property.name : member.DispatchId() == property.id;
    });
    if (found == properties.end()) {
      return Bare::Get(member);
    }
    return std::visit(ValueOf{}, element_.contents[static_cast<std::size_t>(found - properties.begin())]);
  }

  bool Is(SegmentType type) const override {
    return element_.kind == (type == SegmentType::Timed ? simulator::SegmentKind::Timed : simulator::SegmentKind::Open);
  }

 private:
  const DerivedElement& element_;
};

class Header final : public Bare {
 public:
  explicit Header(const DerivedHeader& header) : header_(header) {}

  Value Get(const Member& member) override {
    const auto means = [&member](TextView name, std::int32_t id) {
      return member.IsNamed() ? member.DispatchName() == name : member.DispatchId() == id;
    };
    if (means(u"Line", 1) || means(u"Text", 3)) {
      return header_.line;
    }
    if (means(u"ElementNo", 2)) {
      return std::int32_t{0};
    }
    if (means(u"OfficeID", 4)) {
      return header_.officeId;
    }
    return means(u"RecordLocator", 6) ? Value(header_.recordLocator) : Bare::Get(member);
  }

 private:
  const DerivedHeader& header_;
};

class Pnr final : public Bare {
 public:
  Pnr(TextView display, const DerivedPnr& pnr) : display_(display), pnr_(pnr) {}

  Value Get(const Member& member) override {
    if (member.DispatchId() == kDisplayText.DispatchId()) {
      return display_;
    }
    if (member.DispatchId() == kHeader.DispatchId()) {
      return ObjectRef(std::make_shared<Header>(pnr_.header));
    }
    const auto* collection =
        std::ranges::find(simulator::kCollections, member.DispatchId(), &simulator::Collection::id);
    if (collection == std::end(simulator::kCollections)) {
      return Bare::Get(member);
    }
    std::vector<ObjectRef> elements;
    for (const DerivedElement& element : pnr_.elements) {
      if (Holds(*collection, element)) {
        elements.push_back(ElementObject(element));
      }
    }
    return ObjectRef(std::make_shared<List>(std::move(elements)));
  }

 private:
  TextView display_;
  const DerivedPnr& pnr_;
};

}  // namespace

ObjectRef ElementObject(const DerivedElement& element) {
  return std::make_shared<Element>(element);
}

ObjectRef PnrObject(TextView display, const DerivedPnr& pnr) {
  return std::make_shared<Pnr>(display, pnr);
}

}  // namespace wendrill::tool
