path = CreateObject("WScript.Shell").ExpandEnvironmentStrings("%QUILLET_SCENARIO%")
WScript.Echo Mid(path, 2, 2), InStr(path, "\cases\scenario.toml") > 0, WScript.Arguments.Count
