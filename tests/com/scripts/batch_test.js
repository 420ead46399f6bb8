// Batches from JScript.

function Patient() {
  return SessionWith("[[reply]]\nstarts = ''\nscreen = 'RP/PARXX0100'\n");
}

function TestCommandsThroughTheProperty() {
  var batch = new ActiveXObject("Wendrill23.CBatch");
  batch.Commands.Add("ONE", "first");
  batch.Commands.Add("TWO");
  Equal("ONE", batch.Commands(1).Command, "by position");
  Equal("ONE", batch.Commands("FIRST").Command, "by key");
  Equal("TWO", batch.Commands.Item(2).Command, "through Item");
  Equal(2, batch.Commands.Count, "Count");
  Check(batch.Commands === batch.Commands, "one object");
  Raises(5, "Invalid procedure call or argument", "a position outside", function () { return batch.Commands(3); });
}

function TestABatchTakesTheCallersQueue() {
  var control = Simulator(Patient());
  var batch = new ActiveXObject("Wendrill23.CBatch");
  var queue = new ActiveXObject("Wendrill23.CQueue");
  queue.Add("RM A");
  batch.Commands = queue;
  Check(batch.Commands === queue, "by reference");
  queue.Add("RM B");
  batch.Submit();
  Equal("key 322 | send RM A;RM B |   RM A |   RM B", Journal(), "what reached the terminal");
}

function TestTheReportOfABatchWithARefusedEntry() {
  var control = Simulator(SessionWith(Answer("RU1A", 0, ["RP/PARXX0100"]) + Answer("RU1B", 0, ["INVALID FORMAT"])));
  var names = ["Pellorin.ParamBag", "Scripting.Dictionary"];
  for (var i = 0; i < names.length; ++i) {
    var batch = new ActiveXObject("Wendrill23.CBatch");
    batch.Commands.Add("RU1A");
    batch.Commands.Add("RU1B");
    var bag = new ActiveXObject(names[i]);
    batch.SubmitWithResponse(bag);
    Equal("2", bag("strKeyErr"), "the refused one, " + names[i]);
    Equal(false, bag("blnKeyResponseOK"), "whether all went well, " + names[i]);
    var responses = new VBArray(bag("strKeyResponseArray")).toArray();
    Equal(2, responses.length, "responses, " + names[i]);
    Equal(Row("RP/PARXX0100"), responses[0], "the first response, " + names[i]);
    Equal(Row("INVALID FORMAT"), responses[1], "the second response, " + names[i]);
  }
}

function TestTheSeparatorIsPlainText() {
  var control = Simulator(Patient());
  var batch = new ActiveXObject("Wendrill23.CBatch");
  Equal("", batch.Separator, "at first");
  batch.Separator = "+";
  Equal("+", batch.Separator, "afterwards");
  batch.Commands.Add("RM A+RU B");
  batch.Submit();
  Equal("key 322 | send RM A | key 322 | send RU B", Journal(), "what reached the terminal");
}

function TestFailuresRaiseTheMembersOwnNumbers() {
  var control = Simulator(Patient());
  var batch = new ActiveXObject("Wendrill23.CBatch");
  batch.Commands.Add("RM A");
  control.FailNext("Send", 0x80004005 | 0, 1);
  Raises(2300, "A general error has occurred.", "Submit", function () { batch.Submit(); });
  control.FailNext("Send", 0x80004005 | 0, 1);
  Raises(2315, "A general error has occurred.", "SubmitWithResponse", function () {
    batch.SubmitWithResponse(new ActiveXObject("Pellorin.ParamBag"));
  });
  Raises(2315, "A general error has occurred.", "an object that is no bag", function () {
    batch.SubmitWithResponse(batch);
  });
  RefusesArgument("an object that is no queue", function () { batch.Commands = batch; });
}

function TestARemarkPassedByValueIsCutAndLost() {
  var batch = new ActiveXObject("Wendrill23.CBatch");
  batch.RMBatch("RM TEXT", undefined);
  Check(true, "it raised nothing");
  RefusesArgument("a text in place of the elements", function () { batch.RMBatch("RM TEXT", "elements"); });
}
