' Entries that wait in a queue, sent as one batch; the host refuses one of them.
'
'   script/run samples/vbscript/batch.vbs         beside the simulator
'   cscript //nologo batch.vbs                    on a desktop with Quillet, the library registered
'
' A batch joins the entries with ";" and sends them in as few host entries as they need, at most 239 characters at a
' time. Its report numbers these host entries from 1 and says which of them the host refused. An error goes to standard
' error, and the status is 1.
Option Explicit

Const kNotQueued = 2400          ' whatever keeps an entry out of the queue
If Not Sent() Then WScript.Quit 1

' Whether the batch was sent, with an entry refused or without. Whatever fails, at any depth, ends here.
Function Sent()
  On Error Resume Next
  SendBatch FilledQueue()
  Sent = (Err.Number = 0)
  If Not Sent Then WScript.StdErr.WriteLine "Error " & Err.Number & ": " & Err.Description
End Function

Function FilledQueue()
  Dim queue
  Set queue = CreateObject("Wendrill23.CQueue")
  queue.Add "RM PAID BY CARD AT THE DESK"
  queue.Add "RM WINDOW SEATS WANTED", "seats"                   ' an entry may have a key
  queue.Add "ER", "end"
  queue.Add "RUBBISH"                   ' "RU" begins a host entry; the host does not understand this one
  AddOnce queue, "ET", "END"
  Set FilledQueue = queue
End Function

' A key that is there already, whatever its case, is an error.
Sub AddOnce(queue, command, key)
  Dim number, source, description
  On Error Resume Next
  queue.Add command, key
  number = Err.Number
  source = Err.Source
  description = Err.Description
  On Error Goto 0
  If number = kNotQueued Then
    WScript.Echo command & " is not queued: there is an entry under its key, " & queue(key).Command
  ElseIf number <> 0 Then
    Err.Raise number, source, description
  End If
End Sub

Sub SendBatch(queue)
  Dim entry, batch, report, responses, index
  For Each entry In queue
    WScript.Echo "> " & entry.Command
  Next

  Set batch = CreateObject("Wendrill23.CBatch")
  Set report = CreateObject("Scripting.Dictionary")             ' a bag, filled by the call
  Set batch.Commands = queue
  batch.SubmitWithResponse report

  responses = report("strKeyResponseArray")
  For index = 0 To UBound(responses)
    WScript.Echo index + 1 & ": " & FirstRow(responses(index))
  Next
  If report("blnKeyResponseOK") Then
    WScript.Echo "The host accepted everything."
  Else
    WScript.Echo "Refused: host entry " & report("strKeyErr")
  End If
End Sub

Function FirstRow(response)
  FirstRow = RTrim(Left(response, 80))
End Function
