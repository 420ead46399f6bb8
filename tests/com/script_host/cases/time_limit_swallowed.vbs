On Error Resume Next
Do
  WScript.Sleep 100000
Loop
