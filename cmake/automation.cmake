# Automation DLLs: IDL, type library, resources, registration-free manifest; and the manifests of programs that use them.

find_program(WIDL NAMES i686-w64-mingw32-widl widl REQUIRED)
# The system's own type library, which ours refer to. Wine carries one; on Windows the compiler finds it by itself.
find_path(STDOLE_FOLDER stdole2.tlb PATHS /usr/lib/i386-linux-gnu/wine/i386-windows NO_CMAKE_FIND_ROOT_PATH)
set(WIDL_SEARCH -I ${PROJECT_SOURCE_DIR}/idl)
if(STDOLE_FOLDER)
  list(APPEND WIDL_SEARCH -L ${STDOLE_FOLDER})
endif()

# automation_idl(NAME [slots]): the interface library idl_NAME from idl/NAME.idl, with the C++ header NAME.h, the
# identifiers, what cmake/idl/generate.py makes of it (NAME_dispatch.h, NAME_classes.h and, when asked for, NAME_slots.h),
# and the type library ${CMAKE_BINARY_DIR}/idl/NAME.tlb. A fixed time makes the type library the same at every build.
function(automation_idl name)
  set(source ${PROJECT_SOURCE_DIR}/idl/${name}.idl)
  set(folder ${CMAKE_BINARY_DIR}/idl)
  file(MAKE_DIRECTORY ${folder})
  set(compile ${CMAKE_COMMAND} -E env WIDL_TIME_OVERRIDE=1 ${WIDL} --win32 -m32 ${WIDL_SEARCH})
  add_custom_command(
    OUTPUT ${folder}/${name}.h ${folder}/${name}_i.c ${folder}/${name}.tlb
    COMMAND ${compile} -h -H ${folder}/${name}.h ${source}
    COMMAND ${compile} -u -H ${name}.h -o ${folder}/${name}_i.c ${source}
    COMMAND ${compile} -t -o ${folder}/${name}.tlb ${source}
    DEPENDS ${source} ${PROJECT_SOURCE_DIR}/idl/oaidl.idl
    COMMENT "IDL ${name}" VERBATIM)
  set(generated "")
  foreach(kind dispatch classes ${ARGN})
    add_custom_command(
      OUTPUT ${folder}/${name}_${kind}.h
      COMMAND ${Python3_EXECUTABLE} ${IDL_GENERATOR} ${kind} ${source} ${folder}/${name}_${kind}.h
      DEPENDS ${source} ${IDL_GENERATOR_FILES}
      COMMENT "IDL ${name}: ${kind}" VERBATIM)
    list(APPEND generated ${folder}/${name}_${kind}.h)
  endforeach()
  add_custom_target(idl_${name}_files DEPENDS ${folder}/${name}.h ${generated})
  set_source_files_properties(${folder}/${name}_i.c PROPERTIES LANGUAGE CXX COMPILE_OPTIONS "-xc++;-Wno-error;-w")
  add_library(idl_${name} STATIC ${folder}/${name}_i.c)
  add_dependencies(idl_${name} idl_${name}_files)
  target_include_directories(idl_${name} SYSTEM PUBLIC ${folder})
endfunction()

# delivered(TARGET): how a DLL or a program that is delivered is linked and what is stored where. No run time but the
# system's; address randomisation, no execution of data, no table of exception handlers (errors unwind without one); no
# time stamp, so that two builds are equal; the subsystem's version says that Windows 7 is the oldest that runs it. The
# symbols are in ${CMAKE_BINARY_DIR}/symbols/FILE.debug, for addr2line: the file itself has none. Section names are cut to
# eight characters, because src/com/server/unwind_frames.cpp looks for one in the headers, where a longer one is an offset.
function(delivered target)
  target_link_options(${target} PRIVATE -static -Wl,--gc-sections,--dynamicbase,--nxcompat,--no-seh
    -Wl,--no-insert-timestamp,--major-subsystem-version,6,--minor-subsystem-version,1)
  set_target_properties(${target} PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/bin)
  file(MAKE_DIRECTORY ${CMAKE_BINARY_DIR}/symbols)
  add_custom_command(TARGET ${target} POST_BUILD
    COMMAND ${CMAKE_OBJCOPY} --only-keep-debug $<TARGET_FILE:${target}>
            ${CMAKE_BINARY_DIR}/symbols/$<TARGET_FILE_NAME:${target}>.debug
    COMMAND ${CMAKE_OBJCOPY} --strip-all --preserve-dates --long-section-names=disable $<TARGET_FILE:${target}> VERBATIM)
endfunction()

# version_resource(VARIABLE DESCRIPTION [EXTRA]): the resource script of the version, which is the project's; EXTRA: one
# more line of the text block. 040904B0 is American English in UTF-16.
function(version_resource variable description)
  set(numbers ${PROJECT_VERSION_MAJOR},${PROJECT_VERSION_MINOR},${PROJECT_VERSION_PATCH},0)
  set(${variable}
"1 VERSIONINFO FILEVERSION ${numbers} PRODUCTVERSION ${numbers}
BEGIN
  BLOCK \"StringFileInfo\" BEGIN
    BLOCK \"040904B0\" BEGIN
      VALUE \"FileDescription\", \"${description}\"
      VALUE \"FileVersion\", \"${PROJECT_VERSION}\"
      VALUE \"ProductName\", \"Wendrill23\"
      VALUE \"ProductVersion\", \"${PROJECT_VERSION}\"
${ARGN}    END
  END
  BLOCK \"VarFileInfo\" BEGIN
    VALUE \"Translation\", 0x0409, 1200
  END
END
" PARENT_SCOPE)
endfunction()

# automation_dll(TARGET IDL name SOURCES … DEPENDS …): an in-process server with its type library and its registration-free
# manifest inside, in ${CMAKE_BINARY_DIR}/bin. Windows takes the manifest of a private assembly that has the DLL's own
# name from the DLL's resources, where it is number 1, and accepts no separate file.
function(automation_dll target)
  cmake_parse_arguments(dll "" "IDL" "SOURCES;DEPENDS" ${ARGN})
  set(typelib ${CMAKE_BINARY_DIR}/idl/${dll_IDL}.tlb)
  set(manifest ${CMAKE_CURRENT_BINARY_DIR}/${target}.manifest)
  set(resource ${CMAKE_CURRENT_BINARY_DIR}/${target}.rc)
  version_resource(version ${target} "      VALUE \"OLESelfRegister\", \"\"\n")
  file(GENERATE OUTPUT ${resource} CONTENT
"1 TYPELIB \"${typelib}\"
1 24 \"${manifest}\"
${version}")
  add_custom_command(
    OUTPUT ${manifest}
    COMMAND ${Python3_EXECUTABLE} ${IDL_GENERATOR} manifest ${PROJECT_SOURCE_DIR}/idl/${dll_IDL}.idl ${manifest}
            ${WENDRILL_ASSEMBLY_VERSION}
    DEPENDS ${PROJECT_SOURCE_DIR}/idl/${dll_IDL}.idl ${IDL_GENERATOR_FILES} VERBATIM)
  set_source_files_properties(${resource} PROPERTIES OBJECT_DEPENDS "${typelib};${manifest}" LANGUAGE RC)
  add_library(${target} SHARED ${dll_SOURCES} ${resource} ${PROJECT_SOURCE_DIR}/src/com/server/server.def)
  add_dependencies(${target} idl_${dll_IDL}_files)
  target_link_libraries(${target} PRIVATE ${dll_DEPENDS} idl_${dll_IDL})
  target_link_options(${target} PRIVATE -Wl,--enable-stdcall-fixup)
  delivered(${target})
  set_target_properties(${target} PROPERTIES PREFIX "")
  remove_loose_manifest(${target} ${target}.manifest)
endfunction()

# remove_loose_manifest(TARGET NAME): an earlier build may have left a manifest beside the DLL or the program.
function(remove_loose_manifest target name)
  add_custom_command(TARGET ${target} POST_BUILD
    COMMAND ${CMAKE_COMMAND} -E rm -f ${CMAKE_BINARY_DIR}/bin/${name} VERBATIM)
endfunction()

# filled_in_manifest(FILE PROGRAM [WITH ASSEMBLY]): writes the application manifest of samples/, filled in for a program,
# which finds the classes of that other DLL too: of the simulator or of the recorder.
function(filled_in_manifest file program)
  cmake_parse_arguments(manifest "" "WITH" "" ${ARGN})
  set(PROGRAM ${program})
  set(VERSION ${PROJECT_VERSION}.0)
  set(template ${PROJECT_SOURCE_DIR}/samples/application.manifest)
  set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${template})
  file(READ ${template} text)
  string(CONFIGURE "${text}" text @ONLY)
  if(manifest_WITH)
    string(REGEX MATCH "  <dependency>.*</dependency>\n" library "${text}")
    string(REPLACE "\"Wendrill23\"" "\"${manifest_WITH}\"" other "${library}")
    string(REPLACE "${library}" "${library}${other}" text "${text}")
  endif()
  file(CONFIGURE OUTPUT ${file} CONTENT "${text}" @ONLY)
endfunction()

# console_program_manifest(FILE PROGRAM): the manifest of a program that finds no DLL through it.
function(console_program_manifest file program)
  set(PROGRAM ${program})
  configure_file(${PROJECT_SOURCE_DIR}/cmake/console_program.manifest ${file} @ONLY)
endfunction()

# manifest_resources(TARGET ID FILE …): the resources of a program: its version, and the files, which are application
# manifests. Number 1 is the one that holds from its start; Windows reserves the numbers up to 16.
function(manifest_resources target)
  set(resource ${CMAKE_CURRENT_BINARY_DIR}/${target}.rc)
  version_resource(lines ${target})
  set(files "")
  set(rest ${ARGN})
  while(rest)
    list(POP_FRONT rest id file)
    string(APPEND lines "${id} 24 \"${file}\"\n")
    list(APPEND files ${file})
  endwhile()
  file(CONFIGURE OUTPUT ${resource} CONTENT "${lines}" @ONLY)
  set_source_files_properties(${resource} PROPERTIES OBJECT_DEPENDS "${files}" LANGUAGE RC)
  target_sources(${target} PRIVATE ${resource})
endfunction()

# beside_the_dlls(TARGET): a program in the folder of the DLLs.
function(beside_the_dlls target)
  add_dependencies(${target} Wendrill23 QuilletSimulator)
  set_target_properties(${target} PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/bin)
  remove_loose_manifest(${target} ${target}.exe.manifest)
endfunction()

# beside_the_simulator(TARGET): such a program that finds the classes of both DLLs, without registration.
function(beside_the_simulator target)
  set(manifest ${CMAKE_CURRENT_BINARY_DIR}/${target}.manifest)
  filled_in_manifest(${manifest} Wendrill23.${target} WITH QuilletSimulator)
  manifest_resources(${target} 1 ${manifest})
  beside_the_dlls(${target})
endfunction()
