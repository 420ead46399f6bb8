Set expect = CreateObject("QuilletSimulator.Expect")
Sub Tell
  WScript.Echo Err.Number & ", " & Err.Source & ", " & Err.Description
  Err.Clear
End Sub
On Error Resume Next
expect.Sent "JI", -1
Tell
expect.InOrder "JI"
Tell
expect.InOrder Array()
Tell
expect.Screen "JI", -1
Tell
