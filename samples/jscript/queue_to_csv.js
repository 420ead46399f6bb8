// A list of record locators becomes one CSV: the names, flights, tickets and special services of each PNR.
//
//   script/run samples/jscript/queue_to_csv.js ABC123 locators.txt         beside the simulator
//   cscript //nologo queue_to_csv.js ABC123 locators.txt >pnrs.csv         on a desktop with Quillet, the library
//                                                                          registered; on 64-bit Windows the 32-bit
//                                                                          cscript, %SystemRoot%\SysWOW64\cscript.exe
//
// An argument that is the name of a file means the locators in it, one a line. The CSV (RFC 4180) goes to standard
// output, everything else to standard error. A PNR that is not found is skipped; the status is 1 when an error ends the
// list, 2 without locators.

var locators = allLocators();
if (locators.length === 0) {
  WScript.StdErr.WriteLine("Name record locators, or a file with one on each line.");
  WScript.Quit(2);
}

var current = "";
try {
  writeAll();
} catch (error) {
  WScript.StdErr.WriteLine("Error " + numberOf(error) + (current === "" ? "" : " in PNR " + current) + ": " +
    error.description);
  WScript.Quit(1);
}

function allLocators() {
  var files = WScript.CreateObject("Scripting.FileSystemObject");
  var found = [];
  for (var index = 0; index < WScript.Arguments.Count(); ++index) {
    var word = String(WScript.Arguments.Item(index));
    var lines = (files.FileExists(word) ? textOfFile(files, word) : word).split(/[\r\n]+/);
    for (var i = 0; i < lines.length; ++i) {
      var locator = lines[i].replace(/^ +| +$/g, "");
      if (locator !== "") {
        found.push(locator);
      }
    }
  }
  return found;
}

function textOfFile(files, path) {
  var file = files.OpenTextFile(path);
  var text = file.AtEndOfStream ? "" : file.ReadAll();         // reading an empty file would be an error
  file.Close();
  return text;
}

function writeAll() {
  var quillet = WScript.CreateObject("Wendrill23.CQuillet");   // connects to the running session
  WScript.Echo(row(["locator", "kind", "number", "what", "from", "to", "date", "departs", "arrives", "detail"]));
  for (var index = 0; index < locators.length; ++index) {
    current = locators[index];
    if (quillet.RetrieveRecLoc(current)) {
      writePnr(current);
    } else {
      WScript.StdErr.WriteLine("There is no PNR " + current + ".");
    }
  }
}

// All rows of a PNR at once: one that cannot be read to its end leaves no half of it.
function writePnr(locator) {
  var pnr = WScript.CreateObject("Wendrill23.CPNR");           // a new one for each PNR: it keeps the creation line
  var rows = [];
  addNames(rows, pnr, locator);
  addSegments(rows, pnr, locator);
  addTickets(rows, pnr, locator);
  addServices(rows, pnr, locator);
  for (var index = 0; index < rows.length; ++index) {
    WScript.Echo(rows[index]);
  }
}

function addNames(rows, pnr, locator) {
  for (var index = 0; index < pnr.NameElementsCount; ++index) {
    var bag = bagAt(index);
    pnr.NameElement(bag);
    rows.push(row([locator, "name", value(bag, "strKeyElementNr"), value(bag, "strKeyLastName") + "/" +
      value(bag, "strKeyInitial"), "", "", "", "", "", value(bag, "strKeyPapType")]));
  }
}

// Flights have times when they are neither open nor flown.
function addSegments(rows, pnr, locator) {
  for (var index = 0; index < pnr.AllAirSegmentsCount; ++index) {
    var bag = bagAt(index);
    pnr.AllAirSegments(bag);
    rows.push(row([locator, "segment", value(bag, "strKeySegmentNr"),
      value(bag, "strKeyAirline") + " " + value(bag, "strKeyNumber"), value(bag, "strKeyDepCity"),
      value(bag, "strKeyArrCity"), value(bag, "strKeyDepDate"), value(bag, "strKeyDepTime"),
      value(bag, "strKeyArrTime"), "class " + value(bag, "strKeyClass")]));
  }
}

function addTickets(rows, pnr, locator) {
  for (var index = 0; index < pnr.AutoTktElementsCount; ++index) {
    var bag = element(pnr, "FA", index);
    rows.push(row([locator, "ticket", value(bag, "strKeyElementNr"), value(bag, "strKeyTktNbr"), "", "", "", "", "",
      belonging(bag)]));
  }
}

function addServices(rows, pnr, locator) {
  for (var index = 0; index < pnr.SpecialServiceElementsCount; ++index) {
    var bag = element(pnr, "SSR", index);
    rows.push(row([locator, "service", value(bag, "strKeyElementNr"), value(bag, "strKeyCode"), "", "", "", "", "",
      joined([value(bag, "strKeyAirline"), value(bag, "strKeyStatus"), belonging(bag)])]));
  }
}

function belonging(bag) {
  var segment = value(bag, "strKeySegAsso");
  var passenger = value(bag, "strKeyPasAsso");
  return joined([segment === "" ? "" : "segment " + segment, passenger === "" ? "" : "passenger " + passenger]);
}

// The values that are not empty, with blanks between them.
function joined(values) {
  return values.join(" ").replace(/ +/g, " ").replace(/^ | $/g, "");
}

// A new bag for each call: a member leaves there what an earlier call has put.
function bagAt(index) {
  var bag = WScript.CreateObject("Scripting.Dictionary");
  bag.Add("intKeyIndex", index);
  return bag;
}

function element(pnr, kind, index) {
  var bag = bagAt(index);
  bag.Add("strKeyPNRElement", kind);
  pnr.Elements(bag);
  return bag;
}

// The value under a key; nothing when the member did not put one. Reading a missing key would add it.
function value(bag, key) {
  return bag.Exists(key) ? String(bag.Item(key)) : "";
}

// A row of the CSV. A value with a comma, a quotation mark or a line break is quoted, its own marks doubled.
function row(values) {
  var quoted = [];
  for (var index = 0; index < values.length; ++index) {
    var text = values[index];
    quoted.push(/[,"\r\n]/.test(text) ? '"' + text.replace(/"/g, '""') + '"' : text);
  }
  return quoted.join(",");
}

// The number that the documentation names. JScript shows it as &H800A0000 plus the number; whatever else it shows is a
// status of Windows or of the terminal and stays as it is.
function numberOf(error) {
  return (error.number >>> 16) === 0x800A ? error.number & 0xFFFF : error.number;
}
