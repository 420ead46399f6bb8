WScript.Echo("never");
function one() {
  return 1;
