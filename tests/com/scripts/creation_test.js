// Sessions and objects from JScript.

function TestEveryClassCanBeCreatedByName() {
  var names = ["CQuillet", "CPNR", "CQueue", "CBatch", "CEncodeUtils", "IGet", "IGetPNR"];
  for (var i = 0; i < names.length; ++i) {
    Equal("object", typeof new ActiveXObject("Wendrill23." + names[i]), names[i]);
  }
}

function TestNoSessionRefusesTheCreationWithTheActivePnrText() {
  var control = Simulator("[terminal]\n");
  Raises(2510, "Could not retrieve an active PNR. Make sure there is an active PNR/Session.", "creation", function () {
    WScript.CreateObject("Wendrill23.CQuillet");
  });
}

function TestNoSessionRefusesTheHostConnectionWithTheTwoPartMessage() {
  var control = Simulator("[terminal]\n");
  try {
    WScript.CreateObject("Wendrill23.CEncodeUtils");
    Check(false, "creation raised nothing");
  } catch (error) {
    Equal(-2147220394, error.number, "number");
    Equal("Failed to connect to Selvarin Quillet Session.\r\rVerify that an Selvarin Quillet session is started.",
      error.description, "description");
  }
}

function TestTheSessionListIsTheFirstObjectsAlone() {
  var first = new ActiveXObject("Wendrill23.CQuillet");
  var second = new ActiveXObject("Wendrill23.CQuillet");
  Equal("A;B", first.GetSessionList, "of the first");
  Equal("", second.GetSessionList, "of the second");
}

function TestConnectingAndDroppingTheSession() {
  var quillet = new ActiveXObject("Wendrill23.CQuillet");
  var other = new ActiveXObject("Wendrill23.CQuillet");
  quillet.ConnectSession("B");
  Equal(Row("IGNORED"), other.SendCommand("IG"), "the session is shared");
  Raises(2535, "Could not connect to Quillet Session.", "an unknown name", function () {
    quillet.ConnectSession("NOBODY");
  });
  Raises(2505, "An error has occurred while communicating with Quillet.", "there is no session now", function () {
    other.SendCommand("IG");
  });
  quillet.ConnectSession("A");
  quillet.StopLoop();
  Raises(91, "Object variable or With block variable not set", "StopLoop took the session", function () {
    return other.LastBuffer;
  });
}

function TestTheHostConnectionIsOneObject() {
  var utils = new ActiveXObject("Wendrill23.CEncodeUtils");
  Check(utils.EncodeSession === utils.EncodeSession, "read twice");
}

function TestAMemberThatIsNotThereIs438() {
  var quillet = new ActiveXObject("Wendrill23.CQuillet");
  try {
    quillet.Frobnicate();
    Check(false, "raised nothing");
  } catch (error) {
    Equal(438, error.number & 0xFFFF, "number");
  }
}
