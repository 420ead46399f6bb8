path = CreateObject("WScript.Shell").ExpandEnvironmentStrings("%QUILLET_SCENARIO%")
WScript.Echo Mid(path, 2, 2), InStr(path, "\cases\sleep.txt") > 0, WScript.Arguments.Count
