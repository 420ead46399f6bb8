# Writes the names of everything that a type library publishes, from its IDL, so that a test can ask whether it knows them
# all.
#   cmake -DIDL=x.idl -DOUTPUT=x_members.h -P type_library_members.cmake
#
# A class is named as it is created ("CQuillet"), a member as "CQuillet.SendCommand"; the assignment of a property has
# " put" behind its name, by reference or not.
file(STRINGS ${IDL} lines)

set(names "")
set(count 0)
set(interface "")
set(isPut FALSE)
foreach(line IN LISTS lines)
  if(line MATCHES "^interface _([A-Za-z]+) : IDispatch")
    set(interface ${CMAKE_MATCH_1})
  elseif(line MATCHES "^}")
    set(interface "")
  elseif(line MATCHES "^ *coclass ([A-Za-z]+)")
    string(APPEND names "    u\"${CMAKE_MATCH_1}\",\n")
    math(EXPR count "${count} + 1")
  elseif(interface AND line MATCHES "^ *\\[id\\(")
    string(REGEX MATCH "propput" isPut "${line}")
  elseif(interface AND line MATCHES "^ *HRESULT ([A-Za-z_0-9]+)\\(")
    set(name "${interface}.${CMAKE_MATCH_1}")
    if(isPut)
      string(APPEND name " put")
    endif()
    string(APPEND names "    u\"${name}\",\n")
    math(EXPR count "${count} + 1")
  endif()
endforeach()
if(count EQUAL 0)
  message(FATAL_ERROR "${IDL}: no members")
endif()

file(WRITE ${OUTPUT}
"// Made from the IDL: every class and member that the type library publishes.
#pragma once

#include <array>
#include <string_view>

namespace wendrill {

inline constexpr std::array<std::u16string_view, ${count}> kTypeLibraryMembers = {
${names}};

}  // namespace wendrill
")
