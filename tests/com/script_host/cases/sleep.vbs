began = Timer
WScript.Sleep 300
passed = Timer - began
WScript.Echo passed > 0.25, passed < 10
