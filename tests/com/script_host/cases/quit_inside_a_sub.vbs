Sub Leave
  WScript.Echo "leaving"
  WScript.Quit 3
  WScript.Echo "not reached"
End Sub

Leave
WScript.Echo "not reached either"
