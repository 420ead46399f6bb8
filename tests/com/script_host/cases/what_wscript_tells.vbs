WScript.Echo WScript.Name, WScript.Version, WScript.BuildVersion, WScript.Interactive, WScript.Timeout
WScript.Echo WScript.ScriptName, Right(WScript.ScriptFullName, 28)
WScript.Echo WScript, WSH.ScriptName, WScript.Application.ScriptName
WScript.Echo WScript.FullName = WScript.Path & "\script_host.exe"
