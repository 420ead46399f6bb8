#!/usr/bin/env python3
"""The reference as pages: every link leads somewhere, everything published has an anchor, and in a browser the search
finds it, no page is wider than its window and every text can be read, in light and in dark.

  pages_test.py CLONE FOLDER [TEST...]     FOLDER as script/docs wrote it
"""

import json
import os
import re
import shutil
import subprocess
import sys
import tempfile
import unittest
from html.parser import HTMLParser
from pathlib import Path
from urllib.parse import unquote, urlsplit

CLONE = Path(sys.argv[1])
PAGES = Path(sys.argv[2])
sys.path.insert(0, str(CLONE / "cmake" / "idl"))
from idl_reader import read_file  # noqa: E402

OUTSIDE = {"https://toml.io/en/v1.0.0"}  # links that leave the folder; nothing is loaded from there


class Reader(HTMLParser):
    """The anchors of a page and where it links to."""

    def __init__(self, path):
        super().__init__()
        self.anchors = []
        self.links = []
        self.loads = []
        self.feed(path.read_text(encoding="utf-8"))

    def handle_starttag(self, tag, attributes):
        values = dict(attributes)
        if "id" in values:
            self.anchors.append(values["id"])
        for name in ("href", "src"):
            if name in values:
                (self.links if tag == "a" else self.loads).append(values[name])


def read_pages(folder):
    return {path.name: Reader(path) for path in sorted(folder.glob("*.html"))}


def broken_links(folder):
    pages = read_pages(folder)
    broken = []
    for file, page in pages.items():
        for link in page.links + page.loads:
            parts = urlsplit(link)
            target = unquote(parts.path) or file
            if parts.scheme:
                broken += [] if link in OUTSIDE and link in page.links else [f"{file}: {link}"]
            elif not (folder / target).is_file():
                broken.append(f"{file}: {link}")
            elif parts.fragment and unquote(parts.fragment) not in pages[target].anchors:
                broken.append(f"{file}: {link}")
    return broken


class Links(unittest.TestCase):
    def test_every_link_leads_to_a_page_and_an_anchor(self):
        self.assertEqual(broken_links(PAGES), [])

    def test_a_broken_link_is_found(self):
        with tempfile.TemporaryDirectory() as folder:
            copy = shutil.copytree(PAGES, Path(folder) / "docs")
            page = copy / "cqueue.html"
            page.write_text(page.read_text(encoding="utf-8").replace('href="#Add"', 'href="#Ad"'), encoding="utf-8")
            (copy / "glossary.html").unlink()
            broken = broken_links(copy)
        self.assertIn("cqueue.html: #Ad", broken)
        self.assertIn("index.html: glossary.html", broken)

    def test_no_anchor_is_there_twice(self):
        for file, page in read_pages(PAGES).items():
            twice = {name for name in page.anchors if page.anchors.count(name) > 1}
            self.assertEqual(twice, set(), file)

    def test_what_the_search_finds_is_there(self):
        pages = read_pages(PAGES)
        for entry in search_entries():
            file, _, fragment = entry["url"].partition("#")
            self.assertIn(file, pages, entry)
            if fragment:
                self.assertIn(fragment, pages[file].anchors, entry)


def search_entries():
    text = (PAGES / "search-data.js").read_text(encoding="utf-8")
    return json.loads(text[text.index("["):text.rindex("]") + 1])


class Anchors(unittest.TestCase):
    """What the library publishes, read from its own sources, not from what the pages were made of."""

    def setUp(self):
        self.pages = read_pages(PAGES)
        self.idl = read_file(CLONE / "idl" / "wendrill23.idl")

    def assert_anchors(self, file, names):
        self.assertGreater(len(names), 0)
        self.assertEqual(sorted(set(names) - set(self.pages[file].anchors)), [], file)

    def test_every_class_has_a_page_with_all_its_members(self):
        for a_class in self.idl.library.classes:
            interface = self.idl.interface(f"_{a_class.name}")
            self.assert_anchors(f"{a_class.name.lower()}.html", [member.name for member in interface.members])

    def test_every_key_code_has_one(self):
        self.assert_anchors("key-codes.html", [name for values in self.idl.enumerations for name in values.values])

    def test_every_bag_key_that_the_sources_write_or_read_has_one(self):
        keys = set()
        for source in (CLONE / "src").rglob("*.cpp"):
            keys.update(re.findall(r'u"([a-z]{3}Key[A-Z][^"]*)"', source.read_text(encoding="utf-8")))
        for source in (CLONE / "src").rglob("*.h"):
            keys.update(re.findall(r'u"([a-z]{3}Key[A-Z][^"]*)"', source.read_text(encoding="utf-8")))
        self.assert_anchors("bag-keys.html", sorted(keys))

    def test_every_record_s_key_has_one_where_its_member_or_kind_is(self):
        """The records that the tests of the accessors expect hold every key of every member and kind."""
        names = []
        for path in (CLONE / "tests" / "com" / "records").glob("*.records"):
            owner = None
            for line in path.read_text(encoding="utf-8").splitlines():
                heading = re.match(r"\[(.*) -?\d+\]$", line)
                if heading:
                    owner = heading[1]
                elif re.match("[a-z]+Key", line):
                    names.append((owner, line.split()[0]))
        members = {member.name for member in self.idl.interface("_IGet").members}
        self.assert_anchors("iget.html", [f"{owner}.{key}" for owner, key in names if owner in members])
        kinds = [f"kind-{owner.removeprefix('* ')}" for owner, _ in names if owner not in members]
        self.assert_anchors("igetpnr.html", kinds)
        self.assert_anchors("igetpnr.html", [f"kind-{owner.removeprefix('* ')}.{key}"
                                             for owner, key in names if owner not in members])

    def test_every_error_number_of_the_sources_has_one(self):
        numbers = set()
        for source in [*(CLONE / "src").rglob("*.cpp"), *(CLONE / "src").rglob("*.h")]:
            for line in source.read_text(encoding="utf-8").splitlines():
                line = re.sub(r"//.*|OwnError\{\d+, \d+,", "", line)
                numbers.update(re.findall(r"\b2\d{3}\b", line))
        self.assert_anchors("errors.html", sorted(numbers))


BROWSER = next((path for path in map(shutil.which, ("chromium", "chromium-browser", "google-chrome")) if path), None)


def dump(url, *options):
    """The page as it is after its scripts have run. A profile of its own, so that no other browser is in the way."""
    with tempfile.TemporaryDirectory() as profile:
        return subprocess.run(
            [BROWSER, "--headless=new", "--no-sandbox", "--disable-gpu", "--hide-scrollbars", f"--user-data-dir={profile}",
             "--host-resolver-rules=MAP * 127.0.0.1:9", "--virtual-time-budget=5000", *options, "--dump-dom", url],
            capture_output=True, text=True, timeout=120, check=True,
            env=os.environ | {"HOME": profile}).stdout


class Search(unittest.TestCase):
    """Opened from the folder, as an author opens them."""

    def found(self, text):
        page = dump(f"{PAGES.as_uri()}/index.html?q={text}")
        results = re.search(r'<div id="results">(.*?)</div>', page, re.DOTALL)
        self.assertIsNotNone(results, "the search showed nothing")
        return re.findall(r'href="([^"]+)"', results[1]), results[1]

    def assert_first(self, text, url):
        self.assertEqual(self.found(text)[0][:1], [url], text)

    def test_a_member_is_found_by_its_name_in_any_case(self):
        self.assert_first("SendCommandNoClear", "cquillet.html#SendCommandNoClear")
        self.assert_first("retrieverecloc", "cquillet.html#RetrieveRecLoc")

    def test_a_member_is_found_with_a_letter_wrong(self):
        self.assertIn("cquillet.html#RetrieveRecLoc", self.found("RetreiveRecLoc")[0])

    def test_a_member_is_found_by_a_part_of_its_name(self):
        self.assertIn("cpnr.html#TicketElementsCount", self.found("ticket%20count")[0])

    def test_a_bag_key_is_found(self):
        self.assert_first("strKeyPapType", "bag-keys.html#strKeyPapType")
        self.assert_first("strKeyFind()", "bag-keys.html#strKeyFind()")

    def test_a_kind_is_found(self):
        self.assert_first("OSI", "igetpnr.html#kind-OSI")

    def test_a_key_code_is_found(self):
        self.assert_first("kbTransmit", "key-codes.html#kbTransmit")

    def test_an_error_is_found_by_its_number_and_by_its_status(self):
        for text in ("2505", "0x800A09C9", "%26H800A09C9", "-2146825783"):
            self.assert_first(text, "errors.html#2505")
        self.assert_first("-2147220394", "errors.html#-2147220394")

    def test_what_is_not_there_is_not_found(self):
        links, text = self.found("qqqqqqqq")
        self.assertEqual(links, [])
        self.assertIn("Nothing found.", text)


# Runs inside each page: what is wider than the window, and texts whose contrast with what is behind them is below 4.5.
MEASURE = """
addEventListener("load", () => {
  const colour = (text) => {
    const [r, g, b, a = 1] = text.match(/[0-9.]+/g).map(Number);
    return {r, g, b, a};
  };
  const behind = (element) => {
    for (; element; element = element.parentElement) {
      const found = colour(getComputedStyle(element).backgroundColor);
      if (found.a === 1) return found;
    }
    return matchMedia("(prefers-color-scheme: dark)").matches ? colour("rgb(0, 0, 0)") : colour("rgb(255, 255, 255)");
  };
  const light = ({r, g, b}) => [r, g, b].map((value) => value / 255)
    .map((value) => value <= 0.04045 ? value / 12.92 : ((value + 0.055) / 1.055) ** 2.4)
    .reduce((sum, value, place) => sum + value * [0.2126, 0.7152, 0.0722][place], 0);
  const faint = new Set();
  let looked = 0;
  for (const walker = document.createTreeWalker(document.body, NodeFilter.SHOW_TEXT); walker.nextNode();) {
    const element = walker.currentNode.parentElement;
    if (!walker.currentNode.data.trim() || element.closest("script, [hidden], .skip")) continue;
    ++looked;
    const [a, b] = [light(colour(getComputedStyle(element).color)), light(behind(element))];
    const contrast = (Math.max(a, b) + 0.05) / (Math.min(a, b) + 0.05);
    if (contrast < 4.5) faint.add(`${element.tagName}.${element.className} ${contrast.toFixed(2)}`);
  }
  parent.postMessage({page: location.pathname.split("/").pop(), looked, faint: [...faint],
    background: getComputedStyle(document.body).backgroundColor,
    wider: document.documentElement.scrollWidth - document.documentElement.clientWidth,
    width: document.documentElement.clientWidth}, "*");
});
"""


class Layout(unittest.TestCase):
    """All pages in frames of a width, on one page that collects what each says of itself."""

    def measured(self, width, *options):
        with tempfile.TemporaryDirectory() as folder:
            copy = shutil.copytree(PAGES, Path(folder) / "docs")
            (copy / "measure.js").write_text(MEASURE, encoding="utf-8")
            frames = ""
            for path in sorted(copy.glob("*.html")):
                html = path.read_text(encoding="utf-8").replace("</head>", '<script src="measure.js"></script></head>')
                path.write_text(html, encoding="utf-8")
                frames += f'<iframe src="{path.name}" style="width: {width}px; height: 600px; border: 0"></iframe>\n'
            (copy / "all.html").write_text(f"""<!DOCTYPE html><meta name="color-scheme" content="light dark">
<pre id="said"></pre><script>addEventListener("message", (event) =>
document.getElementById("said").append(JSON.stringify(event.data) + "\\n"));</script>{frames}""", encoding="utf-8")
            page = dump(f"{copy.as_uri()}/all.html", *options)
        said = re.search(r'<pre id="said">(.*?)</pre>', page, re.DOTALL)[1]
        return [json.loads(line.replace("&gt;", ">").replace("&lt;", "<").replace("&amp;", "&"))
                for line in said.splitlines()]

    def assert_readable(self, width, background, *options):
        pages = self.measured(width, *options)
        self.assertEqual(sorted(page["page"] for page in pages), sorted(read_pages(PAGES)))
        self.assertEqual({(page["width"], page["background"]) for page in pages}, {(width, background)})
        self.assertGreater(min(page["looked"] for page in pages), 20)
        self.assertEqual([(page["page"], page["wider"]) for page in pages if page["wider"] > 0], [])
        self.assertEqual([(page["page"], page["faint"]) for page in pages if page["faint"]], [])

    def test_light_on_a_wide_and_on_a_narrow_screen(self):
        self.assert_readable(1280, "rgb(255, 255, 255)", "--blink-settings=preferredColorScheme=1")
        self.assert_readable(340, "rgb(255, 255, 255)", "--blink-settings=preferredColorScheme=1")

    def test_dark_on_a_wide_and_on_a_narrow_screen(self):
        self.assert_readable(1280, "rgb(20, 23, 29)", "--blink-settings=preferredColorScheme=0")
        self.assert_readable(340, "rgb(20, 23, 29)", "--blink-settings=preferredColorScheme=0")


if __name__ == "__main__":
    if BROWSER is None:
        sys.exit("pages_test.py: there is no browser")
    unittest.main(argv=sys.argv[:1] + sys.argv[3:], verbosity=2)
