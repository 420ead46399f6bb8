// Hiding personal data in any texts: lengths stay, what is hidden stays as it is, no name that was learnt survives, and
// none that was planted.
#include "fuzz_input.h"
#include "support/hidden_again.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  using namespace wendrill;
  const std::vector<std::u16string> texts = fuzz::TextsOf(bytes, size);
  const std::string wrong = testing::WrongInHiding(texts);
  if (!wrong.empty()) {
    fuzz::Report(wrong);
  }

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
  return 0;
}
