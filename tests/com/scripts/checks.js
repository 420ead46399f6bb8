
// --- Checks. A failed one is reported and the test goes on; its end tells how many held.

var checksHeld, checksFailed;

// Wine's JScript never lets go of what an Enumerator walks over. A test with one says how many of the desktop's objects
// that keeps alive.
var heldByEnumerators;

function Check(held, what) {
  if (held) {
    checksHeld = (checksHeld || 0) + 1;
  } else {
    checksFailed = (checksFailed || 0) + 1;
    WScript.Echo("FAILED: " + what);
  }
}

function Equal(expected, actual, what) {
  Check(Flat(expected) === Flat(actual), what + ": expected " + expected + ", was " + actual);
}

// To Wine's engine two texts that are made by + and have one length are equal, whatever they say; copies are compared.
function Flat(value) {
  return typeof value === "string" ? value.substr(0) : value;
}

// Two texts of lines: each line that differs is reported.
function EqualLines(expected, actual, what) {
  var expectedLines = expected.split("\n");
  var actualLines = actual.split("\n");
  for (var line = 0; line < expectedLines.length && line < actualLines.length; ++line) {
    Equal(expectedLines[line], actualLines[line], what + ", line " + (line + 1));
  }
  Equal(expectedLines.length, actualLines.length, what + ", number of lines");
}

// The call fails with a number and a description; JScript sees the whole status code.
function Raises(number, description, what, call) {
  try {
    call();
  } catch (error) {
    Equal(number, error.number & 0xFFFF, what + ", number");
    Equal(description, error.description, what + ", description");
    return;
  }
  Check(false, what + ": raised nothing");
}

// The call is rejected because an argument does not fit. JScript hands that status on as it is, without a description.
function RefusesArgument(what, call) {
  try {
    call();
  } catch (error) {
    Equal(0x80020005 | 0, error.number, what + ", number");
    return;
  }
  Check(false, what + ": was not refused");
}

function Simulator(scenario) {
  var control = WScript.CreateObject("QuilletSimulator.Control");
  if (scenario) {
    control.LoadText(scenario);
  }
  control.ClearJournal();
  return control;
}

function Journal() {
  var control = WScript.CreateObject("QuilletSimulator.Control");
  var text = control.Journal;
  control.ClearJournal();
  return text.replace(/\r\n$/, "").replace(/\r\n/g, " | ");
}

// A row of the terminal.
function Row(text) {
  while (text.length < 80) {
    text += " ";
  }
  return text;
}

// Rows of the terminal, given as "FIRST|SECOND".
function Rows(text) {
  var rows = text.split("|"), joined = "";
  for (var i = 0; i < rows.length; ++i) {
    joined += Row(rows[i]);
  }
  return joined;
}

// A scenario of one session that gives these replies.
function SessionWith(replies) {
  return "[[session]]\nname = 'A'\n" + replies;
}

// A reply to an entry: a response of a type, page by page, each page given as "FIRST|SECOND". MD shows the next one.
function Answer(entry, kind, screens) {
  var text = "[[reply]]\nentry = '" + entry + "'\ntype = " + kind + "\npages = [";
  for (var i = 0; i < screens.length; ++i) {
    text += "'''\n" + screens[i].replace(/\|/g, "\n") + "''',\n";
  }
  return text + "]\n";
}

function EndTest() {
  // JScript lets go of what a function held when it collects its garbage.
  CollectGarbage();
  var alive = WScript.CreateObject("QuilletSimulator.Control").LiveObjects;
  Check(alive === 0 || alive === heldByEnumerators, "objects that are still alive: " + alive);
  if (checksFailed) {
    WScript.Echo(checksFailed + " checks FAILED");
    WScript.Quit(1);
  }
  WScript.Echo("all " + checksHeld + " checks held");
}
