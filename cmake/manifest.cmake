# Writes the registration-free manifest of an automation DLL from its IDL, so that no identifier stands in two places.
#   cmake -DIDL=x.idl -DNAME=Library -DOUTPUT=Library.manifest [-DASSEMBLY=Name] [-DWITHOUT=Class.Name] -P manifest.cmake
#
# The assembly has the DLL's name unless another is given, and all its classes but the one that is left out.
#
# A class is created by the name that its help string gives when that is one (as in "szuPNR.PNR"), else by
# Library.Class. No class names a threading model: the library's objects share a state without a lock, so COM creates all
# of them in the process's main single-threaded apartment. The system's marshaller by type library carries the calls of
# typed clients in other apartments, for each dual interface.
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
  if(progid STREQUAL "${WITHOUT}")
    continue()
  endif()
  string(APPEND classes
    "    <comClass clsid=\"{${clsid}}\" progid=\"${progid}\" tlbid=\"{${typelib}}\"/>\n")
endforeach()
if(NOT classes)
  message(FATAL_ERROR "${IDL}: no classes")
endif()

set(marshaller "{00020424-0000-0000-C000-000000000046}")
set(proxies "")
set(dual "\\[[ \n]*object, dual,[^]]*uuid\\(([0-9A-F-]+)\\)[^]]*\\]\ninterface ([A-Za-z_]+)")
string(REGEX MATCHALL "${dual}" interfaces "${text}")
foreach(interface IN LISTS interfaces)
  string(REGEX MATCH "${dual}" parts "${interface}")
  string(APPEND proxies
    "  <comInterfaceExternalProxyStub name=\"${CMAKE_MATCH_2}\" iid=\"{${CMAKE_MATCH_1}}\" "
    "proxyStubClsid32=\"${marshaller}\" tlbid=\"{${typelib}}\"/>\n")
endforeach()
if(NOT proxies)
  message(FATAL_ERROR "${IDL}: no dual interfaces")
endif()

if(NOT ASSEMBLY)
  set(ASSEMBLY ${NAME})
endif()
file(WRITE ${OUTPUT}
"<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"yes\"?>
<assembly xmlns=\"urn:schemas-microsoft-com:asm.v1\" manifestVersion=\"1.0\">
  <assemblyIdentity type=\"win32\" name=\"${ASSEMBLY}\" version=\"1.0.0.0\" processorArchitecture=\"x86\"/>
  <file name=\"${NAME}.dll\">
${classes}    <typelib tlbid=\"{${typelib}}\" version=\"1.0\" helpdir=\"\"/>
  </file>
${proxies}</assembly>
")
