// The test of remind.js, with the scenario remind_test.toml.
//
//   script/try samples/tested            beside the simulator
//   script_host --tests samples\tested   the same on Windows

var underTest = true;
eval(textOf("remind.js"));

var expect = new ActiveXObject("QuilletSimulator.Expect");
var control = new ActiveXObject("QuilletSimulator.Control");
var quillet = new ActiveXObject("Wendrill23.CQuillet");

expect.Equal("without a ticket", remind(quillet, "BARE01"), "BARE01 has a reminder now.");
expect.InOrder(["RMTICKET IS MISSING", "ER"]);

control.ClearJournal();
expect.Equal("refused", remind(quillet, "BARE01"), "The reminder was refused: SIMULTANEOUS CHANGES TO PNR");

control.ClearJournal();
expect.Equal("with a ticket", remind(quillet, "DONE01"), "DONE01 has its ticketing arrangement.");
expect.NotSent("ER");

expect.Equal("no such PNR", remind(quillet, "NOBODY"), "There is no PNR NOBODY.");

function textOf(name) {
  var files = new ActiveXObject("Scripting.FileSystemObject");
  var file = files.OpenTextFile(files.BuildPath(files.GetParentFolderName(WScript.ScriptFullName), name));
  var text = file.ReadAll();
  file.Close();
  return text;
}
