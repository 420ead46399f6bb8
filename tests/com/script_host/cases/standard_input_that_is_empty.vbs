WScript.Echo WScript.StdIn.AtEndOfStream, WScript.StdIn.AtEndOfLine, WScript.StdIn.Line, WScript.StdIn.Column
WScript.Echo "<" & WScript.StdIn.ReadAll & ">"
On Error Resume Next
line = WScript.StdIn.ReadLine
WScript.Echo Err.Number & ", " & Err.Source & ", " & Err.Description
