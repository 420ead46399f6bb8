// A caught error hides no failure.
var expect = new ActiveXObject("QuilletSimulator.Expect");
try {
  expect.Equal("office", "PARXX0100", "NCEYY2100");
  expect.Equal("array", ["A", 1], ["A", 1]);
  expect.InOrder(["JI", "AN"]);
  expect.Holds("true", 1 < 2);
  throw "something else";
} catch (error) {
  WScript.Echo(expect.Failed + " " + new VBArray(expect.Failures).getItem(0));
}
