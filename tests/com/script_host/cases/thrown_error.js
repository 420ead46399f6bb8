function Retrieve(locator) {
  throw new Error("no PNR " + locator);
}
WScript.Echo("before");
Retrieve("ABC123");
