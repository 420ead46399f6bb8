CreateObject("QuilletSimulator.Expect").Holds "never", False
WScript.Quit 7
