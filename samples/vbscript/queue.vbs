' A queue: host entries that wait, under a position and, where one is given, under a key.
'
'   script/run samples/vbscript/queue.vbs         beside the simulator
'   cscript queue.vbs                             on a desktop with Quillet, the library registered
'
' The queue sends nothing by itself. Each of its entries is a CQuillet that holds the entry as its Command and can send
' it.
Option Explicit

Dim queue, entry
Set queue = CreateObject("Wendrill23.CQueue")
queue.Add "AN15JUNPARLON", "flights"
queue.Add "HE"
queue.Add "IG", "ignore"

WScript.Echo "The queue holds " & queue.Count & " entries."
WScript.Echo "At position 2: " & queue(2).Command
WScript.Echo "Under the key Ignore, whatever its case: " & queue("Ignore").Command

queue.Remove "flights"                          ' later positions move up
WScript.Echo "Without the flights, at position 1: " & queue(1).Command
AddOnce "IG", "ignore"

For Each entry In queue
  WScript.Echo "> " & entry.Command
  WScript.Echo FirstRow(entry.SendCommand(entry.Command))
Next

queue.RemoveAll
WScript.Echo "At the end: " & queue.Count & " entries"

' A key that is there already is refused with error 2400.
Sub AddOnce(command, key)
  On Error Resume Next
  queue.Add command, key
  If Err.Number = 2400 Then WScript.Echo "There is an entry under the key " & key & " already."
End Sub

Function FirstRow(response)
  FirstRow = RTrim(Left(response, 80))
End Function
