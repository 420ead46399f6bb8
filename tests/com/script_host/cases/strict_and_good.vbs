CreateObject("Wendrill23.CQuillet").SendCommandNoClear "JI"
