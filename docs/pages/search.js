// Search in the page: names by their beginning, their parts and with a letter wrong, then the words of the descriptions.
"use strict";

const shown = 12;
const input = document.getElementById("search");
const results = document.getElementById("results");
let index = null;
let active = -1;

// "strKeyAirline" is found whole and by its parts: key, airline.
function wordsOf(text) {
  const words = String(text).match(/&?[A-Za-z0-9_]+/g) || [];
  const parts = words.flatMap((word) => word.match(/[A-Z]{2,}(?![a-z])|[A-Z]?[a-z]+|[0-9]+/g) || []);
  return [...new Set([...words, ...parts].map((word) => word.toLowerCase().replace(/^&/, "")))];
}

function makeIndex() {
  return lunr(function () {
    this.ref("place");
    this.field("name", { boost: 10 });
    this.field("aliases", { boost: 10 });
    this.field("text");
    this.pipeline.reset();
    this.searchPipeline.reset();
    this.tokenizer = (text) => wordsOf(text).map((word) => new lunr.Token(word, {}));
    searchEntries.forEach((entry, place) => this.add({ ...entry, place }));
  });
}

// What is typed may be a status as any language shows it: -2146825783, 0x800A09C9, &H800A09C9.
function find(text) {
  index = index || makeIndex();
  const typed = text.trim().toLowerCase();
  const words = (typed.match(/[a-z0-9_]+/g) || []);
  if (words.length === 0) return [];
  const found = index.query((query) => {
    for (const word of words) {
      query.term(word, { boost: 10 });
      query.term(word, { boost: 5, wildcard: lunr.Query.wildcard.TRAILING });
      if (word.length > 4 && !/[0-9]/.test(word)) query.term(word, { editDistance: 2, boost: 1 });
    }
  });
  const plain = typed.replace(/\(.*\)?$/, "");
  const exact = (hit) => {
    const name = searchEntries[hit.ref].name.toLowerCase().replace("()", "");
    return name === plain ? 2 : name.startsWith(plain) ? 1 : 0;
  };
  return found.sort((a, b) => exact(b) - exact(a) || b.score - a.score).map((hit) => searchEntries[hit.ref]);
}

function show() {
  const text = input.value.trim();
  results.replaceChildren();
  results.hidden = text === "";
  active = -1;
  if (text === "") return;
  const found = find(text);
  for (const entry of found.slice(0, shown)) {
    const link = document.createElement("a");
    link.href = entry.url;
    const name = document.createElement("code");
    name.textContent = entry.name;
    const kind = document.createElement("span");
    kind.textContent = entry.kind;
    link.append(name, " ", kind);
    results.append(link);
  }
  const note = document.createElement("p");
  note.textContent = found.length === 0 ? "Nothing found." :
    found.length > shown ? `${found.length - shown} more; type further letters.` : "";
  if (note.textContent) results.append(note);
}

function activate(place) {
  const links = [...results.querySelectorAll("a")];
  if (links.length === 0) return;
  active = (place + links.length) % links.length;
  links.forEach((link, number) => link.classList.toggle("active", number === active));
  links[active].scrollIntoView({ block: "nearest" });
}

input.addEventListener("input", show);
input.addEventListener("focus", show);
input.form.addEventListener("submit", (event) => {
  event.preventDefault();
  const links = results.querySelectorAll("a");
  if (links.length > 0) {
    links[Math.max(active, 0)].click();
    results.hidden = true;
  }
});
input.addEventListener("keydown", (event) => {
  if (event.key === "ArrowDown") activate(active + 1);
  else if (event.key === "ArrowUp") activate(active - 1);
  else if (event.key === "Escape") results.hidden = true;
  else return;
  event.preventDefault();
});
document.addEventListener("click", (event) => {
  if (!input.form.contains(event.target) || event.target.closest("#results a")) results.hidden = true;
});
document.addEventListener("keydown", (event) => {
  if (event.key === "/" && !/^(input|textarea)$/i.test(document.activeElement.tagName)) {
    event.preventDefault();
    input.focus();
  }
});

// The list of pages would fill a narrow screen.
if (matchMedia("(max-width: 55rem)").matches) document.querySelector("details.pages").open = false;

const asked = new URLSearchParams(location.search).get("q");
if (asked) {
  input.value = asked;
  show();
}
