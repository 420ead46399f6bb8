#include "batch/batch.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <utility>
#include <vector>

#include "batch/packing.h"
#include "batch/remark.h"
#include "common/error.h"
#include "common/error_numbers.h"
#include "common/failures.h"
#include "common/text.h"
#include "session/quillet.h"
#include "toolkit/platform.h"

namespace wendrill {
namespace {

// The marks of success. The host accepted an entry if the response contains at least one of these marks.
constexpr std::array<TextView, 3> kAcceptedMarks = {u"RP/", u"*T*", u"*C*"};

bool IsAccepted(TextView response) {
  return std::ranges::any_of(kAcceptedMarks, [response](TextView mark) { return Contains(response, mark); });
}

// The responses to the host entries of a batch, and the numbers (counted from 1, joined with ",") of the host entries
// that the host rejected.
struct Outcome {
  ValueArray responses;
  std::u16string refused;

  void Add(std::u16string response) {
    const bool accepted = IsAccepted(response);
    responses.items.emplace_back(std::move(response));
    if (!accepted) {
      refused += (refused.empty() ? u"" : u",") + DecimalText(std::ssize(responses.items));
    }
  }

  void ReportIn(ParamBag& bag) const {
    bag.Set(u"strKeyResponseArray", responses);
    bag.Set(u"strKeyErr", refused);
    bag.Set(u"blnKeyResponseOK", refused.empty());
  }
};

Outcome Send(ModuleState& state, const std::vector<std::u16string>& packed) {
  Outcome outcome;
  for (std::u16string& response : ResponsesTo(packed, state)) {
    outcome.Add(std::move(response));
  }
  return outcome;
}

}  // namespace

CBatch::CBatch(ModuleState& state) : state_(state), commands_(std::make_shared<CQueue>(state)) {}

std::shared_ptr<CQueue> CBatch::Commands() const {
  return commands_;
}

void CBatch::SetCommands(std::shared_ptr<CQueue> Commands) {
  commands_ = std::move(Commands);
}

std::u16string CBatch::Separator() const {
  return separator_;
}

void CBatch::SetSeparator(std::u16string_view Separator) {
  separator_ = Separator;
}

void CBatch::Submit() {
  WithNumber(kSubmitFailed, [&] { SubmitWithResponse(state_.platform.CreateParamBag()); });
}

void CBatch::SubmitWithResponse(const ParamBagRef& objResponse) {
  WithNumber(kSubmitWithResponseFailed, [&] {
    ParamBag& bag = BagOf(objResponse);
    const Outcome outcome = Send(state_, PackedEntries());
    outcome.ReportIn(bag);
  });
}

std::vector<std::u16string> CBatch::PackedEntries() const {
  return WithNumber(kBatchHelperFailed, [&] {
    if (!commands_) {
      Raise(RunTimeError::ObjectNotSet);
    }
    std::vector<std::u16string> entries;
    for (const auto& quillet : commands_->Entries()) {
      AppendEntries(quillet->Command(), separator_, entries);
    }
    return Packed(entries);
  });
}

// Intentional: a failure of this member raises 2310, the number of the private helper that splits the remark. The
// member's own number 2305 would be expected, but callers of the published member receive 2310.
void CBatch::RMBatch(std::u16string_view strString, TextArray& strRMElement) const {
  auto elements = WithNumber(kBatchHelperFailed, [&] { return RemarkElements(strString); });
  strRMElement = {.lowerBound = 0, .items = std::move(elements)};
}

}  // namespace wendrill
