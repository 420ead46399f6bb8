' A remark that is too long for one element, cut into elements that the host takes.
'
'   script/run samples/vbscript/long_remark.vbs     beside the simulator
'   cscript long_remark.vbs                         on a desktop with Quillet, the library registered
'
' RMBatch sends nothing: the elements go where any other entry goes, here into the queue of the batch.
Option Explicit

Dim remark, batch, elements, element, report
remark = "RM THE CUSTOMER COMES FROM LYON BY THE LATE TRAIN AND ASKS FOR A ROOM ON A QUIET SIDE OF THE HOUSE, " & _
  "THE KEY TO BE LEFT AT THE DESK UNTIL ONE IN THE MORNING/P1"
Set batch = CreateObject("Wendrill23.CBatch")

' The elements come back in a plain variable; each carries the association /P1.
batch.RMBatch remark, elements
For Each element In elements
  WScript.Echo "> " & element
  batch.Commands.Add element
Next
batch.Commands.Add "ER"

Set report = CreateObject("Scripting.Dictionary")
batch.SubmitWithResponse report
If report("blnKeyResponseOK") Then
  WScript.Echo "The host accepted everything."
Else
  WScript.Echo "Refused: host entry " & report("strKeyErr")
End If
