// The traces that the pages of the tests and of the pictures are made of, as docs/trace.md describes them.

const columns = 80;

function rowsOf(text) {
  return text.split("\n").map((row) => row.padEnd(columns));
}

const availability = `** AVAILABILITY ** PARLON                                          15JUN08 SUN
 1  AF1570 C4 D4 Y9 B9 M9 K0      CDG LHR 0715 0730
 2  AF1620 C4 D4 Y9 B9 M9 K0      CDG LHR 0830 0850
 3  SK 612 C4 D4 Y9 B9 M9 K0      CDG LHR 0905 0920
 4  AF1680 C4 D4 Y9 B9 M9 K0      CDG LHR 1010 1030
>                                                 PAGE  1/ 3`;

const later = `** AVAILABILITY ** PARLON                                          15JUN08 SUN
 5  SK 616 C4 D4 Y9 B9 M9 K0      CDG LHR 1115 1130
 6  AF1780 C4 D4 Y9 B9 M9 K0      CDG LHR 1300 1320
 7  AF1880 C4 D4 Y9 B9 M9 K0      CDG LHR 1510 1530
 8  SK 620 C4 D4 Y9 B9 M9 K0      CDG LHR 1640 1655
>                                                 PAGE  2/ 3`;

const display = `--- TST AXR ---
RP/NCEYY2100/NCEYY2100            AM/SU  12JUN08/0930Z   ABC123
NCEYY2100/0001AM/12JUN08
  1.MARTIN/PAUL MR   2.MARTIN/JULIE MRS
  3  AF1080 Y 15JUN 7 CDGLHR HK2      0730 0750
  4  AF1681 Y 22JUN 7 LHRCDG HK2      1040 1300
  5 AP NCE 04 00 00 00 00-B
  6 TK OK12JUN/NCEYY2100
  7 SSR VGML AF HK1/S3/P2
  8 RM CALL BEFORE TICKETING`;

const remarked = `${display}
  9 RM TICKET SENT BY MAIL`;

// A script of an agency: it looks for flights, retrieves a PNR, adds a remark, misspells an entry and fails in the end.
export function agencyTrace() {
  const lines = [{ v: 1, kind: "run", script: "monday_reminders.vbs", scenario: "near.toml", started: "2026-11-22T09:30:00Z" }];
  const send = (t, session, entry, rest) => ({ t, kind: "send", session, entry, answered: true, ms: 1.2, type: 22, ...rest });
  const events = [
    { t: 0.0041, kind: "key", session: "A", code: 322, name: "kbClear", accepted: true },
    send(0.0123, "A", "AN15JUNPARLON", { screen: rowsOf(availability) }),
    { t: 0.0131, kind: "event", session: "A", handlers: 1 },
    send(0.4382, "A", "MD", { ms: 212.4, screen: rowsOf(later) }),
    send(0.4407, "A", "MD", { same: 4 }),
    { t: 0.4411, kind: "call", operation: "ParamBag.Item", argument: "intKeyIndex" },
    { t: 0.4519, kind: "alarm", lock: true },
    send(0.4620, "A", "JI", { screen: rowsOf("SIGNED IN") }),
    { t: 0.8731, kind: "alarm", lock: false },
    { t: 0.9015, kind: "retrieve", session: "A", entry: "RTABC123", found: true, locator: "ABC123", screen: rowsOf(display) },
    { t: 0.9102, kind: "expect", name: "office", held: true },
    send(1.2040, "A", "RMTICKET SENT BY MAIL;ER", { parts: [{ entry: "RMTICKET SENT BY MAIL", answered: true }, { entry: "ER", answered: true }], screen: rowsOf(remarked) }),
    { t: 1.2101, kind: "type", session: "B", text: "HELLO FROM THE SECOND DESK" },
    send(1.3312, "B", "QT", { type: 0, screen: rowsOf("QUEUE COUNT 1: 12  2: 7  3: 0\nQUEUE COUNT 4: 1  5: 0") }),
    send(1.6100, "A", "AN15JUNPARLOM", { answered: false, type: 0, screen: rowsOf("ENTRY NOT UNDERSTOOD") }),
    { t: 1.6904, kind: "retrieve", session: "A", entry: "RTXYZ789", found: false },
    { t: 1.7021, kind: "expect", name: "two names", held: false, failure: "got 1, expected 2" },
    { t: 1.7510, kind: "key", session: "A", code: 353, accepted: false },
    send(1.8233, "B", "QS8C1", { type: 0, screen: rowsOf("QUEUE COUNT 1: 12  2: 6  3: 0\nQUEUE COUNT 4: 1  5: 0") }),
    send(2.0110, "A", "RTABC123", { screen: rowsOf(remarked) }),
    { t: 2.1407, kind: "error", text: "Could not retrieve the PNR.", number: 2501, source: "Wendrill23", file: "monday_reminders.vbs", line: 41, column: 3 },
    { t: 2.1436, kind: "warning", about: "unanswered", text: "AN15JUNPARLOM" },
    { t: 2.1436, kind: "warning", about: "unused", text: "near.toml, line 31: SP2" },
    { t: 2.1440, kind: "end", status: 1, duration: 2.144, sent: 9, unanswered: 1, calls: 212, expectations: 2, failed: 1, findings: 2 },
  ];
  events.forEach(({ t, ...event }, place) => lines.push({ t, n: place + 1, ...event }));
  return textOf(lines);
}

// A long run as it is in practice: of three events one has a screen, and of ten screens four are the one before.
export function longTrace(count) {
  const lines = [{ v: 1, kind: "run", script: "night_run.vbs", scenario: "night.toml", started: "" }];
  let screenAt = 0;
  for (let n = 1; n <= count; ++n) {
    const t = n / 250;
    const session = n % 7 === 0 ? "B" : "A";
    if (n % 3 !== 0) {
      lines.push({ t, n, kind: n % 3 === 1 ? "key" : "event", session, ...(n % 3 === 1 ? { code: 322, name: "kbClear", accepted: true } : { handlers: 1 }) });
    } else if (screenAt > 0 && n % 10 < 4) {
      lines.push({ t, n, kind: "send", session, entry: "MD", answered: true, ms: 1.1, type: 22, same: screenAt });
    } else {
      screenAt = n;
      const screen = rowsOf(display.replace("ABC123", `N${String(n).padStart(6, "0")}`)).slice(0, 6 + n % 5);
      lines.push({ t, n, kind: "send", session, entry: `RTN${String(n).padStart(6, "0")}`, answered: n % 999 !== 0, ms: 1.2, type: 22, screen });
    }
  }
  return textOf(lines);
}

export function textOf(lines) {
  return lines.map((line) => `${typeof line === "string" ? line : JSON.stringify(line)}\n`).join("");
}
