# Writes the registration-free manifest of an automation DLL from its IDL, so that no identifier stands in two places.
#   cmake -DIDL=x.idl -DNAME=Library -DOUTPUT=Library.manifest -P manifest.cmake
#
# A class is created by the name that its help string gives when that is one (as in "szuPNR.PNR"), else by
# Library.Class.
file(READ ${IDL} text)

string(REGEX MATCH "uuid\\(([0-9A-F-]+)\\),[ \n]*version\\(1\\.0\\)[^]]*\\]\nlibrary" library "${text}")
set(typelib ${CMAKE_MATCH_1})
if(NOT typelib)
  message(FATAL_ERROR "${IDL}: no library")
endif()

set(classes "")
string(REGEX MATCHALL "\\[uuid\\([0-9A-F-]+\\), helpstring\\(\"[^\"]*\"\\)\\]\n *coclass [A-Za-z]+" coclasses "${text}")
foreach(coclass IN LISTS coclasses)
  string(REGEX MATCH "uuid\\(([0-9A-F-]+)\\), helpstring\\(\"([^\"]*)\"\\)\\]\n *coclass ([A-Za-z]+)" parts "${coclass}")
  set(clsid ${CMAKE_MATCH_1})
  set(help "${CMAKE_MATCH_2}")
  set(progid ${NAME}.${CMAKE_MATCH_3})
  if(help MATCHES "^[A-Za-z]+\\.[A-Za-z]+$")
    set(progid ${help})
  endif()
  string(APPEND classes
    "    <comClass clsid=\"{${clsid}}\" progid=\"${progid}\" threadingModel=\"Apartment\" tlbid=\"{${typelib}}\"/>\n")
endforeach()
if(NOT classes)
  message(FATAL_ERROR "${IDL}: no classes")
endif()

file(WRITE ${OUTPUT}
"<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"yes\"?>
<assembly xmlns=\"urn:schemas-microsoft-com:asm.v1\" manifestVersion=\"1.0\">
  <assemblyIdentity type=\"win32\" name=\"${NAME}\" version=\"1.0.0.0\" processorArchitecture=\"x86\"/>
  <file name=\"${NAME}.dll\">
${classes}    <typelib tlbid=\"{${typelib}}\" version=\"1.0\" helpdir=\"\"/>
  </file>
</assembly>
")
