# What cmake --install BUILD --prefix FOLDER puts where:
#
#   bin/                              the library, the script host, the doctor, the recorder, the simulator
#   include/                          header and identifiers of the type library, for clients in C and C++
#   regfree/                          how a program uses the library without registration
#   samples/                          scripts, a program, the application manifest with the library's version filled in
#   scenarios/                        what the simulator answers from
#   docs/, README.md, CHANGELOG.md
#                                     docs/ holds the schemas of scenarios and traces too: they are the simulator's
#
# With --component desktop everything but the simulator and its scenarios, which do not belong beside a terminal.
install(TARGETS Wendrill23 QuilletRecorder script_host doctor COMPONENT desktop RUNTIME DESTINATION bin)
if(TARGET wendrill)
  install(TARGETS wendrill COMPONENT desktop RUNTIME DESTINATION bin)
endif()
install(FILES ${CMAKE_BINARY_DIR}/idl/wendrill23.h ${CMAKE_BINARY_DIR}/idl/wendrill23_i.c
  DESTINATION include COMPONENT desktop)
install(DIRECTORY samples DESTINATION . COMPONENT desktop PATTERN application.manifest EXCLUDE)
install(DIRECTORY docs DESTINATION . COMPONENT desktop FILES_MATCHING PATTERN "*.md" PATTERN "*.png")
install(FILES README.md CHANGELOG.md DESTINATION . COMPONENT desktop)

install(TARGETS QuilletSimulator COMPONENT simulator RUNTIME DESTINATION bin)
install(FILES docs/scenario.schema.json docs/trace.schema.json DESTINATION docs COMPONENT simulator)

# The first line of a scenario names the schema, which is one folder nearer than in the sources.
function(install_scenarios)
  file(GLOB scenarios CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/simulator/scenarios/*.toml)
  set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${scenarios})
  foreach(scenario IN LISTS scenarios)
    cmake_path(GET scenario FILENAME name)
    file(READ ${scenario} text)
    string(REPLACE "#:schema ../../docs/" "#:schema ../docs/" text "${text}")
    file(CONFIGURE OUTPUT ${CMAKE_BINARY_DIR}/scenarios/${name} CONTENT "@text@" @ONLY)
    install(FILES ${CMAKE_BINARY_DIR}/scenarios/${name} DESTINATION scenarios COMPONENT simulator)
  endforeach()
endfunction()
install_scenarios()

# A program's own name and version stay placeholders.
function(install_application_manifest)
  set(PROGRAM @PROGRAM@)
  set(VERSION @VERSION@)
  set(manifest ${CMAKE_BINARY_DIR}/samples/application.manifest)
  configure_file(samples/application.manifest ${manifest} @ONLY)
  install(FILES ${manifest} DESTINATION samples COMPONENT desktop)
  install(FILES ${manifest} package/regfree/README.md DESTINATION regfree COMPONENT desktop)
endfunction()
install_application_manifest()
