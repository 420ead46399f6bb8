Sub Read
  Dim quillet
  Set quillet = CreateObject("Wendrill23.CQuillet")
  If quillet.RetreiveRecLoc("ABC123") Then WScript.Echo "found"
End Sub
Read
