// The transcript in a browser: search, filters, keys, links, hostile texts, no network, large traces, no script,
// accessibility, light and dark, paper.
//
//   node transcript_test.mjs WENDRILL MODULES
//
// MODULES is the folder of node_modules. The exit status is 1 when a test failed.
import assert from "node:assert/strict";
import { readFileSync } from "node:fs";
import { after, before, test } from "node:test";

import { startBrowser } from "./browser.mjs";
import { agencyTrace, longTrace, textOf } from "./traces.mjs";

const [, , wendrill, modules] = process.argv;
const agency = agencyTrace();
let world;
let agencyPage;

before(async () => {
  world = await startBrowser(wendrill, modules);
  agencyPage = world.pageOf(agency);
});
after(() => world.close());

// Opens a page, which must neither fail nor ask for anything but itself, calls `use`, and closes it.
async function withPage(address, options, use) {
  const context = await world.browser.newContext({ viewport: { width: 1280, height: 800 }, ...options });
  const page = await context.newPage();
  const asked = [];
  const failed = [];
  page.on("request", (request) => asked.push(request.url().split("#")[0]));
  page.on("pageerror", (error) => failed.push(error.message));
  page.on("console", (message) => message.type() === "error" && failed.push(message.text()));
  await page.goto(address);
  await use(page);
  assert.deepEqual(failed, []);
  assert.deepEqual([...new Set(asked)], [address.split("#")[0]]);
  await context.close();
}

const testPage = (name, address, use) => test(name, () => withPage(address(), {}, use));
const hash = (page) => new URL(page.url()).hash;
const currentText = (page) => page.textContent("#journal [aria-current] code");
const screenText = (page) => page.textContent("#screen .terminal pre:last-child");

async function search(page, text) {
  await page.fill("#search", text);
  await page.waitForFunction(() => document.getElementById("found").textContent !== "");
  return page.textContent("#found");
}

// ---- What is chosen, and its screen

testPage("at first the start of the run is chosen, and the address stays", () => agencyPage, async (page) => {
  assert.equal(await currentText(page), "monday_reminders.vbs");
  assert.equal(hash(page), "");
  assert.match(await page.textContent("#screen"), /No screen yet/);
});

testPage("a chosen event shows its screen, with the rows that changed marked and named", () => `${agencyPage}#n=4`, async (page) => {
  assert.match(await page.textContent("#event-title"), /^Event 4 send · 0.4382 s · session A$/);
  assert.match(await page.textContent("#screen figcaption"), /^Screen of session A, changed in rows 2 to 6$/);
  const marked = await page.locator("#screen mark").allTextContents();
  assert.deepEqual(marked.map((row) => row.slice(0, 11).trim()), ["5  SK 616", "6  AF1780", "7  AF1880", "8  SK 620", ">"]);
  assert.equal(await page.textContent("#screen .rows"), Array.from({ length: 24 }, (_, row) => row + 1).join("\n"));
});

testPage("a screen has its 80 columns in view at 1280 and at 800", () => `${agencyPage}#n=2`, async (page) => {
  for (const width of [1280, 800]) {
    await page.setViewportSize({ width, height: 800 });
    const box = await page.locator("#screen .terminal").evaluate((terminal) => [terminal.scrollWidth - terminal.clientWidth,
      terminal.getBoundingClientRect().right - innerWidth]);
    assert.ok(box[0] <= 0 && box[1] <= 0, `${width}: ${box}`);
    const wider = await page.evaluate(() => document.documentElement.scrollWidth - innerWidth);
    assert.ok(wider <= 0, `${width}: the page is ${wider} px wider`);
  }
});

testPage("an event without a screen shows the one that its session shows", () => `${agencyPage}#n=18`, async (page) => {
  assert.match(await page.textContent("#screen figcaption"), /^Screen of session A since event 15$/);
  assert.match(await screenText(page), /ENTRY NOT UNDERSTOOD/);
  await page.goto(`${agencyPage}#n=13`);
  assert.match(await page.textContent("#screen"), /No screen yet/); // session B's first one comes later
});

// ---- Search

testPage("the search finds an entry, counts, and jumps to the first", () => agencyPage, async (page) => {
  assert.equal(await search(page, "an15junparlo"), "1 of 3"); // two entries, and the warning of the second
  assert.equal(hash(page), "#n=2");
  await page.press("#search", "Enter");
  assert.equal(hash(page), "#n=15");
  await page.press("#search", "Enter");
  assert.equal(hash(page), "#n=22");
  await page.press("#search", "Enter"); // around the end
  assert.equal(hash(page), "#n=2");
  await page.press("#search", "Shift+Enter");
  assert.equal(hash(page), "#n=22");
  await page.click("#previous-match");
  assert.equal(hash(page), "#n=15");
  assert.equal(await page.textContent("#found"), "2 of 3");
});

testPage("the search finds what is on a screen, and highlights it", () => agencyPage, async (page) => {
  assert.equal(await search(page, "MARTIN/JULIE"), "1 of 3");
  assert.equal(hash(page), "#n=10");
  const found = await page.evaluate(() => [...CSS.highlights.get("found")].map(String));
  assert.deepEqual(found, ["MARTIN/JULIE"]);
});

testPage("a search that finds nothing says so and stays", () => `${agencyPage}#n=4`, async (page) => {
  assert.equal(await search(page, "qqqqq"), "none");
  assert.equal(hash(page), "#n=4");
  assert.ok(await page.isDisabled("#next-match"));
});

// ---- Filters

testPage("the filter of errors leaves unanswered and failed events alone", () => agencyPage, async (page) => {
  assert.equal(await page.textContent("#errors"), "Errors (6)");
  await page.click("#errors");
  assert.equal(await page.getAttribute("#errors", "aria-pressed"), "true");
  assert.deepEqual(await page.locator(".event:visible strong").allTextContents(),
    ["unanswered", "not found", "failed", "not accepted", "error", "not 0"]);
  assert.equal(await currentText(page), "AN15JUNPARLOM"); // the chosen one was hidden: the next one that is shown
  await page.click("#errors");
  assert.equal(await page.locator(".event:visible").count(), 25);
});

testPage("the filter of a kind counts it and goes together with the other one and with the search", () => agencyPage, async (page) => {
  assert.ok((await page.locator("#kind option").allTextContents()).includes("send (9)"));
  await page.selectOption("#kind", "send");
  assert.equal(await page.locator(".event:visible").count(), 9);
  assert.equal(await search(page, "AN15JUNPARLO"), "1 of 2");
  await page.click("#errors");
  assert.equal(await page.locator(".event:visible").count(), 1);
  await page.selectOption("#kind", { label: "All but calls (24)" });
  await page.click("#errors");
  assert.equal(await page.locator(".event:visible").count(), 24);
  await page.click("#errors");
  await page.selectOption("#kind", "alarm");
  assert.equal(await page.locator(".event:visible").count(), 0);
  assert.ok(await page.isVisible("#nothing"));
});

// ---- Keys

testPage("j and k go to the next and the previous event, and stop at the ends", () => agencyPage, async (page) => {
  await page.keyboard.press("k");
  assert.equal(await currentText(page), "monday_reminders.vbs");
  await page.keyboard.press("j");
  await page.keyboard.press("j");
  assert.equal(hash(page), "#n=2");
  assert.equal(await page.evaluate(() => document.activeElement.getAttribute("href")), "#n=2"); // it is read
  await page.keyboard.press("ArrowDown");
  assert.equal(hash(page), "#n=3");
  await page.keyboard.press("k");
  assert.equal(hash(page), "#n=2");
  await page.keyboard.press("End");
  await page.keyboard.press("j");
  assert.equal(hash(page), "#n=24");
  await page.keyboard.press("Home");
  assert.equal(hash(page), "#line=1");
});

testPage("j and k go over what the filters leave, e over the problems", () => agencyPage, async (page) => {
  await page.keyboard.press("e");
  assert.equal(hash(page), "#n=15");
  await page.keyboard.press("e");
  assert.equal(hash(page), "#n=16");
  await page.keyboard.press("Shift+E");
  assert.equal(hash(page), "#n=15");
  await page.selectOption("#kind", "expect");
  await page.locator("#journal").press("j");
  assert.equal(hash(page), "#n=17");
  await page.keyboard.press("k");
  assert.equal(hash(page), "#n=11");
});

testPage("letters are text in the search, and f, / and ? do what the help says", () => agencyPage, async (page) => {
  await page.keyboard.press("/");
  await page.keyboard.type("jk?");
  assert.equal(await page.inputValue("#search"), "jk?");
  await page.keyboard.press("Escape");
  await page.keyboard.press("f");
  assert.equal(await page.getAttribute("#errors", "aria-pressed"), "true");
  await page.keyboard.press("?");
  assert.ok(await page.isVisible("#help"));
  await page.keyboard.press("Escape");
  assert.ok(!(await page.isVisible("#help")));
});

testPage("letters can be switched off for those who speak to their machine", () => `${agencyPage}#n=4`, async (page) => {
  await page.click("#help-button");
  await page.uncheck("#letters");
  await page.click("#help form button");
  await page.keyboard.press("j");
  assert.equal(hash(page), "#n=4");
});

testPage("the keyboard alone reaches everything, with a visible focus", () => agencyPage, async (page) => {
  const stops = [];
  for (let stop = 0; stop < 12; ++stop) {
    await page.keyboard.press("Tab");
    const [name, outline] = await page.evaluate(() => {
      const { activeElement } = document;
      const field = activeElement.closest(".field") || activeElement;
      const width = (element) => parseFloat(getComputedStyle(element).outlineWidth) * (getComputedStyle(element).outlineStyle !== "none");
      return [activeElement.id || activeElement.className || activeElement.getAttribute("href"), Math.max(width(field), width(activeElement))];
    });
    if (name) assert.ok(outline >= 1, `${name} shows no focus`);
    stops.push(name);
  }
  assert.deepEqual(stops.slice(0, 6), ["search", "kind", "errors", "help-button", "axis", "#line=1"]);
  assert.ok(stops.includes("next"));
});

// ---- Links

testPage("a link to an event opens it, each line is one, and the history goes back", () => `${agencyPage}#n=17`, async (page) => {
  assert.equal(await currentText(page), "two names");
  await page.click("[href='#n=12']");
  assert.equal(hash(page), "#n=12");
  assert.match(await screenText(page), /RM TICKET SENT BY MAIL/);
  await page.goBack();
  assert.equal(await currentText(page), "two names");
  await page.goForward();
  assert.equal(await currentText(page), "RMTICKET SENT BY MAIL;ER");
});

testPage("a link to an event that a filter hides shows it", () => agencyPage, async (page) => {
  await page.click("#errors");
  await page.goto(`${agencyPage}#n=12`);
  assert.equal(await currentText(page), "RMTICKET SENT BY MAIL;ER");
  assert.ok(await page.isVisible("[id='n=12']"));
});

testPage("a link that leads nowhere, or is no encoding, is as none", () => `${agencyPage}#n=99`, async (page) => {
  assert.equal(await currentText(page), "monday_reminders.vbs");
  await page.goto(`${agencyPage}#%E0%A4%A`);
  assert.equal(await currentText(page), "monday_reminders.vbs");
});

// ---- The time axis

testPage("the axis says the time, and a click goes to the event that is nearest", () => `${agencyPage}#n=12`, async (page) => {
  assert.equal(await page.getAttribute("#axis", "aria-valuetext"), "1.2040 s, event 12");
  assert.equal(await page.getAttribute("#axis", "aria-valuemax"), "2.144");
  const box = await page.locator("#axis svg").boundingBox();
  await page.mouse.click(box.x + box.width * 1.61 / 2.144, box.y + 10);
  assert.equal(hash(page), "#n=15");
  await page.locator("#axis").press("ArrowRight");
  assert.equal(hash(page), "#n=16");
  await page.locator("#axis").press("PageUp");
  assert.equal(hash(page), "#n=24");
  assert.equal(await page.getAttribute("#axis", "aria-valuenow"), "2.144");
});

testPage("a trace without times is laid out by its order", () =>
  world.pageOf(textOf([{ kind: "run", script: "a.vbs" }, { t: 0, n: 1, kind: "key", code: 1 }, { t: 0, n: 2, kind: "key", code: 2 }])),
async (page) => {
  await page.keyboard.press("j");
  assert.equal(await page.getAttribute("#axis", "aria-valuetext"), "event 1");
  assert.equal(await page.getAttribute("#axis-here", "d"), "M500 0V30");
});

// ---- Any trace

const hostile = ["</script><script>hit()</script>", "<img src=x onerror=hit()>", "]]>", "<!--<script>", "\u2028\u2029",
  "@TRACE@", "javascript:hit()", "</pre></code></li>", "\u202Eover", "__proto__", "http://somewhere.invalid/x.png", "X".repeat(200000)];

testPage("hostile texts are shown as texts", () => world.pageOf(textOf([
  { kind: "run", script: hostile[0], scenario: hostile[1], started: hostile[3] },
  ...hostile.map((text, place) => ({ t: place, n: place + 1, kind: place === 3 ? text : "send", session: text.slice(0, 20), entry: text, [text.slice(0, 40)]: text,
    answered: false, screen: [text.slice(0, 300), text.slice(0, 300)] })),
  `{"t":50,"n":50,"kind":"send","session":"A","entry":"half \\ud800 pair","answered":true}`])), async (page) => {
  await page.evaluate(() => { globalThis.hit = () => { globalThis.wasHit = true; }; });
  assert.equal(await page.textContent("h1"), hostile[0]);
  for (const [place, text] of hostile.entries()) {
    await page.goto(page.url().replace(/#.*|$/, `#n=${place + 1}`));
    assert.equal(await page.textContent("#event-text code"), text);
    assert.ok((await screenText(page)).startsWith(text.slice(0, 300)), text.slice(0, 40));
    const wider = await page.evaluate(() => document.documentElement.scrollWidth - innerWidth);
    assert.ok(wider <= 0, `${text.slice(0, 40)}: the page is ${wider} px wider`);
  }
  await page.goto(page.url().replace(/#.*/, "#n=50"));
  assert.equal(await page.textContent("#event-text code"), "half \uFFFD pair");
  await search(page, "<img src=x");
  assert.equal(hash(page), "#line=1");
  assert.equal(await page.locator("img, #journal script, iframe, object, embed").count(), 0);
  assert.equal(await page.evaluate(() => globalThis.wasHit), undefined);
});

testPage("a trace that was cut off and one of two runs are shown", () =>
  world.pageOf(`${agency}${agency.slice(0, 2000)}`), async (page) => {
  assert.match(await page.textContent("#journal h2"), /^Run 2: monday_reminders.vbs$/);
  assert.match(await page.textContent("#journal"), /is no object of JSON and was skipped/);
  assert.match(await page.textContent("#journal"), /The trace has no end/);
  await page.keyboard.press("End");
  assert.match(hash(page), /^#line=\d+$/);
  assert.match(await page.textContent("#event-text"), /unreadable/);
  await page.goto(page.url().replace(/#.*/, "#run=2,n=1"));
  assert.equal(await currentText(page), "kbClear");
});

testPage("an empty trace is a page that says so", () => world.pageOf(""), async (page) => {
  assert.match(await page.textContent("#journal"), /The trace has no events/);
  assert.ok(!(await page.isVisible("#tools")));
});

// ---- No network

test("the page has a policy that loads nothing, and no address", () => {
  const html = readFileSync(new URL(agencyPage), "utf8");
  assert.match(html, /http-equiv="Content-Security-Policy" content="default-src 'none'; style-src 'sha256-[^' ]+'; script-src 'sha256-[^' ]+';/);
  assert.doesNotMatch(html, /https?:|\bsrc=|url\(|@import|unsafe-inline/);
});

test("markup that got in would not run: the policy lets through the page's own script alone", async () => {
  const context = await world.browser.newContext();
  const page = await context.newPage();
  const refused = [];
  page.on("console", (message) => refused.push(message.text()));
  await page.goto(agencyPage);
  await page.evaluate(() => {
    document.getElementById("journal").innerHTML += "<img src='http://somewhere.invalid/x.png' onerror='globalThis.wasHit = 1'>";
    document.head.append(Object.assign(document.createElement("script"), { textContent: "globalThis.wasHit = 2" }));
  });
  await page.waitForFunction(() => true, null, { polling: "raf" });
  assert.equal(await page.evaluate(() => globalThis.wasHit), undefined);
  assert.ok(refused.some((text) => /Content Security Policy/.test(text)), refused.join("\n"));
  await context.close();
});

// ---- Large traces. The time is that of the page's own thread: what else the machine does at that moment says nothing
// about the page.

test("a trace of 100,000 events is loaded in less than 5 s", async () => {
  const address = world.pageOf(longTrace(100000));
  const context = await world.browser.newContext();
  const page = await context.newPage();
  const devtools = await context.newCDPSession(page);
  await devtools.send("Performance.enable", { timeDomain: "threadTicks" });
  await page.goto(address);
  await page.waitForFunction(() => document.querySelector("[aria-current]"));
  const { metrics } = await devtools.send("Performance.getMetrics");
  const taken = metrics.find(({ name }) => name === "ThreadTime").value;
  assert.ok(taken > 0.1 && taken < 5, `${taken} s`);
  assert.equal(await page.locator(".event").count(), 100001);
  assert.equal(await search(page, "RTN077775"), "1 of 1");
  assert.equal(hash(page), "#n=77775");
  assert.ok(await page.locator("[id='n=77775']").evaluate((row) => {
    const box = row.getBoundingClientRect();
    const journal = document.getElementById("journal").getBoundingClientRect();
    return box.top >= journal.top && box.bottom <= journal.bottom;
  }), "the event is not in view");
  await context.close();
});

// ---- Without script

test("without script the journal is there with every screen", async () => {
  await withPage(agencyPage, { javaScriptEnabled: false }, async (page) => {
    assert.equal(await page.locator(".event").count(), 25);
    assert.equal(await page.locator("figure pre").count(), 9);
    for (const pre of await page.locator("figure pre").all()) assert.ok(await pre.isVisible());
    assert.ok(!(await page.isVisible("#tools")) && !(await page.isVisible("#event")) && !(await page.isVisible("#axis")));
    assert.match(await page.textContent("[id='n=15']"), /AN15JUNPARLOM.*unanswered/);
  });
});

// ---- Accessibility

// The checker is a script, so that the document as it is without script is made by taking back what the page's own did.
function takeBackScript() {
  document.documentElement.classList.remove("live");
  for (const id of ["tools", "axis", "event"]) document.getElementById(id).hidden = true;
}

const looks = {
  "the panes": { at: "#n=15", before: (page) => search(page, "ENTRY NOT") },
  "a narrow window": { at: "#n=4", viewport: { width: 420, height: 800 } },
  "the help": { at: "", before: (page) => page.keyboard.press("?") },
  "the document without script": { at: "", before: (page) => page.evaluate(takeBackScript) },
};
for (const colorScheme of ["light", "dark"]) {
  for (const [name, { at, before: prepare, ...options }] of Object.entries(looks)) {
    test(`the checker finds nothing in ${name}, ${colorScheme}`, async () => {
      await withPage(agencyPage + at, { ...options, colorScheme, bypassCSP: true }, async (page) => {
        await prepare?.(page);
        await page.evaluate(readFileSync(world.axe, "utf8"));
        const { violations, passes } = await page.evaluate(() => globalThis.axe.run());
        assert.deepEqual(violations.map(({ id, nodes }) => [id, ...nodes.map(({ html }) => html)]), []);
        assert.ok(passes.some(({ id }) => id === "color-contrast"), "the contrast was not looked at");
      });
    });
  }
}

test("light and dark follow the reader's choice", async () => {
  const backgrounds = [];
  for (const colorScheme of ["light", "dark"]) {
    await withPage(agencyPage, { colorScheme }, async (page) =>
      backgrounds.push(await page.evaluate(() => getComputedStyle(document.body).backgroundColor)));
  }
  assert.deepEqual(backgrounds, ["rgb(255, 255, 255)", "rgb(20, 23, 29)"]);
});

// ---- Paper

testPage("on paper there are the journal and every screen, and no controls", () => `${agencyPage}#n=4`, async (page) => {
  await page.emulateMedia({ media: "print" });
  for (const pre of await page.locator("#journal figure pre").all()) assert.ok(await pre.isVisible());
  for (const id of ["tools", "axis", "event"]) assert.ok(!(await page.isVisible(`#${id}`)), id);
  assert.ok(await page.evaluate(() => document.documentElement.scrollHeight > 1500), "the journal is cut off");
});
