WScript.Echo("never");
if (true) {
  WScript.Echo("b";
}
WScript.Echo("c");
