Set named = WScript.Arguments.Named
Set unnamed = WScript.Arguments.Unnamed
WScript.Echo named.Count, named.Length, unnamed.Count, unnamed.Length, WScript.Arguments.Count
WScript.Echo named("office") & "|" & named.Item("OFFICE") & "|" & WScript.Arguments.Named("office")
WScript.Echo named.Exists("quick"), named.Exists("slow"), IsEmpty(named("quick")), IsEmpty(named("slow"))
WScript.Echo unnamed(0), WScript.Arguments.Unnamed(1)
For Each name In named
  WScript.Echo name & "=" & named(name)
Next
For Each word In unnamed
  WScript.Echo word
Next
On Error Resume Next
word = unnamed(2)
WScript.Echo Err.Number & ", " & Err.Source & ", " & Err.Description
