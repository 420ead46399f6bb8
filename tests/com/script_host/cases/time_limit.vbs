Set quillet = CreateObject("Wendrill23.CQuillet")
Do
  quillet.SendCommandNoClear "JI"
Loop
