Class Held
  Private Sub Class_Terminate
    WScript.Echo "released"
  End Sub
End Class

Set holder = New Held
Sub Leave
  WScript.Quit 4
End Sub
Leave
