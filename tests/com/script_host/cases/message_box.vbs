On Error Resume Next
MsgBox "nobody is there to click"
WScript.Echo "an error instead of a wait:", Err.Number <> 0
