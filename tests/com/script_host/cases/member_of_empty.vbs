Dim never
WScript.Echo never.Count
