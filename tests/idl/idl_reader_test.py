"""The reader of interface definitions: what it understands, and what it says of a text that it does not."""

import sys
import unittest
from pathlib import Path

PROJECT = Path(__file__).resolve().parents[2]
sys.path.insert(0, str(PROJECT / "cmake" / "idl"))
import generate  # noqa: E402
from idl_reader import IdlError, read, read_file  # noqa: E402

INTERFACE = """
import "oaidl.idl";

[object, dual, uuid(0B15F814-7B17-4C63-B1F2-F34B851F980D), helpstring("Says \\"hello\\", then goes.")]
interface _CGreeter : IDispatch {
  [id(1), propget, helpstring("The words.")]
  HRESULT Words([out, retval] BSTR* result);
  [id(1), propput, helpstring("The words.")]
  HRESULT Words([in] BSTR strWords);
  [id(0x60030000), helpstring("Greets.")]
  HRESULT Greet([in, out] BSTR* strName, [in, optional, defaultvalue(-1)] short intTimes, [out, retval] VARIANT_BOOL* result);
  [id(-4), propget, restricted]
  HRESULT NewEnum([out, retval] IUnknown** result);
  [id(2), hidden]
  HRESULT Cut([in, out] SAFEARRAY(BSTR)* strParts);
}
"""

PNR = """
[object, dual, uuid(0B15F814-7B17-4C63-B1F2-F34B851F980D)]
interface _CPNR : IDispatch {
  [id(1), propget]
  HRESULT Words([out, retval] BSTR* result);
  [id(2), propget]
  HRESULT GuestsCount([out, retval] short* result);
  [id(3), propget]
  HRESULT DoorsCount([out, retval] short* result);
}

[object, dual, uuid(51A2E2F8-72BD-4A50-BE18-6C541E59D3F2)]
interface _IGet : IDispatch {
  [id(0x60030000)]
  HRESULT Guest([in, out] IDispatch** objParams, [out, retval] IDispatch** result);
}
"""

LIBRARY = """
[uuid(7B731766-AE3C-4EF0-B5E3-2C5EE8E0E0DE), version(1.0), helpstring("Greetings")]
library Greetings {
  importlib("stdole2.tlb");
  interface _CGreeter;
  [uuid(AA7DC265-8498-44CD-9BE6-F949A7610C4D), helpstring("A greeter.")]
  coclass CGreeter {
    [default] interface _CGreeter;
    [default, source] dispinterface _Events;
  }
  [uuid(51A2E2F8-72BD-4A50-BE18-6C541E59D3F2), helpstring("hall.Door")]
  coclass Door {
    [default] interface _CGreeter;
  }
}
"""


def greeter():
    return read(INTERFACE).interface("_CGreeter")


class Interfaces(unittest.TestCase):
    def test_an_interface_has_its_identity_and_help(self):
        interface = greeter()
        self.assertEqual("0B15F814-7B17-4C63-B1F2-F34B851F980D", interface.uuid)
        self.assertEqual('Says "hello", then goes.', interface.help)
        self.assertTrue(interface.is_dual)
        self.assertFalse(interface.is_dispinterface)

    def test_identifiers_are_decimal_hexadecimal_or_negative(self):
        self.assertEqual([1, 1, 0x60030000, -4, 2], [member.id for member in greeter().members])

    def test_a_property_has_a_get_and_a_put_under_one_name(self):
        get, put = greeter().members[:2]
        self.assertEqual(("get_Words", "put_Words"), (get.slot, put.slot))
        self.assertEqual(("BSTR", None), (get.result, put.result))
        self.assertEqual([("strWords", "BSTR")], [(each.name, each.type) for each in put.parameters])

    def test_the_result_is_no_parameter(self):
        greet = greeter().members[2]
        self.assertEqual("VARIANT_BOOL", greet.result)
        self.assertEqual(["strName", "intTimes"], [each.name for each in greet.parameters])

    def test_an_optional_parameter_keeps_its_default(self):
        name, times = greeter().members[2].parameters
        self.assertFalse(name.is_optional)
        self.assertTrue(times.is_optional)
        self.assertEqual("-1", times.attributes["defaultvalue"])

    def test_an_array_by_reference_is_one_type(self):
        self.assertEqual("SAFEARRAY(BSTR)*", greeter().members[4].parameters[0].type)

    def test_members_keep_their_marks(self):
        self.assertIn("restricted", greeter().members[3].attributes)
        self.assertIn("hidden", greeter().members[4].attributes)

    def test_members_of_a_dispatch_interface_return_their_results(self):
        text = """[uuid(89D96E63-FB71-4A1E-A3F0-7247ADAEB10F)] dispinterface _Events {
          properties:
          methods:
            [id(1)] void Came([in] IDispatch* who);
            [id(2), propget] BSTR Name();
        }"""
        came, name = read(text).interface("_Events").members
        self.assertEqual((None, "BSTR"), (came.result, name.result))

    def test_an_enumeration_has_its_values(self):
        text = "typedef [helpstring(\"Keys.\")] enum Keys { kbA = 1, kbB = 0x10, kbC = -1 } Keys;"
        self.assertEqual({"kbA": 1, "kbB": 16, "kbC": -1}, read(text).enumerations[0].values)

    def test_an_interface_that_is_not_there_is_named(self):
        with self.assertRaisesRegex(IdlError, "_CNobody"):
            read(INTERFACE).interface("_CNobody")


class Libraries(unittest.TestCase):
    def test_classes_name_the_interfaces_that_they_implement(self):
        library = read(LIBRARY).library
        self.assertEqual(("Greetings", "1.0"), (library.name, library.version))
        self.assertEqual([("CGreeter", ["_CGreeter"]), ("Door", ["_CGreeter"])],
                         [(each.name, each.interfaces) for each in library.classes])

    def test_a_class_is_created_under_its_library_unless_its_help_is_a_name(self):
        library = read(LIBRARY).library
        self.assertEqual(["Greetings.CGreeter", "hall.Door"],
                         [generate.programmatic_name(library, each) for each in library.classes])


class Errors(unittest.TestCase):
    def assert_error(self, message, text):
        with self.assertRaisesRegex(IdlError, message):
            read(text)

    def test_an_unknown_character_is_named_with_its_line(self):
        self.assert_error("line 2: unexpected '%'", "\n% interface")

    def test_a_member_without_an_identifier_is_refused(self):
        self.assert_error("line 2: the member has no identifier",
                          "interface _A : IDispatch {\nHRESULT Go();\n}")

    def test_an_interface_that_is_never_closed_is_named(self):
        self.assert_error("the interface _A is never closed", "interface _A : IDispatch {")

    def test_a_library_that_is_never_closed_is_named(self):
        self.assert_error("the library L is never closed",
                          "[uuid(7B731766-AE3C-4EF0-B5E3-2C5EE8E0E0DE), version(1.0)] library L {")

    def test_a_bracket_that_is_never_closed_is_refused(self):
        self.assert_error("the bracket is never closed", "[uuid(")

    def test_what_is_no_interface_and_no_library_is_refused(self):
        self.assert_error("line 1: unexpected 'module'", "module X { }")

    def test_a_missing_mark_is_expected(self):
        self.assert_error("';' expected instead of '}'", "[uuid(a)] interface _A : IDispatch { [id(1)] HRESULT Go() }")

    def test_a_file_is_named(self):
        with self.assertRaises(OSError):
            read_file("no such file.idl")


class Generated(unittest.TestCase):
    def dispatch(self):
        return generate.dispatch(read(INTERFACE), "idl/greeter.idl")

    def test_a_boolean_is_told_from_a_short(self):
        self.assertIn("Call<&_CGreeter::Greet, Path, VT_BOOL, BSTR*, SHORT>", self.dispatch())

    def test_get_and_put_share_a_row(self):
        self.assertEqual(1, self.dispatch().count('.name = L"Words"'))
        self.assertIn(".put = Call<&_CGreeter::put_Words, Path, VT_EMPTY, BSTR>", self.dispatch())

    def test_optional_parameters_may_be_left_out(self):
        row = self.dispatch().split('.name = L"Greet"')[1]
        self.assertIn(".required = 1,", row)
        self.assertIn(".allowed = 2,", row)

    def test_a_slot_forwards_to_the_member_of_the_core(self):
        slots = generate.slots(read(INTERFACE), "idl/greeter.idl")
        self.assertIn("ForwardResult<&Self::Core::Greet>(this->Object(), result, strName, intTimes)", slots)
        self.assertIn("Forward<&Self::Core::SetWords>(this->Object(), strWords)", slots)

    def test_restricted_members_are_left_to_the_class(self):
        self.assertNotIn("get_NewEnum", generate.slots(read(INTERFACE), "idl/greeter.idl"))

    def test_classes_have_their_names_and_identifiers_as_text(self):
        header = generate.identities(read(INTERFACE + LIBRARY), "idl/greeter.idl")
        self.assertIn('kGreetingsLibrary = "{7B731766-AE3C-4EF0-B5E3-2C5EE8E0E0DE}";', header)
        self.assertIn('{"Greetings.CGreeter", "{AA7DC265-8498-44CD-9BE6-F949A7610C4D}"},', header)
        self.assertIn('{"hall.Door", "{51A2E2F8-72BD-4A50-BE18-6C541E59D3F2}"},', header)

    def test_members_are_named_for_the_tests(self):
        names = generate.member_names(read(INTERFACE + LIBRARY), "idl/greeter.idl")
        for name in ("CGreeter", "CGreeter.Words", "CGreeter.Words put", "CGreeter.Greet"):
            self.assertIn(f'u"{name}"', names)

    def test_counts_and_records_are_values_and_members_of_the_same_names(self):
        header = generate.published(read(PNR), "idl/greeter.idl")
        self.assertIn("enum class CountOf {\n  Guests,\n  Doors,\n};", header)
        self.assertIn("kEveryCountOf = {\n    CountOf::Guests,\n    CountOf::Doors,\n};", header)
        self.assertIn("enum class GetMember {\n  Guest,\n};", header)
        self.assertIn('NameOf(GetMember value) {\n  constexpr std::string_view kNames[] = {\n      "Guest",\n  };', header)
        self.assertIn("std::int16_t DoorsCount() { return Core().Count(CountOf::Doors); }", header)
        self.assertIn("ParamBagRef Guest(const ParamBagRef& objParams) { return Core().Get(GetMember::Guest, objParams); }",
                      header)
        self.assertNotIn("Words", header)

    def test_a_manifest_names_every_class_and_every_dual_interface(self):
        manifest = generate.manifest(read(INTERFACE + LIBRARY), "idl/greeter.idl", "2.3.0.0")
        self.assertIn('<assemblyIdentity type="win32" name="Greetings" version="2.3.0.0"', manifest)
        for name in ("Greetings.CGreeter", "hall.Door"):
            self.assertIn(f'progid="{name}"', manifest)
        self.assertIn('iid="{0B15F814-7B17-4C63-B1F2-F34B851F980D}"', manifest)

    def test_a_manifest_may_have_another_name_and_leave_a_class_out(self):
        manifest = generate.manifest(read(INTERFACE + LIBRARY), "idl/greeter.idl", "2.3.0.0", "Doorless", "hall.Door")
        self.assertIn('<assemblyIdentity type="win32" name="Doorless"', manifest)
        self.assertIn('<file name="Greetings.dll">', manifest)
        self.assertNotIn("hall.Door", manifest)

    def test_methods_are_listed_with_their_parameters(self):
        self.assertEqual(["CGreeter.Words", "CGreeter.Words", "CGreeter.Greet(strName, intTimes)", "CGreeter.NewEnum",
                          "CGreeter.Cut(strParts)"],
                         generate.reference(read(INTERFACE), "idl/greeter.idl").splitlines())


class TheProjectsOwn(unittest.TestCase):
    def test_both_files_are_understood_whole(self):
        published = read_file(PROJECT / "idl" / "wendrill23.idl")
        platform = read_file(PROJECT / "idl" / "platform.idl")
        self.assertEqual(7, len(published.library.classes))
        self.assertEqual(130, len(published.enumerations[0].values))
        # As many as the text has attributes with an identifier.
        for idl, path in ((published, "wendrill23.idl"), (platform, "platform.idl")):
            text = (PROJECT / "idl" / path).read_text(encoding="utf-8")
            self.assertEqual(text.count("[id("), sum(len(each.members) for each in idl.interfaces))


if __name__ == "__main__":
    unittest.main()
