WScript.Echo "a script that does not parse runs not even its first line"

If 1 Then Then
