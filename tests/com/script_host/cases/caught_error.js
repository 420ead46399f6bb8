try {
  WScript.CreateObject("No.SuchClass");
} catch (e) {
  WScript.Echo(e.number & 0xFFFF, e.description);
}
