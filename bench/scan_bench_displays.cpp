#include "scan_bench_displays.h"

#include <utility>
#include <vector>

#include "common/error.h"
#include "common/text.h"
#include "support/kind_references.h"
#include "toolkit/automation_object.h"

namespace wendrill::bench {
namespace {

// A row without the marker of any kind, but with letters with which markers begin.
constexpr TextView kRemark = u"  7 RM PASSENGERS ASKED FOR SEATS SIDE BY SIDE, MEALS ARE CONFIRMED>SEE OFFICE NOTE";

std::u16string Row(TextView line) {
  std::u16string row(line.substr(0, kRowWidth));
  row.resize(kRowWidth, kBlank);
  return row;
}

class Unsupporting : public AutomationObject {
 public:
  Value Get(const Member& /*member*/) override { Raise(RunTimeError::MemberNotSupported); }
  void Put(const Member& /*member*/, const Value& /*value*/) override { Raise(RunTimeError::MemberNotSupported); }
  Value Call(const Member& /*member*/, std::span<const Value> /*arguments*/) override {
    Raise(RunTimeError::MemberNotSupported);
  }
  std::unique_ptr<ObjectWalk> Walk() override { Raise(RunTimeError::MemberNotSupported); }
  bool Is(SegmentType /*type*/) const override { return false; }
};

class RowElement final : public Unsupporting {
 public:
  explicit RowElement(TextView text) : text_(text) {}
  Value Get(const Member& member) override { return member.DispatchName() == u"Text" ? Value(text_) : Value(u"12"); }

 private:
  TextView text_;
};

class RowCollection final : public Unsupporting {
 public:
  explicit RowCollection(TextView display) {
    for (DisplayLines lines(display); !lines.AtEnd();) {
      elements_.push_back(std::make_shared<RowElement>(TrimmedRight(lines.Next())));
    }
  }

  std::unique_ptr<ObjectWalk> Walk() override { return std::make_unique<RowWalk>(elements_); }

 private:
  using Elements = std::vector<ObjectRef>;

  class RowWalk final : public ObjectWalk {
   public:
    explicit RowWalk(const Elements& elements) : elements_(elements) {}
    ObjectRef Next() override { return position_ < elements_.size() ? elements_[position_++] : nullptr; }

   private:
    const Elements& elements_;
    std::size_t position_ = 0;
  };

  Elements elements_;
};

class DisplayedPnr final : public Unsupporting {
 public:
  explicit DisplayedPnr(std::u16string display)
      : display_(std::move(display)), elements_(std::make_shared<RowCollection>(display_)) {}

  Value Get(const Member& member) override {
    return member.DispatchId() == 75 ? Value(display_) : Value(ObjectRef(elements_));
  }

 private:
  std::u16string display_;
  std::shared_ptr<RowCollection> elements_;
};

}  // namespace

std::u16string DisplayOf(const DisplayKind& kind, Hits hits, int rows) {
  const auto& reference = testing::ReferenceOf(kind);
  const std::u16string element = Row(reference.element);
  const std::u16string other = Row(kRemark);
  const TextView lineBreak = reference.isReadInRows ? u"" : u"\r\n";
  std::u16string display;
  for (int row = 0; row < rows; ++row) {
    const bool isElement = hits == Hits::EveryFourth && row % 4 == 3;
    display.append(isElement ? element : other).append(lineBreak);
  }
  return display;
}

ObjectRef PnrOf(std::u16string display) {
  return std::make_shared<DisplayedPnr>(std::move(display));
}

}  // namespace wendrill::bench
