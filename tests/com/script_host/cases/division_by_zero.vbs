Dim none
none = 0
WScript.Echo 1 / none
