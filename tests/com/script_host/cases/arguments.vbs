Dim word
For Each word In WScript.Arguments
  WScript.StdOut.Write "<" & word & ">"
Next
WScript.StdOut.WriteLine
WScript.Echo WScript.Arguments.Count, WScript.Arguments.Length, WScript.Arguments(0), WScript.Arguments.Item(1)
Set words = WScript.Arguments
WScript.Echo words(2), words.Count
