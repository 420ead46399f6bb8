"""Reads the interface definitions under idl/ into plain records, so that no other program has to parse them.

The grammar is the part of IDL that this project writes: enumerations, dual interfaces, dispatch interfaces and one
library with its classes. Whatever else a file holds is an error that names the line.
"""

import re
from dataclasses import dataclass, field


class IdlError(Exception):
    """A text that this reader does not understand."""


@dataclass
class Parameter:
    name: str
    type: str  # as it is written, without blanks before the stars: "BSTR*", "SAFEARRAY(BSTR)*"
    attributes: dict = field(default_factory=dict)  # "in", "out", "optional": None; "defaultvalue": its text

    @property
    def is_optional(self):
        return "optional" in self.attributes


@dataclass
class Member:
    name: str
    id: int
    kind: str  # "method", "get", "put", "putref"
    help: str
    parameters: list  # without the result
    result: str | None  # the type behind the [out, retval] pointer: "BSTR", "_CQuillet*"; None for none
    attributes: dict = field(default_factory=dict)

    @property
    def slot(self):
        """The name of the method in the interface's method table."""
        return self.name if self.kind == "method" else f"{self.kind}_{self.name}"


@dataclass
class Interface:
    name: str
    uuid: str
    is_dual: bool
    is_dispinterface: bool
    help: str
    members: list


@dataclass
class Class:
    name: str
    uuid: str
    help: str
    interfaces: list  # names, the default one first


@dataclass
class Library:
    name: str
    uuid: str
    version: str
    help: str
    classes: list


@dataclass
class Enumeration:
    name: str
    help: str
    values: dict


@dataclass
class Idl:
    enumerations: list
    interfaces: list
    library: Library | None

    def interface(self, name):
        for interface in self.interfaces:
            if interface.name == name:
                return interface
        raise IdlError(f"there is no interface {name}")


_TOKEN = re.compile(
    r"""(?P<space>\s+|//[^\n]*|/\*.*?\*/)
      | (?P<string>"(?:[^"\\]|\\.)*")
      | (?P<uuid>[0-9A-Fa-f]{8}-[0-9A-Fa-f]{4}-[0-9A-Fa-f]{4}-[0-9A-Fa-f]{4}-[0-9A-Fa-f]{12})
      | (?P<number>-?(?:0x[0-9A-Fa-f]+|\d+(?:\.\d+)?))
      | (?P<word>[A-Za-z_][A-Za-z0-9_]*)
      | (?P<mark>[][(){},;:*=])""",
    re.VERBOSE | re.DOTALL,
)


class _Tokens:
    """The words of a file in their order, each with its line."""

    def __init__(self, text):
        self._tokens = []
        self._next = 0
        place = 0
        while place < len(text):
            match = _TOKEN.match(text, place)
            line = text.count("\n", 0, place) + 1
            if match is None:
                raise IdlError(f"line {line}: unexpected {text[place]!r}")
            if match.lastgroup != "space":
                self._tokens.append((match.group(), line))
            place = match.end()

    def __bool__(self):
        return self._next < len(self._tokens)

    def peek(self, ahead=0):
        place = self._next + ahead
        return self._tokens[place][0] if place < len(self._tokens) else ""

    def take(self):
        token = self.peek()
        self._next += 1
        return token

    def accept(self, token):
        if self.peek() != token:
            return False
        self._next += 1
        return True

    def expect(self, token):
        if not self.accept(token):
            raise self.error(f"{token!r} expected instead of {self.peek()!r}")

    def error(self, message):
        line = self._tokens[min(self._next, len(self._tokens) - 1)][1] if self._tokens else 1
        return IdlError(f"line {line}: {message}")


def _unquoted(text):
    return re.sub(r"\\(.)", r"\1", text[1:-1])


def _attributes(tokens):
    """[name, name(argument), ...] as a dictionary; an argument keeps its own spelling, a string loses its quotes."""
    attributes = {}
    while tokens.accept("["):
        while not tokens.accept("]"):
            name = tokens.take()
            argument = None
            if tokens.accept("("):
                words = []
                while not tokens.accept(")"):
                    if not tokens:
                        raise tokens.error("the bracket is never closed")
                    words.append(tokens.take())
                argument = _unquoted(words[0]) if len(words) == 1 and words[0].startswith('"') else "".join(words)
            attributes[name] = argument
            if tokens.peek() != "]":
                tokens.expect(",")
    return attributes


def _type(tokens):
    name = tokens.take()
    if name == "SAFEARRAY":
        tokens.expect("(")
        name = f"SAFEARRAY({tokens.take()})"
        tokens.expect(")")
    while tokens.accept("*"):
        name += "*"
    return name


def _parameters(tokens):
    parameters = []
    tokens.expect("(")
    while not tokens.accept(")"):
        attributes = _attributes(tokens)
        kind = _type(tokens)
        parameters.append(Parameter(tokens.take(), kind, attributes))
        if tokens.peek() != ")":
            tokens.expect(",")
    return parameters


_KINDS = {"propget": "get", "propput": "put", "propputref": "putref"}


def _member(tokens):
    attributes = _attributes(tokens)
    if "id" not in attributes:
        raise tokens.error("the member has no identifier")
    returned = _type(tokens)
    name = tokens.take()
    parameters = _parameters(tokens)
    tokens.expect(";")
    result = None if returned in ("HRESULT", "void") else returned
    if parameters and "retval" in parameters[-1].attributes:
        result = parameters.pop().type.removesuffix("*")
    kind = next((kind for word, kind in _KINDS.items() if word in attributes), "method")
    return Member(name, int(attributes.pop("id"), 0), kind, attributes.pop("helpstring", ""), parameters, result,
                  attributes)


def _interface(tokens, attributes):
    is_dispinterface = tokens.take() == "dispinterface"
    name = tokens.take()
    if tokens.accept(";"):
        return None  # a declaration in advance
    if tokens.accept(":"):
        tokens.take()
    tokens.expect("{")
    members = []
    while not tokens.accept("}"):
        if tokens.peek(1) == ":":  # "properties:" and "methods:" of a dispatch interface
            tokens.take()
            tokens.expect(":")
        elif tokens:
            members.append(_member(tokens))
        else:
            raise tokens.error(f"the interface {name} is never closed")
    return Interface(name, attributes.get("uuid", "").upper(), "dual" in attributes, is_dispinterface,
                     attributes.get("helpstring", ""), members)


def _class(tokens, attributes):
    tokens.expect("coclass")
    name = tokens.take()
    tokens.expect("{")
    interfaces = []
    while not tokens.accept("}"):
        marks = _attributes(tokens)
        tokens.take()  # interface or dispinterface
        if "source" not in marks:
            interfaces.append(tokens.take())
        else:
            tokens.take()
        tokens.expect(";")
    return Class(name, attributes["uuid"].upper(), attributes.get("helpstring", ""), interfaces)


def _library(tokens, attributes):
    tokens.expect("library")
    library = Library(tokens.take(), attributes["uuid"].upper(), attributes["version"],
                      attributes.get("helpstring", ""), [])
    tokens.expect("{")
    while not tokens.accept("}"):
        if tokens.accept("importlib"):
            while not tokens.accept(";"):
                tokens.take()
        elif tokens.peek() in ("interface", "dispinterface"):
            _interface(tokens, {})
        elif tokens:
            library.classes.append(_class(tokens, _attributes(tokens)))
        else:
            raise tokens.error(f"the library {library.name} is never closed")
    return library


def _enumeration(tokens):
    tokens.expect("typedef")
    attributes = _attributes(tokens)
    tokens.expect("enum")
    name = tokens.take()
    values = {}
    tokens.expect("{")
    while not tokens.accept("}"):
        key = tokens.take()
        tokens.expect("=")
        values[key] = int(tokens.take(), 0)
        if tokens.peek() != "}":
            tokens.expect(",")
    tokens.expect(name)
    tokens.expect(";")
    return Enumeration(name, attributes.get("helpstring", ""), values)


def read(text):
    """The contents of one IDL file. IdlError, with the line, for what it does not understand."""
    tokens = _Tokens(text)
    idl = Idl([], [], None)
    while tokens:
        if tokens.accept("import"):
            tokens.take()
            tokens.expect(";")
        elif tokens.peek() == "typedef":
            idl.enumerations.append(_enumeration(tokens))
        else:
            attributes = _attributes(tokens)
            if tokens.peek() == "library":
                idl.library = _library(tokens, attributes)
            elif tokens.peek() in ("interface", "dispinterface"):
                interface = _interface(tokens, attributes)
                if interface is not None:
                    idl.interfaces.append(interface)
            else:
                raise tokens.error(f"unexpected {tokens.peek()!r}")
    return idl


def read_file(path):
    """The contents of the file; an IdlError names it."""
    try:
        with open(path, encoding="utf-8") as file:
            return read(file.read())
    except IdlError as error:
        raise IdlError(f"{path}: {error}") from error
