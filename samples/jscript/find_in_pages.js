// Looks for a text in a response of several pages and stops at the page that has it: the pages after it are not fetched.
//
//   script/run samples/jscript/find_in_pages.js [TEXT [ENTRY]]     beside the simulator
//   cscript //nologo find_in_pages.js [TEXT [ENTRY]]               on a desktop with Quillet, the library registered; on
//                                                                  64-bit Windows the 32-bit cscript,
//                                                                  %SystemRoot%\SysWOW64\cscript.exe
//
// Without arguments: a flight in an availability display of the simulator. The members that collect pages fetch all of
// them; here each page is an entry of its own, MD. An error goes to standard error, and the status is 1.

var quillet;
try {
  find(argument(0, "AF 123"), argument(1, "AN20JUNNCEPAR"));
} catch (error) {
  WScript.StdErr.WriteLine("Error " + numberOf(error) + ": " + error.description);
  WScript.Quit(1);
}

function argument(position, otherwise) {
  return position < WScript.Arguments.Count() ? String(WScript.Arguments.Item(position)) : otherwise;
}

function find(text, entry) {
  quillet = WScript.CreateObject("Wendrill23.CQuillet");       // connects to the running session
  WScript.Echo("> " + entry);
  var page = quillet.SendCommandNoClear(entry);                // waits for the host's answer
  var number = 1;
  var row = rowWith(page, text);
  while (row === "" && goesOn(page)) {
    WScript.Echo("Page " + number + ": not there");
    page = quillet.SendCommandNoClear("MD");
    ++number;
    row = rowWith(page, text);
  }
  if (row === "") {
    WScript.Echo("Page " + number + ": not there, and this is the last one");
  } else if (goesOn(page)) {
    WScript.Echo("Page " + number + ": " + row);
    WScript.Echo("The pages after it were not fetched.");
  } else {
    WScript.Echo("Page " + number + ", the last one: " + row);
  }
}

// The first row of a page that holds the text, without the blanks around it; empty when there is none.
function rowWith(page, text) {
  var all = rows(page);
  for (var index = 0; index < all.length; ++index) {
    if (all[index].indexOf(text) >= 0) {
      return all[index].replace(/^ +| +$/g, "");
    }
  }
  return "";
}

// Whether more pages follow: the last row with text begins with "MORE", or says ">   PAGE  1/ 3" or ")> 1/ 3".
function goesOn(page) {
  var last = "";
  var all = rows(page);
  for (var index = 0; index < all.length; ++index) {
    if (/[^ ]/.test(all[index])) {
      last = all[index];
    }
  }
  var numbers = />(?: *PAGE)? *([0-9]+) *\/ *([0-9]+) *$/.exec(last);
  return /^MORE/.test(last) || (numbers !== null && Number(numbers[1]) < Number(numbers[2]));
}

// A response is one text of rows of the screen's width, without line breaks.
function rows(page) {
  var columns = quillet.LastNumberOfColumns || 80;
  var found = [];
  for (var start = 0; start < page.length; start += columns) {
    found.push(page.substr(start, columns));
  }
  return found;
}

// The number that the documentation names. JScript shows it as &H800A0000 plus the number; whatever else it shows is a
// status of Windows or of the terminal and stays as it is.
function numberOf(error) {
  return (error.number >>> 16) === 0x800A ? error.number & 0xFFFF : error.number;
}
