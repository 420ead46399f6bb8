Set dictionary = CreateObject("Scripting.Dictionary")
On Error Resume Next
dictionary.Add "a", 1
dictionary.Add "a", 2
WScript.Echo Err.Number, Len(Err.Source) > 0, Len(Err.Description) > 0
Err.Clear
WScript.Echo Err.Number, dictionary.Item("a")
