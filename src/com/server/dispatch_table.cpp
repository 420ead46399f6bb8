#include "com/server/dispatch_table.h"

#include <algorithm>

#include "com/server/boundary.h"
#include "com/server/variant_values.h"

namespace wendrill::com {
namespace {

// The character in lower case if it is an ASCII capital letter; any other character unchanged. Names are compared after
// this conversion, so that case is ignored. Names consist only of ASCII letters, digits and underscores.
constexpr wchar_t Folded(wchar_t character) {
  return character >= L'A' && character <= L'Z' ? static_cast<wchar_t>(character + (L'a' - L'A')) : character;
}

bool SameName(std::wstring_view left, const wchar_t* right) {
  for (const wchar_t character : left) {
    if (Folded(character) != Folded(*right)) {
      return false;
    }
    ++right;
  }
  return *right == L'\0';
}

std::uint32_t HashOf(std::wstring_view name) {
  std::uint32_t hash = 2166136261U;
  for (const wchar_t character : name) {
    hash = (hash ^ Folded(character)) * 16777619U;
  }
  return hash ^ (hash >> 15);
}

bool IsPut(WORD flags) {
  return (flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) != 0;
}

// Whether a DISPPARAMS is consistent: it has at least as many arguments as named arguments, and an array pointer is
// null only when the array is empty.
bool IsWhole(const DISPPARAMS& given) {
  return given.cNamedArgs <= given.cArgs && (given.cArgs == 0 || given.rgvarg != nullptr) &&
         (given.cNamedArgs == 0 || given.rgdispidNamedArgs != nullptr);
}

// Stores the caller's arguments in `ordered`, from first to last; the caller passes them in reverse order and may name
// some of them by DISPID. An omitted argument becomes null. For a property put, the new value (named
// DISPID_PROPERTYPUT) comes last. `count` receives the position of the last argument, counted from 1; 0 when there is
// no argument.
//
// Returns one of these failures:
// - DISP_E_BADPARAMCOUNT: more than kMaximumParameters arguments, or a property put without arguments.
// - DISP_E_PARAMNOTFOUND: a named argument for a parameter that does not exist or has an argument already. The DISPID
//   of a parameter is its index, counted from 0; `allowed` is the number of parameters, including the new value.
// - E_INVALIDARG: an argument that is a reference (VT_BYREF) which does not lead to a variable.
// With DISP_E_PARAMNOTFOUND and E_INVALIDARG, `bad` receives the index of the argument in the caller's array (rgvarg),
// counted from 0.
HRESULT Order(const DISPPARAMS& given, bool isPut, UINT allowed, OrderedArguments& ordered, UINT* count, UINT* bad) {
  const UINT named = given.cNamedArgs;
  const UINT positional = given.cArgs - named;
  if (given.cArgs > kMaximumParameters) {
    return DISP_E_BADPARAMCOUNT;
  }
  *count = positional;
  for (UINT index = 0; index < positional; ++index) {
    ordered[index] = &given.rgvarg[given.cArgs - 1 - index];
  }
  for (UINT index = 0; index < named; ++index) {
    const DISPID id = given.rgdispidNamedArgs[index];
    const bool isNewValue = isPut && id == DISPID_PROPERTYPUT;
    const UINT place = isNewValue ? positional : static_cast<UINT>(id);
    if ((!isNewValue && place >= allowed) || ordered[place] != nullptr) {
      *bad = index;
      return DISP_E_PARAMNOTFOUND;
    }
    ordered[place] = &given.rgvarg[index];
    *count = std::max(*count, place + 1);
  }
  if (isPut && named == 0 && positional == 0) {
    return DISP_E_BADPARAMCOUNT;
  }
  for (VARIANTARG*& argument : ordered) {
    if (argument != nullptr && !EndsInAVariable(*argument)) {
      *bad = static_cast<UINT>(argument - given.rgvarg);
      return E_INVALIDARG;
    }
    if (argument != nullptr && IsOmitted(argument)) {
      argument = nullptr;
    }
  }
  return S_OK;
}

bool HasRequired(const OrderedArguments& ordered, UINT required) {
  return std::all_of(ordered.begin(), ordered.begin() + required,
                     [](VARIANTARG* argument) { return argument != nullptr; });
}

// Handles a read, with arguments, of a property that has no parameters and returns an object: reads the property and
// passes the arguments to the default member of the object. Returns DISP_E_BADPARAMCOUNT when the value of the property
// is Nothing.
HRESULT CallDefaultMember(void* object, const DispatchRow& row, WORD flags, DISPPARAMS* arguments, VARIANT* result,
                          EXCEPINFO* exception, UINT* argument) {
  OwnedVariant given;
  UINT badArgument = kNoArgument;
  const HRESULT status = row.call(object, OrderedArguments{}, &given, &badArgument);
  if (FAILED(status)) {
    return FillException(status, exception);
  }
  if (V_VT(&given) != VT_DISPATCH || V_DISPATCH(&given) == nullptr) {
    return DISP_E_BADPARAMCOUNT;
  }
  return V_DISPATCH(&given)->Invoke(DISPID_VALUE, IID_NULL, LOCALE_USER_DEFAULT, flags, arguments, result, exception,
                                    argument);
}

}  // namespace

DispatchTable::DispatchTable(std::span<const DispatchRow> rows, const DispatchTable* further)
    : rows_(rows), further_(further) {
  std::size_t places = 8;
  while (places < rows.size() * 2) {
    places *= 2;
  }
  byName_.resize(places);
  const auto idLess = [](const DispatchRow& left, const DispatchRow& right) { return left.id < right.id; };
  const auto [first, last] = std::minmax_element(rows.begin(), rows.end(), idLess);
  firstId_ = first->id;
  byId_.resize(static_cast<std::size_t>(last->id - first->id) + 1);
  for (std::size_t row = 0; row < rows.size(); ++row) {
    const auto entry = static_cast<std::uint8_t>(row + 1);
    byId_[static_cast<std::size_t>(rows[row].id - firstId_)] = entry;
    std::size_t place = HashOf(rows[row].name) & (places - 1);
    while (byName_[place] != 0) {
      place = (place + 1) & (places - 1);
    }
    byName_[place] = entry;
  }
}

const DispatchRow* DispatchTable::RowOf(DISPID id) const {
  const auto offset = static_cast<std::uint32_t>(id) - static_cast<std::uint32_t>(firstId_);
  if (offset < byId_.size() && byId_[offset] != 0) {
    return &rows_[byId_[offset] - 1U];
  }
  return further_ == nullptr ? nullptr : further_->RowOf(id);
}

const DispatchRow* DispatchTable::RowOf(std::wstring_view name) const {
  const std::size_t mask = byName_.size() - 1;
  for (std::size_t place = HashOf(name) & mask; byName_[place] != 0; place = (place + 1) & mask) {
    const DispatchRow& row = rows_[byName_[place] - 1U];
    if (SameName(name, row.name)) {
      return &row;
    }
  }
  return further_ == nullptr ? nullptr : further_->RowOf(name);
}

HRESULT DispatchTable::IdsOfNames(LPOLESTR* names, UINT count, DISPID* ids) const {
  if (names == nullptr || ids == nullptr || count == 0) {
    return E_INVALIDARG;
  }
  std::fill_n(ids, count, DISPID_UNKNOWN);
  const DispatchRow* row = names[0] == nullptr ? nullptr : RowOf(std::wstring_view(names[0]));
  if (row == nullptr) {
    return DISP_E_UNKNOWNNAME;
  }
  ids[0] = row->id;
  HRESULT status = S_OK;
  for (UINT index = 1; index < count; ++index) {
    const auto parameter = std::find_if(row->parameters.begin(), row->parameters.end(), [&](const wchar_t* name) {
      return name != nullptr && names[index] != nullptr && SameName(names[index], name);
    });
    if (parameter == row->parameters.end()) {
      status = DISP_E_UNKNOWNNAME;
    } else {
      ids[index] = static_cast<DISPID>(parameter - row->parameters.begin());
    }
  }
  return status;
}

HRESULT DispatchTable::Invoke(void* object, DISPID id, WORD flags, DISPPARAMS* arguments, VARIANT* result,
                              EXCEPINFO* exception, UINT* argument) const {
  const DispatchRow* row = RowOf(id);
  if (row == nullptr) {
    return DISP_E_MEMBERNOTFOUND;
  }
  if (arguments == nullptr || !IsWhole(*arguments)) {
    return E_INVALIDARG;
  }
  if (result != nullptr) {
    VariantInit(result);
  }
  const bool isPut = IsPut(flags);
  const Invoker invoker = isPut ? row->put : row->call;
  if (invoker == nullptr) {
    return DISP_E_MEMBERNOTFOUND;
  }
  if (!isPut && arguments->cArgs > row->allowed && row->allowed == 0 && row->givesObject) {
    return CallDefaultMember(object, *row, flags, arguments, result, exception, argument);
  }
  OrderedArguments ordered{};
  UINT count = 0;
  UINT bad = kNoArgument;
  HRESULT status = S_OK;
  const UINT allowed = row->allowed + (isPut ? 1U : 0U);
  const UINT required = isPut ? allowed : row->required;
  if (arguments->cArgs != 0) {
    status = Order(*arguments, isPut, allowed, ordered, &count, &bad);
  }
  if (SUCCEEDED(status) && (count > allowed || !HasRequired(ordered, required))) {
    status = count > allowed || count < required ? DISP_E_BADPARAMCOUNT : DISP_E_PARAMNOTOPTIONAL;
  }
  if (SUCCEEDED(status)) {
    UINT badArgument = kNoArgument;
    status = invoker(object, ordered, result, &badArgument);
    if (badArgument == kNoArgument) {
      return SUCCEEDED(status) ? status : FillException(status, exception);
    }
    bad = static_cast<UINT>(ordered[badArgument] - arguments->rgvarg);
  }
  if (bad != kNoArgument && argument != nullptr) {
    *argument = bad;
  }
  return status;
}

}  // namespace wendrill::com
