
// --- Checks. A failed one is reported and the test goes on; its end tells how many held.

var checksHeld, checksFailed;

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

function EndTest() {
  // JScript lets go of what a function held when it collects its garbage.
  CollectGarbage();
  Equal(0, WScript.CreateObject("QuilletSimulator.Control").LiveObjects, "objects that are still alive");
  if (checksFailed) {
    WScript.Echo(checksFailed + " checks FAILED");
    WScript.Quit(1);
  }
  WScript.Echo("all " + checksHeld + " checks held");
}
