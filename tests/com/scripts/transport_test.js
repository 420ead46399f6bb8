// Entries and their responses from JScript, which passes by value.

var kCommunication = "An error has occurred while communicating with Quillet.";

function TestSendingMembersReachTheTerminalInTheirOwnWays() {
  var control = Simulator(SessionWith(Answer("HE", 23, ["HELP"])));
  var quillet = new ActiveXObject("Wendrill23.CQuillet");
  Equal(Row("HELP"), quillet.SendCommand("HE"), "SendCommand");
  Equal("key 322 | send HE", Journal(), "SendCommand");
  Equal(Row("HELP"), quillet.SendCommandNoClear("HE"), "SendCommandNoClear");
  Equal("send HE", Journal(), "SendCommandNoClear");
  Equal("", quillet.SendCommandNoTransmit("HE"), "SendCommandNoTransmit");
  Equal("type HE", Journal(), "SendCommandNoTransmit");
}

function TestLastPropertiesReadTheLastResponse() {
  var control = Simulator(SessionWith("[[reply]]\nentry = 'HE'\nscreen = 'HELP'\ntype = 23\ntext = 'help text'\n"));
  var quillet = new ActiveXObject("Wendrill23.CQuillet");
  quillet.SendCommand("HE");
  Equal(Row("HELP"), quillet.LastBuffer, "LastBuffer");
  Equal(23, quillet.LastResponseType, "LastResponseType");
  Equal(80, quillet.LastNumberOfColumns, "LastNumberOfColumns");
  Equal(24, quillet.LastNumberOfLines, "LastNumberOfLines");
  Equal("HE", quillet.LastHostCommand, "LastHostCommand");
  Equal("help text", quillet.LastText, "LastText");
  Equal(Row("HELP"), quillet.GetLineFromLastBuffer(1), "GetLineFromLastBuffer");
}

function TestCommandIsPlainText() {
  var quillet = new ActiveXObject("Wendrill23.CQuillet");
  quillet.Command = "AN15JUNPARLON";
  Equal("AN15JUNPARLON", quillet.Command, "Command");
}

function TestPagedMembersCollectTheWholeResponse() {
  var control = Simulator(SessionWith(Answer("TQ", 0, ["T|ONE|)> 1/ 3", "T|TWO|)> 2/ 3", "T|THREE|)> 3/ 3"]) +
    Answer("DO1", 0, ["ONE|TWO", "THREE|END OF DISPLAY"])));
  var quillet = new ActiveXObject("Wendrill23.CQuillet");
  var whole = Rows("T|ONE|TWO|THREE|)> 3/ 3");
  Equal(whole, quillet.SendCommandGetAll("TQ"), "SendCommandGetAll");
  Equal("key 322 | send TQ | send MD | send MD", Journal(), "SendCommandGetAll");
  Equal(whole, quillet.SendCommandGetAllNoClear("TQ"), "SendCommandGetAllNoClear");
  Equal(whole, quillet.SendCommandCollectPages("TQ", null), "SendCommandCollectPages: the text alone");
  quillet.SendCommand("TQ");
  Equal(whole, quillet.GetTotalHostResponse(), "GetTotalHostResponse");
  Equal(Rows("TWO|THREE|END OF DISPLAY"), quillet.SendCommandLines("DO1", 2, ""), "SendCommandLines");
}

function TestParameterisedMembersReadTheirBag() {
  var control = Simulator(SessionWith(Answer("TQ", 0, ["T|ONE|)> 1/ 2", "T|TWO|)> 2/ 2"])));
  var quillet = new ActiveXObject("Wendrill23.CQuillet");
  var names = ["Pellorin.ParamBag", "Scripting.Dictionary"];
  for (var i = 0; i < names.length; ++i) {
    var bag = new ActiveXObject(names[i]);
    bag.Item("blnKeyClear") = true;
    bag.Item("blnKeyGetAll") = true;
    bag.Item("strKeyCommand") = "TQ";
    Equal(Rows("T|ONE|TWO|)> 2/ 2"), quillet.SendCommandFI("TQ", bag), "SendCommandFI, " + names[i]);
    Equal("key 322 | send TQ | send MD", Journal(), "SendCommandFI, " + names[i]);
    Equal(Rows("T|ONE|)> 1/ 2"), quillet.SendCommandTicsPas(bag), "SendCommandTicsPas, " + names[i]);
    Equal("key 322 | send TQ", Journal(), "SendCommandTicsPas, " + names[i]);
  }
}

function TestEveryMemberRaisesItsOwnNumber() {
  var control = Simulator("");
  var quillet = new ActiveXObject("Wendrill23.CQuillet");
  var bag = new ActiveXObject("Pellorin.ParamBag");
  bag.Item("strKeyCommand") = "HE";
  var calls = {
    2505: function () { quillet.SendCommand("HE"); },
    2506: function () { quillet.SendCommandFI("HE", bag); },
    2525: function () { quillet.SendCommandGetAll("HE"); },
    2530: function () { quillet.SendCommandNoClear("HE"); },
    2540: function () { quillet.SendCommandTicsPas(bag); },
    2557: function () { quillet.SendCommandCollectPages("HE", null); },
    2600: function () { quillet.SendCommandLines("HE", "1", "1"); }
  };
  for (var number in calls) {
    control.FailNext("Send", 0x80004005 | 0, 1);
    Raises(Number(number), kCommunication, number, calls[number]);
  }
  control.FailNext("LastResponse", 0x80004005 | 0, 1);
  Raises(2545, kCommunication, "GetTotalHostResponse", function () { quillet.GetTotalHostResponse(); });
}

function TestWhatIsNoBagIsRefused() {
  var quillet = new ActiveXObject("Wendrill23.CQuillet");
  Raises(2506, kCommunication, "an object of another kind", function () { quillet.SendCommandFI("HE", quillet); });
  Raises(2540, kCommunication, "undefined", function () { quillet.SendCommandTicsPas(undefined); });
  RefusesArgument("a text", function () { quillet.SendCommandFI("HE", "bag"); });
}

// An object of the script has no keyed default member.
function TestAnObjectOfTheScriptIsNoBag() {
  var control = Simulator(SessionWith(Answer("HE", 0, ["HELP"])));
  var quillet = new ActiveXObject("Wendrill23.CQuillet");
  Raises(2506, kCommunication, "a plain object", function () {
    quillet.SendCommandFI("HE", { blnKeyClear: true });
  });
  Equal("", Journal(), "what reached the terminal");
}
