#include "pnr/index.h"

#include "common/error.h"

namespace wendrill {
namespace {

Value Read(ParamBag& bag, IndexForm form) {
  Value index = bag.Get(kIndexKey);
  return form == IndexForm::ConvertedFirst ? Value(ToInt16(index)) : index;
}

}  // namespace

Index::Index(ParamBag& bag, IndexForm form) : form_(form), value_(Read(bag, form)) {}

bool Index::IsBelow(std::int16_t count) const {
  return ToDouble(value_) < count;
}

void Index::RequireBelow(std::int16_t count, std::int32_t number) const {
  if (!IsBelow(count)) {
    RaiseOwn(number);
  }
}

std::int16_t Index::Position() const {
  return form_ == IndexForm::ComparedFirstConvertedAsText ? ToInt16ViaText(value_) : ToInt16(value_);
}

}  // namespace wendrill
