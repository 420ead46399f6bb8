// The table of all members that the library publishes, with their types. Compiled clients call members by vtable slot
// and rely on exactly these types, so a change of the table breaks existing programs.
//
// The table is written by hand, independently of the type library, and is never generated from it.
// tests/com/early/type_library_test.cpp compares the table with the type library.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace wendrill::testing {

struct PublishedMember {
  std::string name;
  std::string kind;  // "method", "get", "put" or "set" (assigns an object); may be preceded by "hidden" or "restricted"
  std::string parameters = {};  // "strCommand string, vntPages Variant by reference"; the value of a put has no name
  std::string result = {};      // the type of the result; empty when the member returns nothing
  std::optional<std::int32_t> id = {};  // the DISPID of a member whose callers rely on its DISPID; else nullopt
};

struct PublishedInterface {
  std::string name;
  std::vector<PublishedMember> members;  // in the order of the vtable
};

const std::vector<PublishedInterface>& PublishedInterfaces();

// The total number of members of the named interfaces; of all published interfaces when `interfaces` is empty.
std::size_t PublishedMemberCount(const std::vector<std::string>& interfaces = {});

}  // namespace wendrill::testing
