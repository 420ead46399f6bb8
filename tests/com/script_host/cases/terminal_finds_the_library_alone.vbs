' On a machine without a terminal: the library is found, nothing of the terminal is.
WScript.Echo CreateObject("Wendrill23.CQueue").Count
On Error Resume Next
For Each name In Array("QuilletSimulator.Control", "kzuHostToolKit.HostSessionList", "szuPNR.PNR", _
                       "wzuScriptHelper.AlarmManager", "Pellorin.ParamBag", "Pellorin.TextHelper")
  Err.Clear
  Set component = WScript.CreateObject(name)
  WScript.Echo Err.Description
Next
Err.Clear
Set quillet = WScript.CreateObject("Wendrill23.CQuillet")
WScript.Echo Err.Number
