// The queue from JScript.

function CommandsIn(queue) {
  var commands = [];
  heldByEnumerators = 3;  // session list, session and PNR, which go with the last stored object
  for (var walk = new Enumerator(queue); !walk.atEnd(); walk.moveNext()) {
    commands.push(walk.item().Command);
  }
  return commands.join("|");
}

function TestAnEnumeratorWalksTheQueueInOrder() {
  var queue = new ActiveXObject("Wendrill23.CQueue");
  Equal("", CommandsIn(queue), "an empty queue");
  queue.Add("ONE");
  queue.Add("TWO", "second");
  queue.Add("THREE");
  Equal("ONE|TWO|THREE", CommandsIn(queue), "commands");
  var walk = new Enumerator(queue);
  walk.moveNext();
  Equal("TWO", walk.item().Command, "the second");
  walk.moveFirst();
  Equal("ONE", walk.item().Command, "the first again");
  Check(walk.item() === queue.Item(1), "it gives the stored object");
}

function TestItemByPositionAndByKey() {
  var queue = new ActiveXObject("Wendrill23.CQueue");
  queue.Add("ONE", "first");
  queue.Add("TWO");
  Equal(2, queue.Count, "Count");
  Equal("ONE", queue(1).Command, "the default member by position");
  Equal("ONE", queue("FIRST").Command, "the default member by key");
  Equal("TWO", queue.Item(2).Command, "Item by position");
  Equal("ONE", queue.Item("first").Command, "Item by key");
  Check(queue(1) === queue.Item("first"), "one object");
}

function TestRemoving() {
  var queue = new ActiveXObject("Wendrill23.CQueue");
  queue.Add("ONE", "first");
  queue.Add("TWO");
  queue.Add("THREE");
  queue.Remove(2);
  Equal("ONE|THREE", CommandsIn(queue), "by position");
  queue.Remove("FIRST");
  Equal("THREE", CommandsIn(queue), "by key");
  queue.RemoveAll();
  Equal(0, queue.Count, "all");
}

function TestErrorsOfTheCollectionAndItsOwn() {
  var queue = new ActiveXObject("Wendrill23.CQueue");
  queue.Add("ONE", "first");
  var indexes = [0, 2, -1, 2147483647, -2147483648, "second", "", undefined, true];
  for (var i = 0; i < indexes.length; ++i) {
    Raises(5, "Invalid procedure call or argument", "Item " + indexes[i], function () { queue.Item(indexes[i]); });
    Raises(5, "Invalid procedure call or argument", "Remove " + indexes[i], function () { queue.Remove(indexes[i]); });
  }
  Raises(6, "Overflow", "Item 1e300", function () { queue.Item(1e300); });
  Raises(6, "Overflow", "Item NaN", function () { queue.Item(NaN); });
  Raises(94, "Invalid use of Null", "Item null", function () { queue.Item(null); });
  Raises(13, "Type mismatch", "Item of an object", function () { queue.Item({}); });
  Raises(2400, "A general error has occurred.", "Add under a key that is there", function () {
    queue.Add("TWO", "FIRST");
  });
  Equal("ONE", CommandsIn(queue), "the queue is as it was");
}
