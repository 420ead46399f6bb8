WScript.Echo "before"
WScript.Echo DateDiff("d", Now, Now)
