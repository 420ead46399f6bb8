// Fuzzes the redaction with arbitrary texts. Redaction must keep the lengths of texts, must be idempotent, and must
// hide every learnt name, as well as a name and a card number that this file adds to the texts.
#include "fuzz_input.h"
#include "support/hidden_again.h"

namespace {

using namespace wendrill;

void ExpectNothingPlanted(const std::vector<std::u16string>& texts) {
  constexpr TextView kPlanted = u"PLANTED";
  redaction::Redactor redactor;
  redactor.Learn(u"NM1PLANTED/NAME MR");
  for (std::u16string text : texts) {
    text.append(u"\n(").append(kPlanted).append(u") 4111 1111 1111 1111!\n");
    const std::u16string hidden = redactor.Hide(text);
    if (Contains(hidden, u"(PLANTED)") || Contains(hidden, u" 4111 1111 1111 1111!")) {
      fuzz::Report("planted, and still in " + ToUtf8(hidden));
    }
  }
}

}  // namespace

// Each input tests one of the two functions; the size of the input selects the function.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  const std::vector<std::u16string> texts = fuzz::TextsOf(bytes, size);
  if (size % 2 == 0) {
    ExpectNothingPlanted(texts);
  } else if (const std::string wrong = testing::WrongInHiding(texts); !wrong.empty()) {
    fuzz::Report(wrong);
  }
  return 0;
}
