#!/usr/bin/env python3
"""Writes what the rest of the project needs to know of an interface definition, so that a member is stated once.

  generate.py member-names IDL OUTPUT    C++ header: every class and member by name, for tests that must know them all
  generate.py published IDL OUTPUT       portable C++ header: what CPNR counts and what IGet reads, and the core's members of
                                         these names
  generate.py reference IDL              every member as docs/reference.md lists it, one a line, on standard output
  generate.py dispatch IDL OUTPUT        C++ header: the rows of late binding for each dual interface
  generate.py slots IDL OUTPUT           C++ header: the method tables, each slot forwarding to the core's member
  generate.py classes IDL OUTPUT         C++ header: identity, name and description of each class
  generate.py identities IDL OUTPUT      portable C++ header: name and identifier of each class and of the library, as text
  generate.py manifest IDL OUTPUT VERSION [ASSEMBLY [WITHOUT]]
                                         the registration-free manifest of the DLL that is called like the library, as an
                                         assembly of that version (four numbers); the assembly has the same name unless
                                         another is given, and all its classes but the one of the programmatic name
                                         WITHOUT
"""

import re
import sys
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parent))
from idl_reader import IdlError, read_file  # noqa: E402


def class_member(interface, member):
    """A member under the name of its class: "CPNR.Text"."""
    return f"{interface.name.removeprefix('_')}.{member.name}"


def member_names(idl, _path):
    """Classes as they are created; the assignment of a property has " put" after its name, by reference or not."""
    names = [a_class.name for a_class in idl.library.classes]
    for interface in idl.interfaces:
        for member in interface.members:
            names.append(class_member(interface, member) + (" put" if member.kind.startswith("put") else ""))
    rows = "".join(f'    u"{name}",\n' for name in names)
    return f"""// Generated from the interface definition: every class and member that the type library publishes.
#pragma once

#include <array>
#include <string_view>

namespace wendrill {{

inline constexpr std::array<std::u16string_view, {len(names)}> kTypeLibraryMembers = {{
{rows}}};

}}  // namespace wendrill
"""


def reference(idl, _path):
    """CLASS.MEMBER, with the parameters' names where it is a method."""
    lines = []
    for interface in idl.interfaces:
        for member in interface.members:
            parameters = ", ".join(parameter.name for parameter in member.parameters)
            lines.append(class_member(interface, member) + (f"({parameters})" if member.kind == "method" else ""))
    return "\n".join(lines) + "\n"


COUNT = "Count"


def enumeration(name, values):
    """A C++ enumeration, all its values and their names."""
    listed = "".join(f"  {value},\n" for value in values)
    qualified = "".join(f"    {name}::{value},\n" for value in values)
    named = "".join(f'      "{value}",\n' for value in values)
    return f"""enum class {name} {{
{listed}}};

inline constexpr std::array kEvery{name} = {{
{qualified}}};

constexpr std::string_view NameOf({name} value) {{
  constexpr std::string_view kNames[] = {{
{named}  }};
  return kNames[static_cast<std::size_t>(value)];
}}
"""


def published(idl, path):
    """Counts and records have no core of their own: each is one call with its name as a value."""
    counts = [member.name.removesuffix(COUNT) for member in idl.interface("_CPNR").members
              if member.kind == "get" and member.name.endswith(COUNT)]
    records = [member.name for member in idl.interface("_IGet").members]
    counting = "".join(f"  std::int16_t {name}{COUNT}() {{ return Core().Count(CountOf::{name}); }}\n" for name in counts)
    reading = "".join(f"  ParamBagRef {name}(const ParamBagRef& objParams) "
                      f"{{ return Core().Get(GetMember::{name}, objParams); }}\n" for name in records)
    return f"""// Generated from {Path(path).name}: what CPNR counts and what IGet reads.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "common/param_bag.h"

namespace wendrill {{

// The count properties of CPNR without their ending "{COUNT}", in the order of the interface.
{enumeration("CountOf", counts)}
// The members of IGet, in the order of the interface.
{enumeration("GetMember", records)}
// The members under their published names, for a class with Count(CountOf) and Get(GetMember, const ParamBagRef&).
template <typename Pnr>
class PublishedMembers {{
 public:
{counting}
{reading}
 private:
  Pnr& Core() {{ return static_cast<Pnr&>(*this); }}
}};

}}  // namespace wendrill
"""


# What a parameter is called in C++. VARIANT_BOOL and short are one type there, so late binding needs a name of its own
# for a Boolean.
CPP_TYPES = {"short": "SHORT", "long": "LONG", "SAFEARRAY(BSTR)*": "SAFEARRAY**"}
LATE_BOUND_TYPES = CPP_TYPES | {"VARIANT_BOOL": "Boolean", "VARIANT_BOOL*": "Boolean*"}
RESULT_TYPES = {"BSTR": "VT_BSTR", "short": "VT_I2", "long": "VT_I4", "VARIANT_BOOL": "VT_BOOL",
                "VARIANT": "VT_VARIANT", "IUnknown*": "VT_UNKNOWN"}


def result_type(member):
    """The type of a member's result in a VARIANT; any other pointer is an automation object."""
    return "VT_EMPTY" if member.result is None else RESULT_TYPES.get(member.result, "VT_DISPATCH")


def header(idl_path, includes, body):
    lines = "\n".join(f'#include "{include}"' for include in includes)
    return f"""// Generated from {Path(idl_path).name}.
#pragma once

{lines}

namespace wendrill::com {{

{body}
}}  // namespace wendrill::com
"""


def dual_interfaces(idl):
    return [interface for interface in idl.interfaces if interface.is_dual]


def call(interface, member):
    arguments = [f"&{interface.name}::{member.slot}", "Path", result_type(member)]
    arguments += [LATE_BOUND_TYPES.get(parameter.type, parameter.type) for parameter in member.parameters]
    return f"Call<{', '.join(arguments)}>"


def row(interface, name, members):
    """The row of one name: a method, or a property's get and put."""
    read = next((member for member in members if not member.kind.startswith("put")), None)
    written = next((member for member in members if member.kind.startswith("put")), None)
    described = read or written
    parameters = described.parameters if read else described.parameters[:-1]
    names = ", ".join(f'L"{parameter.name}"' for parameter in parameters)
    return f"""    DispatchRow{{.name = L"{name}",
                .id = {described.id},
                .call = {call(interface, read) if read else "nullptr"},
                .put = {call(interface, written) if written else "nullptr"},
                .required = {sum(not parameter.is_optional for parameter in parameters)},
                .allowed = {len(parameters)},
                .givesObject = {"true" if read and result_type(read) == "VT_DISPATCH" else "false"},
                .parameters = {{{names}}}}},
"""


def dispatch(idl, path):
    tables = []
    for interface in dual_interfaces(idl):
        by_name = {}
        for member in interface.members:
            by_name.setdefault(member.name, []).append(member)
        rows = "".join(row(interface, name, members) for name, members in by_name.items())
        tables.append(f"""template <typename Path>
inline constexpr auto kMembersOf<{interface.name}, Path> = std::to_array<DispatchRow>({{
{rows}}});
""")
    return header(path, ["com/server/dispatch_table.h", f"{Path(path).stem}.h"], "\n".join(tables))


def core_name(member):
    """A property is written through the core's SetName."""
    return f"Set{member.name}" if member.kind.startswith("put") else member.name


def slot(member, body):
    parameters = [f"[[maybe_unused]] {CPP_TYPES.get(parameter.type, parameter.type)} {parameter.name}"
                  for parameter in member.parameters]
    if member.result is not None:
        parameters.append(f"{CPP_TYPES.get(member.result, member.result)}* result")
    return f"""  HRESULT STDMETHODCALLTYPE {member.slot}({', '.join(parameters)}) override {{
    {body}
  }}
"""


def forwarding(member):
    arguments = ["this->Object()"] + (["result"] if member.result is not None else [])
    arguments += [parameter.name for parameter in member.parameters]
    function = "Forward" if member.result is None else "ForwardResult"
    return slot(member, f"return {function}<&Self::Core::{core_name(member)}>({', '.join(arguments)});")


def doing_nothing(member):
    return slot(member, "return S_OK;" if member.result is None else "return GiveNothing(result);")


def is_forwarded(member):
    """Restricted members serve languages, not callers: the class implements them by hand."""
    return "restricted" not in member.attributes


def slots(idl, path):
    classes = []
    for interface in dual_interfaces(idl):
        members = [member for member in interface.members if is_forwarded(member)]
        classes.append(f"""template <typename Self>
class Slots<Self, {interface.name}> : public LateBoundSlots<Self, {interface.name}> {{
 public:
{"".join(map(forwarding, members))}}};

template <typename Self>
class EmptySlots<Self, {interface.name}> : public LateBoundSlots<Self, {interface.name}> {{
 public:
{"".join(map(doing_nothing, members))}}};
""")
    return header(path, ["com/classes/forwarding.h", f"{Path(path).stem}_dispatch.h"], "\n".join(classes))


# A class is created by the name that its help string gives when that is one (as in "szuPNR.PNR"), else by
# Library.Class.
PROGRAMMATIC_NAME = re.compile(r"[A-Za-z]+\.[A-Za-z]+")


def programmatic_name(library, a_class):
    return a_class.help if PROGRAMMATIC_NAME.fullmatch(a_class.help) else f"{library.name}.{a_class.name}"


def classes(idl, path):
    rows = "".join(
        f'inline constexpr ClassIdentity k{a_class.name}{{CLSID_{a_class.name}, '
        f'L"{programmatic_name(idl.library, a_class)}", L"{a_class.help}"}};\n'
        for a_class in idl.library.classes)
    return header(path, ["com/server/module.h", f"{Path(path).stem}.h"], rows)


def identities(idl, _path):
    library = idl.library
    rows = "".join(f'    {{"{programmatic_name(library, a_class)}", "{{{a_class.uuid.upper()}}}"}},\n'
                   for a_class in library.classes)
    return f"""// Generated from the interface definition: the classes by the names with which they are created.
#pragma once

#include <array>
#include <string_view>
#include <utility>

namespace wendrill {{

inline constexpr std::string_view k{library.name}Library = "{{{library.uuid.upper()}}}";

inline constexpr std::array<std::pair<std::string_view, std::string_view>, {len(library.classes)}> k{library.name}Classes = {{{{
{rows}}}}};

}}  // namespace wendrill
"""


# The system's marshaller by type library. No class names a threading model: the library's objects share a state without
# a lock, so COM creates all of them in the process's main single-threaded apartment, and the marshaller carries the
# calls of typed clients in other apartments, for each dual interface.
MARSHALLER = "{00020424-0000-0000-C000-000000000046}"


def manifest(idl, _path, version, assembly=None, without=None):
    library = idl.library
    typelib = f"{{{library.uuid}}}"
    class_lines = "".join(
        f'    <comClass clsid="{{{a_class.uuid}}}" progid="{programmatic_name(library, a_class)}" tlbid="{typelib}"/>\n'
        for a_class in library.classes if programmatic_name(library, a_class) != without)
    proxies = "".join(
        f'  <comInterfaceExternalProxyStub name="{interface.name}" iid="{{{interface.uuid}}}" '
        f'proxyStubClsid32="{MARSHALLER}" tlbid="{typelib}"/>\n'
        for interface in dual_interfaces(idl))
    return f"""<?xml version="1.0" encoding="UTF-8" standalone="yes"?>
<assembly xmlns="urn:schemas-microsoft-com:asm.v1" manifestVersion="1.0">
  <assemblyIdentity type="win32" name="{assembly or library.name}" version="{version}" processorArchitecture="x86"/>
  <file name="{library.name}.dll">
{class_lines}    <typelib tlbid="{typelib}" version="{library.version}" helpdir=""/>
  </file>
{proxies}</assembly>
"""


WRITERS = {"manifest": manifest, "member-names": member_names, "published": published, "reference": reference,
           "dispatch": dispatch, "slots": slots, "classes": classes, "identities": identities}


def main(arguments):
    expected = range(4, 7) if arguments[:1] == ["manifest"] else range(2, 4)
    if len(arguments) not in expected or arguments[0] not in WRITERS:
        sys.stderr.write(__doc__)
        return 2
    try:
        text = WRITERS[arguments[0]](read_file(arguments[1]), arguments[1], *arguments[3:])
    except (IdlError, OSError) as error:
        sys.stderr.write(f"{error}\n")
        return 1
    if len(arguments) > 2:
        Path(arguments[2]).write_text(text, encoding="utf-8")
    else:
        sys.stdout.write(text)
    return 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
