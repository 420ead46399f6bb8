#include "common/error.h"
#include "session/quillet.h"
namespace wendrill {
std::u16string CQuillet::SendCommandGetAll(std::u16string_view /*strCommand*/) {
  Raise(RunTimeError::MemberNotSupported);
}
std::u16string CQuillet::SendCommandGetAllNoClear(std::u16string_view /*strCommand*/) {
  Raise(RunTimeError::MemberNotSupported);
}
std::u16string CQuillet::GetTotalHostResponse() {
  Raise(RunTimeError::MemberNotSupported);
}
std::u16string CQuillet::SendCommandLines(std::u16string_view /*strCommand*/,
                                          std::u16string_view /*strLinenumberStart*/,
                                          std::u16string_view /*strNoPages*/) {
  Raise(RunTimeError::MemberNotSupported);
}
std::u16string CQuillet::SendCommandCollectPages(std::u16string_view /*strCommand*/, TextArray& /*vntPages*/) {
  Raise(RunTimeError::MemberNotSupported);
}
std::u16string CQuillet::SendCommandFI(std::u16string_view /*strCommand*/, const ParamBagRef& /*objParams*/) {
  Raise(RunTimeError::MemberNotSupported);
}
std::u16string CQuillet::SendCommandTicsPas(const ParamBagRef& /*objParams*/) {
  Raise(RunTimeError::MemberNotSupported);
}
}  // namespace wendrill
