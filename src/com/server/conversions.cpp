#include "com/server/conversions.h"

#include <new>

#include "com/server/automation_types.h"
#include "common/error.h"

namespace wendrill::com {
namespace {

constexpr LCID kUsEnglish = MAKELCID(MAKELANGID(LANG_ENGLISH, SUBLANG_ENGLISH_US), SORT_DEFAULT);

class UsersForms final : public TextForms {
 public:
  std::u16string TextOf(double number) const override {
    OwnedString text;
    CheckConversion(VarBstrFromR8(number, LOCALE_USER_DEFAULT, 0, text.Receive()));
    return std::u16string(text.Text());
  }

  std::u16string TextOf(const Date& date) const override {
    OwnedString text;
    CheckConversion(VarBstrFromDate(date.days, LOCALE_USER_DEFAULT, 0, text.Receive()));
    return std::u16string(text.Text());
  }

  // The system's parser accepts further forms of dates, not only the form that TextOf produces. So the parsed date is
  // formatted again: DateOf returns the date only when the formatted date equals `text`, otherwise nullopt.
  std::optional<Date> DateOf(std::u16string_view text) const override {
    const std::u16string terminated(text);
    Date date;
    const HRESULT status =
        VarDateFromStr(const_cast<LPOLESTR>(WideOf(terminated.c_str())), LOCALE_USER_DEFAULT, 0, &date.days);
    return SUCCEEDED(status) && TextOf(date) == text ? std::optional(date) : std::nullopt;
  }
};

}  // namespace

HRESULT ChangeType(VARIANT* target, const VARIANT* source, VARTYPE type) {
  const bool toText = type == VT_BSTR;
  return VariantChangeTypeEx(target, const_cast<VARIANT*>(source), toText ? LOCALE_USER_DEFAULT : kUsEnglish,
                             toText ? VARIANT_ALPHABOOL : VARIANT_ALPHABOOL | VARIANT_NOUSEROVERRIDE, type);
}

void CheckConversion(HRESULT status) {
  switch (status) {
    case S_OK:
      return;
    case E_OUTOFMEMORY:
      throw std::bad_alloc();
    case E_INVALIDARG:
      Raise(RunTimeError::InvalidCall);
    case DISP_E_OVERFLOW:
      Raise(RunTimeError::Overflow);
    default:
      Raise(RunTimeError::TypeMismatch);
  }
}

const TextForms& UsersTextForms() {
  static const UsersForms forms;
  return forms;
}

}  // namespace wendrill::com
