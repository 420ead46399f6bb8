// The page as two panes: the journal, and the event that is chosen in it with the screen that its session shows then.
// The elements are those of the document; what is shown of an event is a copy of them, so no text is ever made markup.
"use strict";

document.documentElement.classList.add("live"); // before the document is laid out
addEventListener("DOMContentLoaded", () => {
  try {
    start();
  } catch (error) {
    document.documentElement.classList.remove("live"); // it can be read without
    throw error;
  }
});

function start() {
  const element = (id) => document.getElementById(id);
  const events = JSON.parse(element("trace").textContent);
  const rows = [...document.getElementsByClassName("event")]; // one for each event
  if (rows.length !== events.length) throw new Error("the journal and the trace differ");
  const places = new Map(rows.map((row, place) => [row.id, place]));
  const isProblem = (place) => rows[place].classList.contains("bad");
  const lists = [...document.querySelectorAll("#journal ol")];
  const search = element("search");

  let current = -1;
  let shown = []; // the places that the filters leave, in ascending order
  let matches = []; // those of them in which the search found its text
  let texts = null; // what is searched, in lower case

  // ---- The chosen event

  function textNode(name, text, className) {
    const made = document.createElement(name);
    made.textContent = text;
    if (className) made.className = className;
    return made;
  }

  function nameOf(place) {
    if (events[place].kind === "run") return "start";
    return "n" in events[place] ? `event ${events[place].n}` : rows[place].id.replace("=", " ");
  }

  // The last event up to this one that has a screen of the same session; of any session for an event without one.
  function screenPlace(place) {
    const session = events[place].session;
    for (let before = place; before >= 0; --before) {
      const isOfSession = !session || events[before].session === session;
      if (isOfSession && rows[before].querySelector("figure")) return before;
      if (events[before].kind === "run") break;
    }
    return -1;
  }

  // Before the first screen an empty one: the pane has the same width throughout.
  function noScreen() {
    const figure = document.createElement("figure");
    figure.append(textNode("figcaption", "No screen yet"), document.createElement("pre"));
    return figure;
  }

  function screenOf(place) {
    const from = screenPlace(place);
    const figure = from < 0 ? noScreen() : rows[from].querySelector("figure").cloneNode(true);
    const screen = figure.querySelector("pre");
    const count = Math.max(24, screen.textContent.replace(/\n$/, "").split("\n").length);
    if (from >= 0 && from < place) {
      const { session } = events[from];
      figure.className = "old";
      figure.querySelector("figcaption").textContent = `Screen${session ? ` of session ${session}` : ""} since ${nameOf(from)}`;
    }
    const terminal = document.createElement("div");
    terminal.className = "terminal";
    terminal.tabIndex = 0; // it scrolls where the window is narrow
    terminal.setAttribute("role", "group");
    terminal.setAttribute("aria-label", "Screen");
    const corner = document.createElement("pre");
    const ruler = textNode("pre", Array.from({ length: 8 }, (_, ten) => `....:....${ten + 1}`).join(""));
    const numbers = textNode("pre", Array.from({ length: count }, (_, row) => row + 1).join("\n"), "rows");
    for (const part of [corner, ruler, numbers]) part.setAttribute("aria-hidden", "true");
    screen.replaceWith(terminal);
    terminal.append(corner, ruler, numbers, screen);
    return figure;
  }

  function showEvent() {
    const event = events[current];
    const name = nameOf(current);
    const line = rows[current].firstElementChild;
    const beside = [event.kind, typeof event.t === "number" && `${event.t.toFixed(4)} s`, event.session && `session ${event.session}`];
    const small = textNode("small", beside.filter(Boolean).join(" · "));
    element("event-title").replaceChildren(name[0].toUpperCase() + name.slice(1), " ", small);
    element("event-text").replaceChildren(
      ...[...line.querySelectorAll("code, strong"), ...rows[current].querySelectorAll("p")].map((part) => part.cloneNode(true)));
    element("screen").replaceChildren(screenOf(current));
    element("previous").disabled = neighbour(-1) === undefined;
    element("next").disabled = neighbour(1) === undefined;
    highlight();
  }

  // how.focus: the line gets the focus, so that it is read. how.silent: the address stays.
  function choose(place, how = {}) {
    if (place === undefined || place < 0) return;
    if (current >= 0) {
      rows[current].firstElementChild.removeAttribute("aria-current");
      rows[current].firstElementChild.tabIndex = -1;
    }
    current = place;
    const line = rows[place].firstElementChild;
    line.setAttribute("aria-current", "true");
    line.tabIndex = 0;
    if (how.focus) line.focus({ preventScroll: true });
    line.scrollIntoView({ block: "nearest" });
    if (!how.silent) history.replaceState(null, "", `#${rows[place].id}`);
    showEvent();
    showHere();
    sayFound();
  }

  // The place of the shown event `step` before or after the chosen one that `fits`.
  function neighbour(step, among = shown) {
    const at = firstNotBefore(among, step > 0 ? current + 1 : current);
    return step > 0 ? among[at] : among[at - 1];
  }

  // The index of the first place in `among` that is not before `place`.
  function firstNotBefore(among, place) {
    let [low, high] = [0, among.length];
    while (low < high) {
      const middle = (low + high) >> 1;
      if (among[middle] < place) low = middle + 1;
      else high = middle;
    }
    return low;
  }

  // ---- Links

  function hashPlace() {
    try {
      return places.get(decodeURIComponent(location.hash.slice(1)));
    } catch {
      return undefined; // no encoding
    }
  }

  function followHash() {
    const place = hashPlace();
    if (place === undefined) return false;
    if (rows[place].hidden) {
      element("kind").value = "";
      element("errors").setAttribute("aria-pressed", "false");
      filter();
    }
    choose(place, { silent: true });
    return true;
  }

  // ---- Filters

  const notCalls = "not call"; // among the kinds to choose from
  const isErrorsOnly = () => element("errors").getAttribute("aria-pressed") === "true";

  function filter() {
    const kind = element("kind").value;
    const errorsOnly = isErrorsOnly();
    const counts = new Map(lists.map((list) => [list, 0]));
    shown = [];
    const isOfKind = kind === notCalls ? (event) => event.kind !== "call" : (event) => !kind || event.kind === kind;
    rows.forEach((row, place) => {
      const isShown = isOfKind(events[place]) && (!errorsOnly || isProblem(place));
      if (row.hidden === isShown) row.hidden = !isShown;
      if (!isShown) return;
      shown.push(place);
      counts.set(row.parentElement, counts.get(row.parentElement) + 1);
    });
    for (const [list, count] of counts) {
      list.hidden = count === 0;
      list.style.containIntrinsicHeight = `calc(${count} * var(--row))`; // the scroll bar is right before it is laid out
    }
    element("nothing").hidden = shown.length > 0;
  }

  function refilter() {
    filter();
    find();
    if (rows[current]?.hidden) choose(neighbour(1) ?? neighbour(-1));
    else showEvent();
  }

  function fillFilters() {
    const counts = new Map();
    for (const { kind } of events) counts.set(kind, (counts.get(kind) || 0) + 1);
    const addOption = (value, text) => {
      const option = textNode("option", text);
      option.value = value;
      element("kind").append(option);
    };
    if (counts.has("call")) addOption(notCalls, `All but calls (${events.length - counts.get("call")})`);
    for (const [kind, count] of counts) addOption(kind, `${kind} (${count})`);
    const problems = rows.filter((row, place) => isProblem(place)).length;
    element("errors").textContent = `Errors (${problems})`;
    element("errors").disabled = problems === 0;
    element("kind").addEventListener("change", refilter);
    element("errors").addEventListener("click", toggleErrors);
  }

  function toggleErrors() {
    if (element("errors").disabled) return;
    element("errors").setAttribute("aria-pressed", String(!isErrorsOnly()));
    refilter();
  }

  // ---- Search

  // Of an event: all its texts but the name of its session, and the rows of its screen.
  function searchedText(place) {
    const { session, ...rest } = events[place];
    const texts = Object.values(rest).flat().filter((value) => typeof value === "string");
    if (isProblem(place)) texts.push(rows[place].querySelector("strong").textContent);
    return texts.join("\n").toLowerCase();
  }

  function find() {
    const text = search.value.trim().toLowerCase();
    for (const place of matches) rows[place].classList.remove("hit");
    texts = texts || (text ? rows.map((_, place) => searchedText(place)) : null);
    matches = text ? shown.filter((place) => texts[place].includes(text)) : [];
    for (const place of matches) rows[place].classList.add("hit");
    element("previous-match").disabled = element("next-match").disabled = matches.length === 0;
    sayFound();
  }

  function sayFound() {
    const at = matches.indexOf(current);
    const found = !search.value.trim() ? "" : matches.length === 0 ? "none" :
      at < 0 ? `${matches.length}` : `${at + 1} of ${matches.length}`;
    if (element("found").textContent !== found) element("found").textContent = found;
  }

  // Around the end: after the last match comes the first.
  function goToMatch(step) {
    choose(neighbour(step, matches) ?? matches.at(step > 0 ? 0 : -1));
  }

  // The found text in the chosen event, without a change of its elements.
  function highlight() {
    if (!globalThis.Highlight) return;
    const text = search.value.trim().toLowerCase();
    const ranges = [];
    for (const part of text ? element("event").querySelectorAll("#event-text, figure pre:last-child") : []) {
      const walker = document.createTreeWalker(part, NodeFilter.SHOW_TEXT);
      while (walker.nextNode()) {
        const { data } = walker.currentNode;
        const lower = data.toLowerCase();
        if (lower.length !== data.length) continue; // columns would not fit
        for (let at = lower.indexOf(text); at >= 0; at = lower.indexOf(text, at + text.length)) {
          const range = new Range();
          range.setStart(walker.currentNode, at);
          range.setEnd(walker.currentNode, at + text.length);
          ranges.push(range);
        }
      }
    }
    CSS.highlights.set("found", new Highlight(...ranges));
  }

  function listenToSearch() {
    let waiting;
    search.addEventListener("input", () => {
      clearTimeout(waiting);
      waiting = setTimeout(() => {
        find();
        if (matches.length > 0) choose(matches[0]);
        else highlight();
      }, events.length > 5000 ? 150 : 0); // one search for a word, not one for each letter
    });
    search.addEventListener("keydown", (event) => {
      if (event.key === "Enter") goToMatch(event.shiftKey ? -1 : 1);
      else if (event.key === "Escape") search.blur();
    });
    element("tools").addEventListener("submit", (event) => event.preventDefault());
    element("next-match").addEventListener("click", () => goToMatch(1));
    element("previous-match").addEventListener("click", () => goToMatch(-1));
  }

  // ---- The time axis. A trace without times, where all are 0, is laid out by order.

  const axis = element("axis");
  const { positions, total } = timesOf(events);
  const isTimed = total > 0;
  const positionOf = (place) => isTimed ? positions[place] / total : place / Math.max(1, events.length - 1);

  function drawAxis() {
    const columns = { events: new Set(), screens: new Set(), problems: new Set() };
    events.forEach((event, place) => {
      const column = Math.round(positionOf(place) * 1000);
      columns.events.add(column);
      if (event.screen) columns.screens.add(column);
      if (isProblem(place)) columns.problems.add(column);
    });
    const tops = { events: 22, screens: 14, problems: 0 };
    for (const [name, top] of Object.entries(tops)) {
      const path = [...columns[name]].map((column) => `M${column} 30V${top}`).join("");
      element(`axis-${name}`).setAttribute("d", path);
    }
    const end = isTimed ? total : events.length;
    const step = roundStep(end / 6 || 1);
    for (let at = 0; at <= end * 0.98; at += step) {
      const label = textNode("span", isTimed ? `${Number(at.toPrecision(6))} s` : String(at));
      label.style.left = `${100 * at / end}%`;
      element("axis-labels").append(label);
    }
    axis.setAttribute("aria-valuemin", "0");
    axis.setAttribute("aria-valuemax", String(isTimed ? total : events.length - 1));
  }

  function showHere() {
    element("axis-here").setAttribute("d", `M${Math.round(positionOf(current) * 1000)} 0V30`);
    axis.setAttribute("aria-valuenow", String(isTimed ? positions[current] : current));
    axis.setAttribute("aria-valuetext", `${isTimed ? `${positions[current].toFixed(4)} s, ` : ""}${nameOf(current)}`);
  }

  // The shown event that is nearest to a place on the axis.
  function chooseAt(clientX) {
    const box = axis.querySelector("svg").getBoundingClientRect();
    const wanted = (clientX - box.left) / box.width;
    let best = shown[0];
    for (const place of shown) {
      if (Math.abs(positionOf(place) - wanted) < Math.abs(positionOf(best) - wanted)) best = place;
    }
    choose(best);
  }

  function listenToAxis() {
    axis.addEventListener("pointerdown", (event) => {
      axis.setPointerCapture(event.pointerId);
      chooseAt(event.clientX);
    });
    axis.addEventListener("pointermove", (event) => {
      if (axis.hasPointerCapture(event.pointerId)) chooseAt(event.clientX);
    });
    axis.addEventListener("keydown", (event) => {
      const steps = { ArrowRight: 1, ArrowUp: 1, ArrowLeft: -1, ArrowDown: -1, PageUp: 10, PageDown: -10 };
      const step = steps[event.key];
      if (!step) return;
      event.preventDefault();
      const at = firstNotBefore(shown, current) + step;
      choose(shown[Math.min(Math.max(at, 0), shown.length - 1)]);
    });
  }

  // ---- Keys

  const problemsShown = () => shown.filter(isProblem);
  const letters = {
    j: () => choose(neighbour(1), { focus: true }),
    k: () => choose(neighbour(-1), { focus: true }),
    e: () => choose(neighbour(1, problemsShown()), { focus: true }),
    E: () => choose(neighbour(-1, problemsShown()), { focus: true }),
    f: toggleErrors,
    "/": () => search.select(),
    "?": () => element("help").showModal(),
  };

  function listenToKeys() {
    document.addEventListener("keydown", (event) => {
      const isOurs = !event.ctrlKey && !event.metaKey && !event.altKey && !event.defaultPrevented;
      if (!isOurs || event.target.closest("input, select, dialog")) return;
      const inJournal = event.target.closest("#journal") !== null;
      const action = element("letters").checked && letters[event.key] ||
        event.key === "Home" && (() => choose(shown[0], { focus: inJournal })) ||
        event.key === "End" && (() => choose(shown.at(-1), { focus: inJournal })) ||
        inJournal && { ArrowDown: letters.j, ArrowUp: letters.k }[event.key];
      if (!action) return;
      event.preventDefault();
      action();
    });
  }

  // ----

  fillFilters();
  filter();
  drawAxis();
  listenToSearch();
  listenToAxis();
  listenToKeys();
  addEventListener("hashchange", followHash);
  element("previous").addEventListener("click", () => choose(neighbour(-1)));
  element("next").addEventListener("click", () => choose(neighbour(1)));
  element("help-button").addEventListener("click", () => element("help").showModal());
  for (const id of ["tools", "axis", "event"]) element(id).hidden = events.length === 0;
  if (!followHash()) choose(shown[0], { silent: true });
}

// The least of 1, 2, 5, 10, 20, ... and of their parts that is not below `least`.
function roundStep(least) {
  const power = 10 ** Math.floor(Math.log10(least));
  return [1, 2, 5, 10].find((factor) => factor * power >= least) * power;
}

// Seconds since the start of the first run; a run begins when the one before it ended.
function timesOf(events) {
  let start = 0;
  let last = 0;
  const positions = events.map((event) => {
    if (event.kind === "run") start = last;
    last = Math.max(last, start + (Number(event.t) || 0));
    return last;
  });
  return { positions, total: last };
}
