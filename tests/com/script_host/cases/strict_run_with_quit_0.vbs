CreateObject("Wendrill23.CQuillet").SendCommandNoClear "AN15JUNPARLOM"
WScript.Quit 0
