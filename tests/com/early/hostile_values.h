// Arguments that a late-bound caller may pass, whatever sense they make.
#pragma once

#include <ole2.h>
#include <windows.h>

#include <functional>
#include <utility>
#include <vector>

namespace wendrill::com::testing {

// Makes a value in an empty VARIANT.
using Make = std::function<void(VARIANT*)>;

// Values of every type, each with its name: numbers at the ends of their ranges, texts, arrays, objects, references
// that lead nowhere.
std::vector<std::pair<const char*, Make>> HostileValues(IDispatch* someObject, IUnknown* noDispatch);

// What a call may pass: the value itself, a variable that holds it, or a reference to its storage.
enum class Passing { ByValue, AsVariable, ByReference };

// Some arguments of one value each.
class LateArguments {
 public:
  LateArguments(std::size_t count, const Make& make, Passing passing);
  ~LateArguments();
  LateArguments(const LateArguments&) = delete;
  LateArguments& operator=(const LateArguments&) = delete;

  std::vector<VARIANT>& Passed() { return passed_; }

 private:
  std::vector<VARIANT> held_;
  std::vector<VARIANT> passed_;
};

}  // namespace wendrill::com::testing
