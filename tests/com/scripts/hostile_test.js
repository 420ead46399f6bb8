// Scripts that pass what no member expects, from JScript: texts that no language should have made, and values that
// have no place in automation.

function Desk() {
  return "[[session]]\nname = 'A'\n[unknown]\nscreen = '*T*'\n";
}

function TestTextsWithNulAndUnpairedSurrogatesPassThrough() {
  var control = Simulator(Desk());
  var quillet = new ActiveXObject("Wendrill23.CQuillet");
  var texts = ["A" + String.fromCharCode(0) + "B", String.fromCharCode(0xD800), String.fromCharCode(0xDC00, 0xD800),
               String.fromCharCode(0xFFFF, 0xFFFE), "\r\n\t"];
  for (var place = 0; place < texts.length; ++place) {
    quillet.SendCommand(texts[place]);
    Equal(texts[place], quillet.LastHostCommand, "the entry that was sent, " + place);
    quillet.Command = texts[place];
    Equal(texts[place], quillet.Command, "the command, " + place);
  }
}

function TestObjectsOfTheScriptsOwnAreNoBags() {
  var control = Simulator(Desk());
  var quillet = new ActiveXObject("Wendrill23.CQuillet");
  var pnr = new ActiveXObject("Wendrill23.CPNR");
  var values = [{ intKeyIndex: 0 }, [0], new Date()];
  for (var place = 0; place < values.length; ++place) {
    FailsInSomeWay("NameElement, " + place, function () { pnr.NameElement(values[place]); });
    FailsInSomeWay("Elements, " + place, function () { pnr.Elements(values[place]); });
    FailsInSomeWay("SendCommandFI, " + place, function () { quillet.SendCommandFI("JD", values[place]); });
  }
  Equal(Row("*T*"), quillet.SendCommand("JD"), "the next entry");
}

function TestUndefinedAndNullAreNoTexts() {
  var control = Simulator(Desk());
  var quillet = new ActiveXObject("Wendrill23.CQuillet");
  Equal("", quillet.SendCommand(undefined), "undefined is Empty to automation, an empty entry");
  RefusesArgument("null", function () { quillet.SendCommand(null); });
  Equal("", Journal(), "nothing was sent");
}

function FailsInSomeWay(what, call) {
  try {
    call();
  } catch (error) {
    Check(error.number !== 0, what);
    return;
  }
  Check(false, what + ": raised nothing");
}
