// Reads a PNR: sends an entry, retrieves the PNR, counts what it holds and shows its names, flights and remarks.
//
//   script/run samples/jscript/read_pnr.js          beside the simulator
//   cscript read_pnr.js                             on a desktop with Quillet, the library registered; on 64-bit
//                                                   Windows the 32-bit cscript, %SystemRoot%\SysWOW64\cscript.exe
//
// Entry and locator are those of the simulator's built-in scenario; put your own in their place.
//
// Names, flights and remarks are read in the same way. The position, counted from 0, goes into a bag; a member of CPNR
// puts the element's values into that bag; the script takes them out. JScript passes copies of its variables, so no
// member can give a text or an array back in one. A bag comes back filled all the same: it is an object, and the copy
// leads to it too.

var entry = "AN15JUNPARLON";
var locator = "ABC123";

try {
  readPnr();
} catch (error) {
  WScript.Echo("Error " + numberOf(error) + ": " + error.description);
  WScript.Quit(1);
}

function readPnr() {
  // WScript.CreateObject tells why an object cannot be had, here error 2510 when no session runs. With
  // new ActiveXObject every reason becomes error 429.
  var quillet = WScript.CreateObject("Wendrill23.CQuillet");   // connects to the running session
  var pnr = WScript.CreateObject("Wendrill23.CPNR");           // reads the PNR that was retrieved last

  WScript.Echo("> " + entry);
  showRows(quillet.SendCommand(entry), quillet.LastNumberOfColumns);

  if (quillet.RetrieveRecLoc(locator)) {
    showPnr(pnr);
  } else {
    WScript.Echo("There is no PNR " + locator + ".");          // no error but an answer
  }
}

function showPnr(pnr) {
  WScript.Echo("PNR " + pnr.RecordLocator + ", made by " + pnr.CreationOfficeID + " on " + pnr.CreationDate);
  WScript.Echo(pnr.NameElementsCount + " names, " + pnr.AllAirSegmentsCount + " flights, " +
    pnr.RemarkElementsCount + " remarks");
  showNames(pnr);
  showFlights(pnr);
  showRemarks(pnr);
}

function showNames(pnr) {
  for (var index = 0; index < pnr.NameElementsCount; ++index) {
    var bag = bagAt(index);
    pnr.NameElement(bag);
    show(bag, "strKeyElementNr", ["strKeyLastName", "strKeyInitial", "strKeyPapType"]);
  }
}

// Flights have times when they are neither open nor flown.
function showFlights(pnr) {
  for (var index = 0; index < pnr.AllAirSegmentsCount; ++index) {
    var bag = bagAt(index);
    pnr.AllAirSegments(bag);
    show(bag, "strKeySegmentNr", ["strKeyAirline", "strKeyNumber", "strKeyClass", "strKeyDepDate", "strKeyDepCity",
      "strKeyArrCity", "strKeyDepTime", "strKeyArrTime"]);
  }
}

// A remark with its passengers before its segments, "/P1/S4", is error 5. By then the bag holds the remark as it
// is displayed, and the remarks after it can be read.
function showRemarks(pnr) {
  for (var index = 0; index < pnr.RemarkElementsCount; ++index) {
    var bag = bagAt(index);
    try {
      pnr.RemarkElement(bag);
      show(bag, "strKeyElementNr", ["strKeyText"]);
    } catch (error) {
      if (numberOf(error) !== 5) {
        throw error;
      }
      WScript.Echo("  " + value(bag, "strKeyElement"));
    }
  }
}

// A bag that asks for the element at a position. Each call gets a new one, because a member leaves there what an
// earlier call has put and it does not put itself. A plain object of JScript is no bag.
function bagAt(index) {
  var bag = WScript.CreateObject("Scripting.Dictionary");
  bag.Add("intKeyIndex", index);
  return bag;
}

// The value under a key; nothing when the member did not put one. Reading a missing key would add it.
function value(bag, key) {
  return bag.Exists(key) ? String(bag.Item(key)) : "";
}

// A line of an element's number and its values, without those that are empty.
function show(bag, numberKey, keys) {
  var line = "  " + value(bag, numberKey);
  for (var i = 0; i < keys.length; ++i) {
    if (value(bag, keys[i]) !== "") {
      line += " " + value(bag, keys[i]);
    }
  }
  WScript.Echo(line);
}

// A response is one text of rows of the screen's width, without line breaks.
function showRows(response, columns) {
  for (var column = 0; columns > 0 && column < response.length; column += columns) {
    var row = response.substr(column, columns).replace(/ +$/, "");
    if (row !== "") {
      WScript.Echo(row);
    }
  }
}

// The number that the documentation names. JScript shows it as &H800A0000 plus the number; whatever else it shows is a
// status of Windows or of the terminal and stays as it is.
function numberOf(error) {
  return (error.number >>> 16) === 0x800A ? error.number & 0xFFFF : error.number;
}
