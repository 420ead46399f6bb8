try {
  WScript.Quit(7);
} catch (e) {
  WScript.Echo("not reached");
} finally {
  WScript.Echo("not reached");
}
