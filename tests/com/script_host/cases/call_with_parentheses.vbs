WScript.Echo "a script that does not parse runs not even its first line"
For index = 1 To 3
  If index > 1 Then
    Show("one", index)
  End If
Next
Sub Show(text, number)
End Sub
