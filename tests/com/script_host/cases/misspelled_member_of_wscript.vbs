WScript.Ehco "hello"
