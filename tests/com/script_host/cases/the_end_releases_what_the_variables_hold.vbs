Class Held
  Private Sub Class_Terminate
    WScript.Echo "released"
  End Sub
End Class

Set holder = New Held
WScript.Echo "last line"
