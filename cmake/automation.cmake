# Automation DLLs: IDL, type library, resource, registration-free manifest.

find_program(WIDL NAMES i686-w64-mingw32-widl widl REQUIRED)
# The system's own type library, which ours refer to. Wine carries one; on Windows the compiler finds it by itself.
find_path(STDOLE_FOLDER stdole2.tlb PATHS /usr/lib/i386-linux-gnu/wine/i386-windows NO_CMAKE_FIND_ROOT_PATH)
set(WIDL_SEARCH -I ${PROJECT_SOURCE_DIR}/idl)
if(STDOLE_FOLDER)
  list(APPEND WIDL_SEARCH -L ${STDOLE_FOLDER})
endif()

# automation_idl(NAME): the interface library idl_NAME from idl/NAME.idl, with the C++ header NAME.h, the identifiers, and
# the type library ${CMAKE_BINARY_DIR}/idl/NAME.tlb. A fixed time makes the type library the same at every build.
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
  add_custom_target(idl_${name}_files DEPENDS ${folder}/${name}.h)
  set_source_files_properties(${folder}/${name}_i.c PROPERTIES LANGUAGE CXX COMPILE_OPTIONS "-xc++;-Wno-error;-w")
  add_library(idl_${name} STATIC ${folder}/${name}_i.c)
  add_dependencies(idl_${name} idl_${name}_files)
  target_include_directories(idl_${name} SYSTEM PUBLIC ${folder})
endfunction()

# automation_dll(TARGET IDL name SOURCES … DEPENDS …): an in-process server with the type library inside, next to its
# registration-free manifest in ${CMAKE_BINARY_DIR}/bin.
function(automation_dll target)
  cmake_parse_arguments(dll "" "IDL" "SOURCES;DEPENDS" ${ARGN})
  set(typelib ${CMAKE_BINARY_DIR}/idl/${dll_IDL}.tlb)
  set(resource ${CMAKE_CURRENT_BINARY_DIR}/${target}.rc)
  set(version ${PROJECT_VERSION_MAJOR},${PROJECT_VERSION_MINOR},${PROJECT_VERSION_PATCH},0)
  file(GENERATE OUTPUT ${resource} CONTENT
"1 TYPELIB \"${typelib}\"
1 VERSIONINFO FILEVERSION ${version} PRODUCTVERSION ${version}
BEGIN
  BLOCK \"StringFileInfo\" BEGIN
    BLOCK \"040904B0\" BEGIN
      VALUE \"FileDescription\", \"${target}\"
      VALUE \"FileVersion\", \"${PROJECT_VERSION}\"
      VALUE \"ProductName\", \"Wendrill23\"
      VALUE \"OLESelfRegister\", \"\"
    END
  END
  BLOCK \"VarFileInfo\" BEGIN
    VALUE \"Translation\", 0x0409, 1200
  END
END
")
  set_source_files_properties(${resource} PROPERTIES OBJECT_DEPENDS ${typelib} LANGUAGE RC)
  add_library(${target} SHARED ${dll_SOURCES} ${resource} ${PROJECT_SOURCE_DIR}/src/com/server/server.def)
  add_dependencies(${target} idl_${dll_IDL}_files)
  target_link_libraries(${target} PRIVATE ${dll_DEPENDS} idl_${dll_IDL})
  target_link_options(${target} PRIVATE -static -s -Wl,--gc-sections -Wl,--enable-stdcall-fixup,--dynamicbase,--nxcompat)
  set_target_properties(${target} PROPERTIES PREFIX "" RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/bin)
  set(manifest ${CMAKE_BINARY_DIR}/bin/${target}.manifest)
  add_custom_command(
    OUTPUT ${manifest}
    COMMAND ${CMAKE_COMMAND} -DIDL=${PROJECT_SOURCE_DIR}/idl/${dll_IDL}.idl -DNAME=${target} -DOUTPUT=${manifest} -P
            ${PROJECT_SOURCE_DIR}/cmake/manifest.cmake
    DEPENDS ${PROJECT_SOURCE_DIR}/idl/${dll_IDL}.idl ${PROJECT_SOURCE_DIR}/cmake/manifest.cmake VERBATIM)
  add_custom_target(${target}_manifest ALL DEPENDS ${manifest})
  add_dependencies(${target} ${target}_manifest)
endfunction()
