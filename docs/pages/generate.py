#!/usr/bin/env python3
"""Writes the reference as pages that a browser opens from a folder, without a server and without a network.

  generate.py CLONE FOLDER VERSION

The text is that of docs/reference.md, one page for each of its sections, and of the other documents for users, one page
each. What the interface definition says of a member is added to it. Every class has a page; every member, bag key, kind,
error number and key code has an anchor of its own name. Names in the text become links to them.
"""

import json
import re
import shutil
import sys
import xml.etree.ElementTree as ET
from dataclasses import dataclass, field
from pathlib import Path

import markdown
from pygments.formatters import HtmlFormatter

HERE = Path(__file__).resolve().parent
sys.path.insert(0, str(HERE.parent.parent / "cmake" / "idl"))
from idl_reader import read_file  # noqa: E402

OTHER_NAMES = ("scenario.md",)  # where a member's name may be that of a component of the terminal
DOCUMENTS = ("scenario", "glossary", "reliability")
REFERENCE = "docs/reference.md"
LUNR = Path("/usr/share/javascript/lunr/lunr.min.js")
BAG_KEY = re.compile(r"[a-z]{3}Key[A-Z]\w*(?:\(\))?")


class PageError(Exception):
    """A source that does not fit: the message says what and where."""


@dataclass
class Entry:
    """What the search finds."""

    name: str
    kind: str
    url: str
    text: str
    aliases: str = ""


@dataclass
class Page:
    file: str
    title: str
    document: str  # the file of docs/ that it comes from
    body: ET.Element
    headings: list = field(default_factory=list)  # (id, element) of the headings below the title


# ---- From Markdown to trees


def tree_of(text):
    converter = markdown.Markdown(output_format="xhtml", extensions=["tables", "fenced_code", "codehilite", "toc"],
                                  extension_configs={"codehilite": {"guess_lang": False, "css_class": "code"}})
    converter.preprocessors.deregister("html_block")  # what is in angle brackets is text: the documents hold no HTML
    converter.inlinePatterns.deregister("html")
    return ET.fromstring(f"<main>{converter.convert(text)}</main>")


def text_of(element):
    return " ".join("".join(element.itertext()).split())


def make(tag, text="", **attributes):
    element = ET.Element(tag, {name.rstrip("_"): value for name, value in attributes.items()})
    element.text = text
    return element


def code_link(url, name):
    link = make("a", href=url)
    link.append(make("code", name))
    return link


def sections_of(text):
    """The parts of a document before the first "## " and from each one on, with one # less in each heading."""
    parts = [[]]
    fenced = False
    for line in text.splitlines():
        fenced ^= line.startswith("```")
        if not fenced and line.startswith("## "):
            parts.append([])
        parts[-1].append(line[1:] if not fenced and re.match("##+ ", line) else line)
    return ["\n".join(part) for part in parts]


def page_of(file, document, text):
    body = tree_of(text)
    title = next(body.iter("h1"))
    page = Page(file, text_of(title), document, body)
    page.headings = [(heading.get("id"), heading) for heading in body.iter() if heading.tag in ("h2", "h3", "h4")]
    return page


def pages_of(docs):
    reference = sections_of((docs / "reference.md").read_text(encoding="utf-8"))
    how_to_read = next(index for index, part in enumerate(reference) if part.startswith("# How to read"))
    start = reference[0] + "\n\n#" + reference.pop(how_to_read)
    pages = [page_of("index.html", "reference.md", start)]
    for part in reference[1:]:
        page = page_of("", "reference.md", part)
        page.file = next(page.body.iter("h1")).get("id") + ".html"
        pages.append(page)
    for name in DOCUMENTS:
        text = (docs / f"{name}.md").read_text(encoding="utf-8")
        pages.append(page_of(f"{name}.html", f"{name}.md", text))
    return pages


# ---- What the interface definition says of a member

VISUAL_BASIC = {"BSTR": "String", "short": "Integer", "long": "Long", "VARIANT_BOOL": "Boolean", "VARIANT": "Variant",
                "IDispatch*": "Object", "IUnknown*": "Unknown", "SAFEARRAY(BSTR)": "String()"}


def type_name(name):
    """The name in Visual Basic, which the reference's tables use; a class is known by its interface."""
    return VISUAL_BASIC.get(name, name.strip("_*"))


def declared(parameter):
    by_reference = "out" in parameter.attributes
    name = type_name(parameter.type.removesuffix("*") if by_reference else parameter.type)
    text = f"{'ByRef ' if by_reference else ''}{parameter.name} As {name}"
    return f"[{text}]" if parameter.is_optional else text


def signature(members):
    """Of the get and the put of a property, or of a method."""
    member = members[0]
    result = f" As {type_name(member.result)}" if member.result else ""
    if member.kind == "method":
        return f"{member.name}({', '.join(map(declared, member.parameters))}){result}"
    return f"{member.name}{result}"


def kind_of(members):
    if members[0].kind == "method":
        return "method"
    return "property" if len(members) > 1 else "property, read only"


def identifier(member):
    return f"&H{member.id:08X}" if member.id > 0xFFFF else str(member.id)


# ---- From tables to anchors


def rows_of(table):
    """The cells' elements by the text of the column's header."""
    headers = [text_of(cell) for cell in table.find("thead").iter("th")]
    for row in table.find("tbody"):
        yield row, dict(zip(headers, row))


def headers_of(table):
    return [text_of(cell) for cell in table.find("thead").iter("th")]


def parents_of(body):
    return {child: parent for parent in body.iter() for child in parent}


def first_name(cell):
    """The name in the cell's first code, without parameters; empty when it does not begin with a code."""
    code = cell.find("code")
    if code is None or (cell.text or "").strip():
        return ""
    return code.text if BAG_KEY.fullmatch(code.text) else code.text.split("(")[0]


class Builder:
    def __init__(self, idl, pages):
        self.idl = idl
        self.pages = pages
        self.entries = []
        self.members = {}  # name: [(page, url)]
        self.keys = {}  # name: [(type, where it is, url, meaning)]
        self.targets = {}  # other names that become links: key codes, classes
        self.errors = {}  # number: url
        self.slugs = {(page.document, slug): f"{page.file}#{slug}" for page in pages for slug, _ in page.headings}
        for page in pages:
            title = next(page.body.iter("h1"))
            self.slugs[page.document, title.attrib.pop("id")] = page.file
        self.classes = {f"_{a_class.name}": a_class.name for a_class in idl.library.classes}
        for name in self.classes.values():
            page = next((page for page in pages if page.title == name), None)
            if page is None:
                raise PageError(f"docs/reference.md has no section for the class {name}")
            self.targets[name] = page.file
            self.add_lead(page)

    def add(self, *fields):
        self.entries.append(Entry(*fields))

    def add_lead(self, page):
        lead = make("p", self.idl.interface(f"_{page.title}").help, class_="lead")
        title = page.body.find("h1")
        page.body.insert(list(page.body).index(title) + 1, lead)

    # A row's first code is a link to the row itself, so that its address can be copied.
    def anchor(self, page, row, cell, name):
        row.set("id", name)
        code = cell.find("code")
        link = make("a", href=f"#{name}", class_="anchor")
        if code is None:
            link.text, cell.text = cell.text, ""
        else:
            link.tail, code.tail = code.tail, ""
            cell.remove(code)
            link.append(code)
        cell.insert(0, link)
        return f"{page.file}#{name}"

    def read(self, page):
        owners = [page.title]
        parents = parents_of(page.body)
        for element in list(page.body.iter()):
            if element.tag in ("h2", "h3", "h4"):
                owners = self.owners(page, element)
            elif element.tag == "table":
                self.read_table(page, element, owners, parents[element])

    def owners(self, page, heading):
        """Whose keys the tables below a heading list: the members or kinds in it, "X" of "Keys of X", else the page."""
        codes = [code.text for code in heading.iter("code")]
        if codes and page.title in ("IGet", "IGetPNR"):
            heading.set("id", f"{self.prefix(page)}{codes[0].removeprefix('* ')}-keys")
            return codes
        match = re.match(r"(?:Keys of (\w+)|.*: (ALL))$", text_of(heading))
        return [match[1] or match[2]] if match else codes or [page.title]

    @staticmethod
    def prefix(page):
        return "kind-" if page.title == "IGetPNR" else ""

    def read_table(self, page, table, owners, parent):
        first, *rest = headers_of(table)
        if first == "member" and page.title in self.classes.values():
            self.read_members(page, table, parent)
        elif first == "key" and "code" in rest:
            self.read_key_codes(page, table)
        elif first.startswith("key"):
            self.read_keys(page, table, owners)
        elif first == "kind" and "element" in rest:
            self.read_kinds(page, table)
        elif first == "number":
            self.read_errors(page, table)
        elif first in ("member", "operation"):
            for row, cells in rows_of(table):
                name = first_name(cells[first])
                if name:
                    url = self.anchor(page, row, cells[first], name)
                    self.add(name, f"{page.title}, {first}", url, text_of(row))

    def read_members(self, page, table, parent):
        """A table of members becomes one section for each, with a list of their names before them."""
        interface = self.idl.interface(f"_{page.title}")
        overview = make("ul", class_="overview")
        sections = [make("h2", "Members", id="members"), overview]
        for _, cells in rows_of(table):
            name = first_name(cells["member"])
            members = [member for member in interface.members if member.name == name]
            if not members:
                raise PageError(f"{page.document}: {page.title} has no member {name}")
            url = f"{page.file}#{name}"
            self.members.setdefault(name, []).append((page, url))
            sections.append(self.member_section(page, name, members, cells))
            item = make("li")
            item.append(code_link(f"#{name}", name))
            overview.append(item)
            self.add(name, f"{page.title}, {kind_of(members)}", url,
                     members[0].help + " " + " ".join(map(text_of, list(cells.values())[1:])))
        place = list(parent).index(table)
        parent.remove(table)
        for offset, section in enumerate(sections):
            parent.insert(place + offset, section)

    def member_section(self, page, name, members, cells):
        section = make("section", id=name, class_="member")
        heading = make("h3")
        link = make("a", name, href=f"#{name}", class_="anchor")
        link.tail = " "
        heading.append(link)
        heading.append(make("span", kind_of(members), class_="kind"))
        section.append(heading)
        section.append(make("p", signature(members), class_="signature"))
        section.append(make("p", members[0].help, class_="summary"))
        details = make("dl")
        for header, cell in list(cells.items())[1:]:
            if text_of(cell):
                details.append(make("dt", header))
                cell.tag = "dd"
                cell.attrib = {"class": "numbers"} if header.startswith("error") else {}
                details.append(cell)
        keys = next((slug for slug, heading in page.headings
                     if name in [code.text for code in heading.iter("code")]), None)
        if keys is not None and page.title == "IGet":
            details.append(make("dt", "keys"))
            value = make("dd")
            value.append(make("a", "that it writes", href=f"#{keys}"))  # a slug: becomes the heading's address later
            details.append(value)
        details.append(make("dt", "identifier"))
        details.append(make("dd", identifier(members[0])))
        section.append(details)
        return section

    def read_keys(self, page, table, owners):
        prefix = self.prefix(page) if owners != [page.title] else ""
        for row, cells in rows_of(table):
            cell = next(iter(cells.values()))
            key = first_name(cell)
            if not key:
                continue
            names = [f"{prefix}{owner.removeprefix('* ')}.{key}" for owner in owners]
            url = self.anchor(page, row, cell, names[0])
            for name in names[1:]:
                cell.insert(0, make("span", id=name))
            if not BAG_KEY.fullmatch(key):
                self.add(key, f"{page.title}, {owners[0]}", url, text_of(row))
                continue
            values = list(cells.values())
            for owner, name in zip(owners, names):
                where = f"kind {owner}" if prefix else owner
                self.keys.setdefault(key, []).append((text_of(values[1]), where, f"{page.file}#{name}", values[-1]))

    def read_kinds(self, page, table):
        for row, cells in rows_of(table):
            kind = first_name(cells["kind"])
            url = self.anchor(page, row, cells["kind"], f"kind-{kind.removeprefix('* ')}")
            row.set("data-kind", kind)
            self.add(kind, "kind of Elements", url, text_of(row))

    def read_errors(self, page, table):
        for row, cells in rows_of(table):
            number = text_of(cells["number"])
            url = self.anchor(page, row, cells["number"], number)
            self.errors[number] = url
            status = (0x800A0000 if int(number) > 0 else 0x100000000) + int(number)
            aliases = f"{status:X} 0x{status:X} &H{status:X} {status - 0x100000000}"
            self.add(number, "error", url, text_of(row), aliases)

    def read_key_codes(self, page, table):
        for row, cells in rows_of(table):
            name = first_name(cells["key"])
            self.targets[name] = self.anchor(page, row, cells["key"], name)
            self.add(name, f"key code {text_of(cells['code'])}", self.targets[name], text_of(row))

    def read_prose(self, page):
        """The paragraphs and lists below each heading; tables and members are entries of their own."""
        url, name, kind, text = page.file, page.title, "page", ""
        for element in list(page.body):
            if element.tag in ("h2", "h3", "h4"):
                self.add(name, kind, url, text)
                keys = ": keys" if element.get("id").endswith("-keys") else ""
                url, name, kind, text = f"{page.file}#{element.get('id')}", text_of(element) + keys, page.title, ""
            elif element.tag in ("p", "ul", "ol"):
                text += " " + text_of(element)
        self.add(name, kind, url, text)

    # ---- The page of all bag keys

    def bag_keys(self):
        body = make("main")
        body.append(make("h1", "Bag keys"))
        body.append(make("p", "Every key of a parameter bag, with the members and kinds that read or write it. A key is "
                              "spelled exactly as here, with its capitals and parentheses."))
        page = Page("bag-keys.html", "Bag keys", "reference.md", body)
        overview = make("ul", class_="overview")
        body.append(overview)
        for key in sorted(self.keys, key=lambda name: (name[6:].lower(), name)):
            section = make("section", id=key, class_="member")
            heading = make("h3")
            link = make("a", key, href=f"#{key}", class_="anchor")
            heading.append(link)
            section.append(heading)
            places = make("ul")
            for kind, where, url, meaning in self.keys[key]:
                place = make("li")
                place.append(code_link(url, where.removeprefix("kind ")))
                place[0].tail = f" ({kind}): {text_of(meaning)}"
                if where.startswith("kind "):
                    place.text = "kind "
                places.append(place)
            section.append(places)
            body.append(section)
            item = make("li")
            item.append(code_link(f"#{key}", key))
            overview.append(item)
            self.add(key, "bag key", f"{page.file}#{key}",
                     "; ".join(f"{where}: {text_of(meaning)}" for _, where, _, meaning in self.keys[key]))
        return page

    # ---- Links

    def link(self, page):
        self.link_fragments(page)
        self.link_names(page)
        self.link_numbers(page)

    def link_fragments(self, page):
        """#slug of a document becomes the page that the heading is on now."""
        slugs = {slug: heading.get("id") for slug, heading in page.headings}
        for anchor in page.body.iter("a"):
            target = anchor.get("href")
            if target.startswith("#") and "class" not in anchor.attrib and target[1:] in slugs:
                anchor.set("href", f"#{slugs[target[1:]]}")
            elif target.startswith("#") and (page.document, target[1:]) in self.slugs:
                anchor.set("href", self.new_address(page.document, target[1:]))

    def new_address(self, document, slug):
        file, _, fragment = self.slugs[document, slug].partition("#")
        for page in self.pages:
            for old, heading in page.headings:
                if page.file == file and old == fragment:
                    return f"{file}#{heading.get('id')}"
        return self.slugs[document, slug]

    def address_of(self, page, name):
        document = re.fullmatch(r"docs/(\w+)\.md", name)
        if document:
            return f"{document[1]}.html" if document[1] in DOCUMENTS else "index.html" if name == REFERENCE else None
        plain = name if BAG_KEY.fullmatch(name) else name.split("(")[0]
        if plain in self.keys:
            return f"bag-keys.html#{plain}"
        if plain in self.targets:
            return self.targets[plain]
        if page.document in OTHER_NAMES:
            return None
        places = self.members.get(plain, [])
        here = [url for owner, url in places if owner is page]
        return here[0] if here else places[0][1] if len(places) == 1 else None

    def link_names(self, page):
        parents = parents_of(page.body)
        for code in list(page.body.iter("code")):
            chain = [code]
            while chain[-1] in parents:
                chain.append(parents[chain[-1]])
            if any(element.tag in ("a", "pre", "h1", "h2", "h3", "h4") for element in chain):
                continue
            address = self.address_of(page, code.text or "")
            if address in (None, page.file) or any(f"{page.file}#{element.get('id')}" == address for element in chain):
                continue
            parent = chain[1]
            link = make("a", href=address)
            link.tail, code.tail = code.tail, ""
            parent[list(parent).index(code)] = link
            link.append(code)

    def link_numbers(self, page):
        for table in page.body.iter("table"):
            for _, cells in rows_of(table):
                for header, cell in cells.items():
                    if header in ("error", "errors", "numbers"):
                        cell.set("class", "numbers")
        for cell in list(page.body.iter()):
            if cell.get("class") == "numbers":
                self.link_numbers_in(cell)

    def link_numbers_in(self, cell):
        """Numbers in the cell's own text and after its children; a number that is no error stays text."""
        pieces = [(None, cell.text or "")] + [(child, child.tail or "") for child in list(cell)]
        for child in list(cell):
            cell.remove(child)
        cell.text = ""
        for child, text in pieces:
            if child is not None:
                child.tail = ""
                cell.append(child)
            for word in re.split(r"((?<!\w)-?\d+(?!\w))", text):
                if word in self.errors:
                    cell.append(make("a", word, href=self.errors[word]))
                elif len(cell):
                    cell[-1].tail = (cell[-1].tail or "") + word
                else:
                    cell.text += word


def wrap_tables(page):
    """A wide table scrolls by itself; on a narrow screen its cells say which column they are of."""
    parents = parents_of(page.body)
    for table in list(page.body.iter("table")):
        headers = headers_of(table)
        for row in table.find("tbody"):
            for header, cell in zip(headers, row):
                cell.set("data-label", header)
        parent = parents[table]
        box = make("div", class_="table")
        parent[list(parent).index(table)] = box
        box.append(table)


# ---- Files


def navigation(pages, current, classes):
    first, *others = pages
    groups = {"": [first], "Classes": [page for page in others if page.title in classes]}
    groups["More"] = [page for page in others if page.document == "reference.md" and page not in groups["Classes"]]
    groups["Documents"] = [page for page in others if page.document != "reference.md"]
    nav = make("nav")
    nav.set("aria-label", "Pages")
    for name, members in groups.items():
        if name:
            nav.append(make("h2", name))
        items = make("ul")
        for page in members:
            item = make("li")
            link = make("a", "Overview" if page is first else page.title, href=page.file)
            if page is current:
                link.set("aria-current", "page")
            item.append(link)
            items.append(item)
        nav.append(items)
    return nav


def contents(page):
    """Links to the headings below the title, where there are some."""
    headings = [heading for heading in page.body.iter("h2") if heading.get("id")]
    if len(headings) < 2:
        return None
    box = make("details", class_="contents")
    box.set("open", "open")
    box.append(make("summary", "On this page"))
    items = make("ul")
    for heading in headings:
        item = make("li")
        item.append(make("a", text_of(heading), href=f"#{heading.get('id')}"))
        items.append(item)
    box.append(items)
    return box


def html_of(element):
    return ET.tostring(element, encoding="unicode", method="html")


def write(folder, pages, builder, version):
    template = (HERE / "page.html").read_text(encoding="utf-8")
    for page in pages:
        inside = contents(page)
        if inside is not None:
            before = page.body.find("*[@class='lead']")
            if before is None:
                before = page.body.find("h1")
            page.body.insert(list(page.body).index(before) + 1, inside)
        html = template
        for name, value in {"TITLE": page.title, "VERSION": version, "BODY": html_of(page.body),
                            "NAVIGATION": html_of(navigation(pages, page, builder.classes.values()))}.items():
            html = html.replace(f"@{name}@", value)
        (folder / page.file).write_text(html, encoding="utf-8")
    # A script, not JSON: a page that is opened from a folder may not read other files, but may run them.
    entries = [vars(entry) for entry in builder.entries]
    (folder / "search-data.js").write_text(f"const searchEntries = {json.dumps(entries, indent=0)};\n", encoding="utf-8")
    colours = "\n".join([
        HtmlFormatter(style="vs").get_style_defs(".code"),
        "@media screen and (prefers-color-scheme: dark) {",
        HtmlFormatter(style="native").get_style_defs(".code"), "}"])
    (folder / "style.css").write_text(f"{colours}\n{(HERE / 'style.css').read_text(encoding='utf-8')}", encoding="utf-8")
    shutil.copyfile(HERE / "search.js", folder / "search.js")
    shutil.copyfile(LUNR, folder / "lunr.min.js")


def main(arguments):
    if len(arguments) != 3:
        sys.stderr.write(__doc__)
        return 2
    clone, folder, version = Path(arguments[0]), Path(arguments[1]), arguments[2]
    try:
        idl = read_file(clone / "idl" / "wendrill23.idl")
        pages = pages_of(clone / "docs")
        builder = Builder(idl, pages)
        for page in pages:
            builder.read(page)
        for page in pages:
            builder.read_prose(page)
        keys = builder.bag_keys()
        for page in pages:
            builder.link(page)
        pages.insert(next(index for index, page in enumerate(pages) if page.title == "Bags") + 1, keys)
        for page in pages:
            wrap_tables(page)
        folder.mkdir(parents=True, exist_ok=True)
        write(folder, pages, builder, version)
    except (PageError, OSError) as error:
        sys.stderr.write(f"{error}\n")
        return 1
    return 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
