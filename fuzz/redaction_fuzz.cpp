// Hiding personal data in any texts: lengths stay, what is hidden stays as it is, no name that was learnt survives, and
// none that was planted.
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

// Each input is for one of the two.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  const std::vector<std::u16string> texts = fuzz::TextsOf(bytes, size);
  if (size % 2 == 0) {
    ExpectNothingPlanted(texts);
  } else if (const std::string wrong = testing::WrongInHiding(texts); !wrong.empty()) {
    fuzz::Report(wrong);
  }
  return 0;
}
