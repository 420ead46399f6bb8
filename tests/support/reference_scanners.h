// Slow, obvious reference implementations of the scanners in src/scan, written without regard to speed: they search
// each line from the beginning of the text. They share no code with the library, and are linked into tests, fuzz
// targets and benchmarks only.
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <vector>

namespace wendrill::testing {

// The array of one key.
struct ReferenceArray {
  std::vector<std::u16string> entries;  // for a flag, the text "True" or "False" represents the Boolean value
  std::u16string initial;               // the initial value of an entry
  bool isFlag = false;                  // whether the library's array contains Boolean values; else strings
};

// The result of a scan: the count that the property returns, and the arrays by their keys.
struct ReferenceScan {
  int count = 0;
  int error = 0;  // the error number that the count property raises; 0 when it returns the count
  std::map<std::u16string, ReferenceArray> arrays;
};

// An element in the PNR object's element collection.
struct ReferenceElement {
  std::u16string text;
  std::u16string number;
};

// A function that is called for each read of the display, and returns the display's text.
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
