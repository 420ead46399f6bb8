WScript.Echo WScript.Arguments.Count & ": " & WScript.Arguments(0) & " " & WScript.Arguments(1)
WScript.Echo CreateObject("Wendrill23.CQuillet").GetSessionList
