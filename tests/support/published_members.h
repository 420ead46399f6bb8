// What the library publishes: every member with the types that its callers rely on. Compiled clients call by slot and
// with exactly these types, so a change here breaks programs that exist.
//
// The table is written by hand from what the members promise. It is compared with the type library in
// tests/com/early/type_library_test.cpp and is never generated from it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace wendrill::testing {

struct PublishedMember {
  std::string name;
  std::string kind;             // method, get, put, set (assigns an object), with "hidden" or "restricted" before it
  std::string parameters = {};  // "strCommand string, vntPages Variant by reference"; the value of a put has no name
  std::string result = {};      // empty: none
  std::optional<std::int32_t> id = {};  // where callers rely on it
};

struct PublishedInterface {
  std::string name;
  std::vector<PublishedMember> members;  // in the order of the slots
};

const std::vector<PublishedInterface>& PublishedInterfaces();

// The number of members of these interfaces, of all interfaces when none is named.
std::size_t PublishedMemberCount(const std::vector<std::string>& interfaces = {});

}  // namespace wendrill::testing
