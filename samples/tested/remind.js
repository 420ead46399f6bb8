// Reminds the office of a PNR without a ticket: adds a remark and ends the transaction.
//
//   script/run samples/tested/remind.js ABC123      beside the simulator
//   cscript remind.js ABC123                        on a desktop with Quillet, the library registered
//
// Its test is remind_test.js. The test sets "underTest" before it reads this file: then nothing runs by itself.

if (typeof underTest === "undefined") {
  WScript.Echo(remind(new ActiveXObject("Wendrill23.CQuillet"), WScript.Arguments(0)));
}

// Returns what was done, in words.
function remind(quillet, locator) {
  if (!quillet.RetrieveRecLoc(locator)) {
    return "There is no PNR " + locator + ".";
  }
  var pnr = new ActiveXObject("Wendrill23.CPNR");
  if (pnr.TicketElementsCount > 0) {
    return locator + " has its ticketing arrangement.";
  }
  quillet.SendCommand("RMTICKET IS MISSING");
  var answer = quillet.SendCommand("ER");
  return isDone(answer) ? locator + " has a reminder now." : "The reminder was refused: " + firstRow(answer);
}

function isDone(answer) {
  return answer.indexOf("END OF TRANSACTION") === 0;
}

function firstRow(answer) {
  return answer.substr(0, 80).replace(/ +$/, "");
}
