// Entries that wait in a queue, sent as one batch; the host refuses one of them.
//
//   script/run samples/jscript/batch.js         beside the simulator
//   cscript //nologo batch.js                   on a desktop with Quillet, the library registered; on 64-bit Windows
//                                               the 32-bit cscript, %SystemRoot%\SysWOW64\cscript.exe
//
// A batch joins the entries with ";" and sends them in as few host entries as they need, at most 239 characters at a
// time. Its report numbers these host entries from 1 and says which of them the host refused. An error goes to standard
// error, and the status is 1.
//
// Write long remarks as several entries. RMBatch, which cuts them, gives the elements back in a variable, and JScript
// loses what comes back that way.

try {
  sendBatch(filledQueue());
} catch (error) {
  WScript.StdErr.WriteLine("Error " + numberOf(error) + ": " + error.description);
  WScript.Quit(1);
}

function filledQueue() {
  var queue = WScript.CreateObject("Wendrill23.CQueue");
  queue.Add("RM PAID BY CARD AT THE DESK");
  queue.Add("RM WINDOW SEATS WANTED", "seats");                // an entry may have a key
  queue.Add("ER", "end");
  queue.Add("RUBBISH");                 // "RU" begins a host entry; the host does not understand this one

  // Error 2400 is whatever keeps an entry out of the queue: here a key that is there already, whatever its case.
  try {
    queue.Add("ET", "END");
  } catch (error) {
    if (numberOf(error) !== 2400) {
      throw error;
    }
    WScript.Echo("ET is not queued: there is an entry under its key, " + queue("END").Command);
  }
  return queue;
}

function sendBatch(queue) {
  for (var entries = new Enumerator(queue); !entries.atEnd(); entries.moveNext()) {
    WScript.Echo("> " + entries.item().Command);
  }

  var batch = WScript.CreateObject("Wendrill23.CBatch");
  var report = WScript.CreateObject("Scripting.Dictionary");   // a bag, filled by the call
  batch.Commands = queue;
  batch.SubmitWithResponse(report);

  var responses = new VBArray(report.Item("strKeyResponseArray")).toArray();
  for (var index = 0; index < responses.length; ++index) {
    WScript.Echo((index + 1) + ": " + firstRow(responses[index]));
  }
  if (report.Item("blnKeyResponseOK")) {
    WScript.Echo("The host accepted everything.");
  } else {
    WScript.Echo("Refused: host entry " + report.Item("strKeyErr"));
  }
}

function firstRow(response) {
  return response.substr(0, 80).replace(/ +$/, "");
}

// The number that the documentation names. JScript shows it as &H800A0000 plus the number; whatever else it shows is a
// status of Windows or of the terminal and stays as it is.
function numberOf(error) {
  return (error.number >>> 16) === 0x800A ? error.number & 0xFFFF : error.number;
}
