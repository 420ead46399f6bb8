WScript.Echo("before");
while (true) {
  WScript.Sleep(100000);
}
