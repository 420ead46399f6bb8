' A queue of the host is worked through: each PNR gets a remark and leaves the queue, until the queue is empty.
'
'   script/run --scenario simulator/scenarios/queue_worked_through.toml samples/vbscript/queue_worked_through.vbs
'   cscript //nologo queue_worked_through.vbs       on a desktop with Quillet, the library registered
'
' The scenario answers by its state: which PNR is on the screen decides what QT and QN show. A PNR that does not take the
' remark leaves the queue all the same; the host's answer is shown with it.
Option Explicit

Const kStart = "QS/8C1"
Const kNext = "QN"
Const kRemark = "RMSEEN BY THE QUEUE SCRIPT"
Const kAccepted = "RP/"                                 ' what every display of a PNR begins with

Dim quillet, display, seen, refused
Set quillet = WScript.CreateObject("Wendrill23.CQuillet")
WScript.Echo FirstRow(quillet.SendCommand("QT"))

display = quillet.SendCommand(kStart)
Do While Left(display, Len(kAccepted)) = kAccepted
  WorkOn Locator(display)
  display = quillet.SendCommand(kNext)
Loop

WScript.Echo FirstRow(display)
WScript.Echo seen & " PNRs seen, " & refused & " of them not changed."

' The entry has put the PNR on display; what the toolkit reads there are its elements.
Sub WorkOn(which)
  Dim answer
  seen = seen + 1
  answer = FirstRow(quillet.SendCommand(kRemark))
  If Left(answer, Len(kAccepted)) = kAccepted Then
    WScript.Echo which & " " & FirstName() & ": remark added"
  Else
    refused = refused + 1
    WScript.Echo which & " " & FirstName() & ": " & answer
  End If
End Sub

Function FirstName()
  Dim pnr, bag
  quillet.RetrieveCurrent
  Set pnr = WScript.CreateObject("Wendrill23.CPNR")
  Set bag = CreateObject("Scripting.Dictionary")
  bag("intKeyIndex") = 0
  pnr.NameElement bag
  FirstName = bag("strKeyLastName")
End Function

' The header row ends with the record locator.
Function Locator(text)
  Locator = Right(FirstRow(text), 6)
End Function

Function FirstRow(text)
  FirstRow = RTrim(Left(text, 80))
End Function
