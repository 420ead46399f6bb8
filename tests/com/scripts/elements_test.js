// The generic element access from JScript.

function CompareRecords(file) {
  var control = RichDesk();
  var quillet = WScript.CreateObject("Wendrill23.CQuillet");
  var pnr = WScript.CreateObject("Wendrill23.CPNR");
  quillet.RetrieveCurrent();
  var records = RecordsIn(file);
  for (var i = 0; i < records.length; ++i) {
    var record = records[i];
    var bag = BagAt(record.index);
    bag.Item("strKeyPNRElement") = record.name;
    var given = BagText(bag);
    var raised = ErrorText(function () { Equal(null, pnr.Elements(bag), record.name + ", result"); });
    EqualLines(given + record.text, BagText(bag) + raised, record.name + " " + record.index);
  }
}

function TestKindsOfTheDisplay() {
  CompareRecords("kinds_of_the_display");
}

function TestKindsOfTheToolkit() {
  CompareRecords("kinds_of_the_toolkit");
}

function TestAllHandsOutArraysThatCanBeIndexed() {
  var control = RichDesk();
  var quillet = WScript.CreateObject("Wendrill23.CQuillet");
  var pnr = WScript.CreateObject("Wendrill23.CPNR");
  quillet.RetrieveCurrent();
  var prefixes = WScript.CreateObject("Scripting.Dictionary");
  prefixes.Add("", 0);
  prefixes.Add("rm", 1);
  var bag = WScript.CreateObject("Pellorin.ParamBag");
  bag.Item("strKeyPNRElement") = "ALL";
  bag.Item("strKeyFind()") = prefixes.Keys();  // JScript's own way to an array that automation knows
  var found = pnr.Elements(bag);
  var texts = new VBArray(found.Item("strKeyResult()"));
  var numbers = new VBArray(found.Item("strKeyElementNbrs()"));
  Equal(1, texts.lbound(), "lower bound");
  Equal(2, texts.ubound(), "upper bound");
  Equal("RM PAY AT AIRPORT/S5/P1", texts.getItem(1), "first text");
  Equal("28", numbers.getItem(1), "first number");
  Equal("RM WINDOW SEATS WANTED", texts.getItem(2), "second text");
  Equal("29", numbers.getItem(2), "second number");
}
