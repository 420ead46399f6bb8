# The modules: one static library per folder under src/ and simulator/, one test program per folder under tests/unit/.
# Each module lists its own files; this file contains what all modules share.

# Flags for our own code: warnings are errors; sanitizers and fuzzing where the preset asks for them.
add_library(wendrill_flags INTERFACE)
target_compile_features(wendrill_flags INTERFACE cxx_std_20)
target_compile_options(wendrill_flags INTERFACE -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Werror)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  # In optimised builds GCC 12 sees overlapping copies in the standard library's string concatenation and uninitialised
  # strings in its variants. The sanitizers, which find real errors of this kind, stay enabled in tests.
  target_compile_options(wendrill_flags INTERFACE -Wno-restrict -Wno-maybe-uninitialized)
endif()
if(WIN32)
  # With the linker's --gc-sections: the DLLs contain only the functions that they call.
  target_compile_options(wendrill_flags INTERFACE -ffunction-sections -fdata-sections -fstack-protector-strong)
  target_link_options(wendrill_flags INTERFACE -fstack-protector-strong)
  # No part of a function is moved away from it. A part that becomes empty shares its address with another one, whose
  # description the unwinder may miss then: an exception that passes there ends the process (tests/com/frames).
  target_compile_options(wendrill_flags INTERFACE -fno-reorder-blocks-and-partition)
  # Symbols, which are kept apart from the files that are delivered (automation.cmake). They name the sources as the clone
  # does, wherever the clone is.
  target_compile_options(wendrill_flags INTERFACE -g1 -ffile-prefix-map=${PROJECT_SOURCE_DIR}/=)
endif()
target_include_directories(wendrill_flags INTERFACE ${PROJECT_SOURCE_DIR}/src)
if(WENDRILL_SANITIZE)
  target_compile_options(wendrill_flags INTERFACE -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
  # The lines of a report are enough; variables would take a sixth of the compiler's time.
  target_compile_options(wendrill_flags INTERFACE -g1)
  target_link_options(wendrill_flags INTERFACE -fsanitize=address,undefined)
endif()
if(WENDRILL_FUZZ)
  target_compile_options(wendrill_flags INTERFACE -fsanitize=address,undefined -fno-sanitize-recover=all)
  target_link_options(wendrill_flags INTERFACE -fsanitize=address,undefined)
endif()

# wendrill_room(NAME SOURCES file... [DEPENDS room...]): the static library wendrill_NAME.
function(wendrill_room name)
  cmake_parse_arguments(room "" "" "SOURCES;DEPENDS" ${ARGN})
  add_library(wendrill_${name} STATIC ${room_SOURCES})
  target_link_libraries(wendrill_${name} PUBLIC wendrill_flags)
  if(WENDRILL_FUZZ)
    # The fuzzer measures coverage of the modules only: instrumenting the slow references too would cost half its time.
    target_compile_options(wendrill_${name} PRIVATE -fsanitize=fuzzer-no-link)
  endif()
  foreach(dependency IN LISTS room_DEPENDS)
    target_link_libraries(wendrill_${name} PUBLIC wendrill_${dependency})
  endforeach()
endfunction()

# generated_from_idl(VARIABLE NAME KIND): the header NAME_KIND.h that cmake/idl/generate.py makes of idl/NAME.idl, its path
# in the variable. It is written for the target that has it among its sources.
function(generated_from_idl variable name kind)
  set(source ${PROJECT_SOURCE_DIR}/idl/${name}.idl)
  set(header ${CMAKE_CURRENT_BINARY_DIR}/generated/${name}_${kind}.h)
  file(MAKE_DIRECTORY ${CMAKE_CURRENT_BINARY_DIR}/generated)
  add_custom_command(
    OUTPUT ${header}
    COMMAND ${Python3_EXECUTABLE} ${IDL_GENERATOR} ${kind} ${source} ${header}
    DEPENDS ${source} ${IDL_GENERATOR_FILES}
    COMMENT "IDL ${name}: ${kind}" VERBATIM)
  set(${variable} ${header} PARENT_SCOPE)
endfunction()

# tests_precompiled(TARGET): what nearly every test includes is parsed once for all of them, which saves a fifth of their time.
# Presets that set CMAKE_DISABLE_PRECOMPILE_HEADERS do without: native and bench, so that a missing include is seen, and win32,
# where the compiler forgets that a precompiled header of the system is one, and warns of what it contains.
function(tests_precompiled target)
  if(NOT TARGET wendrill_precompiled)
    file(WRITE ${CMAKE_BINARY_DIR}/precompiled.cpp "")
    add_library(wendrill_precompiled OBJECT ${CMAKE_BINARY_DIR}/precompiled.cpp)
    target_link_libraries(wendrill_precompiled PRIVATE wendrill_flags GTest::gtest)
    target_precompile_headers(wendrill_precompiled PRIVATE
      <algorithm> <chrono> <filesystem> <fstream> <functional> <map> <memory> <optional> <set> <span> <string> <string_view>
      <variant> <vector> <gtest/gtest.h>)
  endif()
  target_precompile_headers(${target} REUSE_FROM wendrill_precompiled)
endfunction()

# wendrill_tests(NAME SOURCES file... [DEPENDS target...] [DATA folder] [RESOURCE name] [ENVIRONMENT NAME=VALUE]
# [SWEEPS suite...]): the test program NAME, each of its tests known to CTest under the label NAME. The tests of a sweep
# are a single test for CTest, so that the sweep can end with its totals. DATA becomes the macro TEST_DATA; tests of one
# RESOURCE never run together.
function(wendrill_tests name)
  cmake_parse_arguments(tests "" "DATA;RESOURCE;ENVIRONMENT" "SOURCES;DEPENDS;SWEEPS" ${ARGN})
  add_executable(${name} ${tests_SOURCES})
  target_link_libraries(${name} PRIVATE wendrill_flags ${tests_DEPENDS} GTest::gmock GTest::gtest_main)
  tests_precompiled(${name})
  target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR}/tests ${PROJECT_SOURCE_DIR}/simulator)
  if(tests_DATA)
    target_compile_definitions(${name} PRIVATE TEST_DATA="${tests_DATA}")
  endif()
  set(properties LABELS ${name})
  if(tests_RESOURCE)
    list(APPEND properties RESOURCE_LOCK ${tests_RESOURCE})
  endif()
  if(tests_ENVIRONMENT)
    list(APPEND properties ENVIRONMENT ${tests_ENVIRONMENT})
  endif()
  set(separate "-")
  foreach(sweep IN LISTS tests_SWEEPS)
    string(APPEND separate "*${sweep}*:")
    add_test(NAME ${name}.${sweep} COMMAND ${name} --gtest_filter=*${sweep}* --gtest_brief=1)
    set_tests_properties(${name}.${sweep} PROPERTIES ${properties} FAIL_REGULAR_EXPRESSION " 0 tests from")
  endforeach()
  gtest_discover_tests(${name}
    TEST_PREFIX "${name}." TEST_FILTER "${separate}" DISCOVERY_TIMEOUT 120 PROPERTIES ${properties})
endfunction()
