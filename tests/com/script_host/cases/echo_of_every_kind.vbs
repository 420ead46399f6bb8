missing = Null
WScript.Echo "text", 1, -1.5, True, False, Empty, missing
WScript.Echo
Dim list(1)
On Error Resume Next
WScript.Echo list
WScript.Echo "an array:", Err.Number
WScript.StdOut.WriteBlankLines 2
WScript.StdErr.Write "to stderr"
WScript.StdErr.WriteLine ", all of it"
