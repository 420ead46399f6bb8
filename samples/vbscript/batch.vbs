' A batch: a remark that is too long for one element, and more entries behind it, sent in as few host entries as they
' need.
'
'   script/run samples/vbscript/batch.vbs         beside the simulator
'   cscript batch.vbs                             on a desktop with Quillet, the library registered
'
' Queued entries go to the host joined with ";", at most 239 characters at a time. The report numbers these host entries
' from 1 and says which of them the host refused.
Option Explicit

Dim remark, batch, elements, element, report, responses, index
remark = "RM THE CUSTOMER COMES FROM LYON BY THE LATE TRAIN AND ASKS FOR A ROOM ON A QUIET SIDE OF THE HOUSE, " & _
  "THE KEY TO BE LEFT AT THE DESK UNTIL ONE IN THE MORNING/P1"
Set batch = CreateObject("Wendrill23.CBatch")

' The remark's elements come back in a plain variable; each carries the association /P1.
batch.RMBatch remark, elements
For Each element In elements
  WScript.Echo "> " & element
  batch.Commands.Add element
Next
batch.Commands.Add "ER"
batch.Commands.Add "RUBBISH"                    ' "RU" begins a host entry; the host does not understand this one

Set report = CreateObject("Scripting.Dictionary")
batch.SubmitWithResponse report

responses = report("strKeyResponseArray")
For index = 0 To UBound(responses)
  WScript.Echo index + 1 & ": " & RTrim(Left(responses(index), 80))
Next
If report("blnKeyResponseOK") Then
  WScript.Echo "The host accepted everything."
Else
  WScript.Echo "Refused: host entry " & report("strKeyErr")
End If
