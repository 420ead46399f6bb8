Set quillet = CreateObject("Wendrill23.CQuillet")
quillet.SendCommandNoClear "JI"
WScript.Echo "before"
Do
Loop
