# The tool chain's own unwinder as a DLL, which some programs hold beside our DLLs. Tests load it.
#
# foreign_unwinder(VARIABLE): copies it, with the DLL that it needs, into a folder of its own, so that no program finds it
# by chance, and sets VARIABLE to its file; to nothing where the tool chain does not say where it keeps it.
function(foreign_unwinder variable)
  set(folder ${CMAKE_BINARY_DIR}/foreign_unwinder)
  foreach(name libgcc_s_dw2-1.dll libwinpthread-1.dll)
    execute_process(COMMAND ${CMAKE_CXX_COMPILER} -print-file-name=${name}
      OUTPUT_VARIABLE file OUTPUT_STRIP_TRAILING_WHITESPACE)
    if(EXISTS "${file}")
      configure_file("${file}" ${folder}/${name} COPYONLY)
    elseif(name MATCHES "^libgcc")
      message(STATUS "no test beside a foreign unwinder: ${CMAKE_CXX_COMPILER} does not know where ${name} is")
      set(${variable} "" PARENT_SCOPE)
      return()
    endif()
  endforeach()
  set(${variable} ${folder}/libgcc_s_dw2-1.dll PARENT_SCOPE)
endfunction()
