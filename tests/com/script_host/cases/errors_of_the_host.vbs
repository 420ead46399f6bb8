Sub Tell(what)
  WScript.Echo what & ": " & Err.Number & ", " & Err.Source & ", " & Err.Description
  Err.Clear
End Sub

On Error Resume Next
Set nothingThere = WScript.CreateObject("No.SuchClass")
Tell "unknown class"
word = WScript.Arguments(1)
Tell "argument out of range"
word = WScript.Arguments(-1)
Tell "negative index"
WScript.Sleep -1
Tell "negative sleep"
Err.Clear
WScript.Sleep "soon"
WScript.Echo Err.Number
Err.Clear
WScript.CreateObject
WScript.Echo Err.Number
Err.Clear
WScript.NoSuchMember
WScript.Echo Err.Number
Err.Clear
WScript.Name = "mine"
WScript.Echo Err.Number
