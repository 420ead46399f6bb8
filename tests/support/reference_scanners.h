// Slow, obvious scanners: what src/scan does, said once more without any thought of speed. They are linked into tests,
// fuzzing and benchmarks only, share no code with the library, and look every line up from the beginning of the text.
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <vector>

namespace wendrill::testing {

// The entries under one key. Those of a flag are Boolean values that read "True" and "False", all others are strings.
struct ReferenceArray {
  std::vector<std::u16string> entries;
  std::u16string initial;
  bool isFlag = false;
};

// A scan's outcome: the count that the property returns, and the arrays by their keys.
struct ReferenceScan {
  int count = 0;
  int error = 0;  // raised in place of a count; 0 for none
  std::map<std::u16string, ReferenceArray> arrays;
};

// One element of the PNR object's element collection.
struct ReferenceElement {
  std::u16string text;
  std::u16string number;
};

// Answers each read of the display text.
using ReadDisplay = std::function<std::u16string()>;

ReferenceScan ReferenceSpecialService(const ReadDisplay& read);
ReferenceScan ReferenceOtherService(const ReadDisplay& read);
ReferenceScan ReferenceSecurity(const ReadDisplay& read);
ReferenceScan ReferenceManualTkt(const ReadDisplay& read);
ReferenceScan ReferenceMiscTktInfo(const ReadDisplay& read);
ReferenceScan ReferenceSUR(const std::vector<ReferenceElement>& elements);
ReferenceScan ReferenceSP(const ReadDisplay& read);
ReferenceScan ReferenceATX(const ReadDisplay& read);
ReferenceScan ReferenceMCO(const ReadDisplay& read);
ReferenceScan ReferenceValidatingAirline(const ReadDisplay& read);
ReferenceScan ReferenceAirSequence(const ReadDisplay& read);

}  // namespace wendrill::testing
