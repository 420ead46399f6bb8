WScript.Echo "before"
x = 1
  Err.Raise 2505, "Wendrill23", "An error has occurred."
WScript.Echo "not reached"
