On Error Resume Next
WScript.Quit
WScript.Echo "not reached"
