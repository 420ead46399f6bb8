Function Filled(key)
  Set Filled = CreateObject("Scripting.Dictionary")
  Filled.Add key, 1
  If Filled.Count = 1 Then
    Err.Raise 2010, "Filled", "the dictionary is full"
  End If
End Function

WScript.Echo "before"
Set dictionary = Filled("a")
WScript.Echo "not reached"
