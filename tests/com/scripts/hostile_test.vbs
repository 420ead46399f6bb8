' Scripts that hand over what no member expects: each meets a clear error or the right answer.
Option Explicit

' A desktop that answers every entry and has one PNR with one name.
Function Desk()
  Desk = "[[session]]" & vbLf & "name = 'A'" & vbLf & "[unknown]" & vbLf & "screen = '*T*'" & vbLf & _
    "[[pnr]]" & vbLf & "on_display = true" & vbLf & "display = '''" & vbLf & "--- RLR ---" & vbLf & _
    " 10 SSR VGML AF HK1/S5/P1" & vbLf & "'''" & vbLf & _
    "[[pnr.Names]]" & vbLf & "Text = '1.SMITH/JOHN MR'" & vbLf & "ElementNo = '1'" & vbLf
End Function

Function LoadedPnr(quillet)
  quillet.RetrieveCurrent
  Set LoadedPnr = CreateObject("Wendrill23.CPNR")
End Function

Function BagAt(index)
  Set BagAt = CreateObject("Pellorin.ParamBag")
  If IsObject(index) Then
    Set BagAt("intKeyIndex") = index
  Else
    BagAt("intKeyIndex") = index
  End If
End Function

' --- Texts

Sub TestTextParametersConvertWhatConvertsAndRefuseTheRest
  Dim control, quillet, value
  Set control = Simulator(Desk())
  Set quillet = CreateObject("Wendrill23.CQuillet")
  On Error Resume Next
  For Each value In Array(5, CLng(70000), 2.5, True, "JD")
    quillet.SendCommand value
    RaisedNothing "an entry of type " & VarType(value)
    Equal CStr(value), quillet.LastHostCommand, "the entry that was sent"
  Next
  Equal "", quillet.SendCommand(Empty), "an empty entry"
  For Each value In Array(Null, Array("JD"), Array())
    quillet.SendCommand value
    Equal CLng(13), Err.Number, "an entry of type " & VarType(value)
    Err.Clear
    quillet.Command = value
    Equal CLng(13), Err.Number, "a command of type " & VarType(value)
    Err.Clear
    quillet.ConnectSession value
    Equal CLng(13), Err.Number, "a session of type " & VarType(value)
    Err.Clear
  Next
  quillet.SendCommand Nothing
  Check Err.Number <> 0, "Nothing is no entry"
  Err.Clear
  quillet.SendCommand quillet
  Check Err.Number <> 0, "an object without a value is no entry"
  Err.Clear
  Equal "*T*", Trim(quillet.SendCommand("JD")), "and the next entry works"
End Sub

Sub TestTextsOfAMillionCharactersPassThrough
  Dim control, quillet, batch, queue, text, elements
  Set control = Simulator(Desk())
  Set quillet = CreateObject("Wendrill23.CQuillet")
  Set batch = CreateObject("Wendrill23.CBatch")
  Set queue = CreateObject("Wendrill23.CQueue")
  text = String(1000000, "X")
  Equal "*T*", Trim(quillet.SendCommand(text)), "the answer"
  Check quillet.LastHostCommand = text, "the entry that was sent"
  quillet.Command = text
  Check quillet.Command = text, "the command"
  Check Not quillet.RetrieveRecLoc(text), "no such PNR"
  queue.Add text, text
  Check queue.Item(text).Command = text, "the queued entry"
  batch.RMBatch text, elements
  Equal CLng(8130), UBound(elements), "remarks of 123 characters, counted from 0"
  Equal 125, CInt(Len(elements(0))), "a whole remark"
End Sub

Sub TestTextsWithNulPassThrough
  Dim control, quillet, text
  Set control = Simulator(Desk())
  Set quillet = CreateObject("Wendrill23.CQuillet")
  For Each text In Array("A" & Chr(0) & "B", Chr(0), Chr(0) & Chr(0) & "A")
    quillet.SendCommand text
    Equal CInt(Len(text)), CInt(Len(quillet.LastHostCommand)), "characters of the entry"
    Check quillet.LastHostCommand = text, "the entry that was sent"
  Next
End Sub

' --- Numbers

Sub TestNumberParametersRefuseWhatDoesNotFit
  Dim control, quillet, value
  Set control = Simulator(Desk())
  Set quillet = CreateObject("Wendrill23.CQuillet")
  quillet.SendCommand "JD"
  On Error Resume Next
  For Each value In Array(CLng(32768), CLng(-32769), 1E+300, "99999")
    quillet.GetLineFromLastBuffer value
    Equal CLng(6), Err.Number, "line " & value
    Err.Clear
    quillet.ChangeSMOD value
    Equal CLng(6), Err.Number, "mode " & value
    Err.Clear
  Next
  For Each value In Array("X", "", Null, Array(1))
    quillet.GetLineFromLastBuffer value
    Equal CLng(13), Err.Number, "line of type " & VarType(value)
    Err.Clear
    quillet.SendKey value
    Equal CLng(13), Err.Number, "key of type " & VarType(value)
    Err.Clear
    quillet.LockUnLockAlarm value
    Equal CLng(13), Err.Number, "truth of type " & VarType(value)
    Err.Clear
  Next
  For Each value In Array(0, -1, 25, 32767, -32768)
    quillet.GetLineFromLastBuffer value
    Equal CLng(9), Err.Number, "line " & value
    Err.Clear
  Next
End Sub

Sub TestIndexesOutsideAllBoundsMeetTheNumberThatFits
  Dim control, quillet, pnr, value
  Set control = Simulator(Desk())
  Set quillet = CreateObject("Wendrill23.CQuillet")
  Set pnr = LoadedPnr(quillet)
  On Error Resume Next
  For Each value In Array(1, 32767, CLng(32768), CLng(2147483647), 1E+300, "1", "1E300")
    pnr.NameElement BagAt(value)
    RaisedOwn 2223, "index " & value
  Next
  For Each value In Array(-1, -32768, "-1", True)
    pnr.NameElement BagAt(value)
    RaisedNothing "index " & value
  Next
  For Each value In Array(CLng(-32769), CLng(-2147483647), -1E+300)
    pnr.NameElement BagAt(value)
    Equal CLng(6), Err.Number, "index " & value
    Err.Clear
  Next
  For Each value In Array("", "X", Array(0))
    pnr.NameElement BagAt(value)
    Equal CLng(13), Err.Number, "index of type " & VarType(value)
    Err.Clear
  Next
  pnr.NameElement BagAt(Null)
  Equal CLng(94), Err.Number, "index Null"
  Err.Clear
  pnr.NameElement BagAt(Nothing)
  Equal CLng(91), Err.Number, "index Nothing"
  Err.Clear
  pnr.NameElement BagAt(quillet)
  Equal CLng(13), Err.Number, "an object as index"
  Err.Clear
End Sub

Sub TestPositionsAndKeysOutsideAQueueMeetTheNumberThatFits
  Dim control, queue, value
  Set control = Simulator(Desk())
  Set queue = CreateObject("Wendrill23.CQueue")
  queue.Add "JD"
  On Error Resume Next
  For Each value In Array(0, 2, -1, 32767, CLng(2147483647), "1", "", String(1000000, "X"))
    queue.Item(value).Command = "X"
    Equal CLng(5), Err.Number, "item"
    Err.Clear
    queue.Remove value
    Equal CLng(5), Err.Number, "removal"
    Err.Clear
  Next
  queue.Remove 1E+300
  Equal CLng(6), Err.Number, "a position that is too large"
  Err.Clear
  queue.Remove Null
  Equal CLng(94), Err.Number, "Null"
  Err.Clear
  queue.Remove Array(1)
  Equal CLng(13), Err.Number, "an array"
  Err.Clear
  Equal CLng(1), queue.Count, "nothing was removed"
End Sub

' --- Counts of arguments

Sub TestWrongCountsOfArgumentsAre450InEveryClass
  Dim control, quillet, pnr, queue, batch, utils
  Set control = Simulator(Desk())
  Set quillet = CreateObject("Wendrill23.CQuillet")
  Set pnr = LoadedPnr(quillet)
  Set queue = CreateObject("Wendrill23.CQueue")
  Set batch = CreateObject("Wendrill23.CBatch")
  Set utils = CreateObject("Wendrill23.CEncodeUtils")
  On Error Resume Next
  quillet.SendCommand
  Refused "SendCommand without an entry"
  quillet.SendCommand "JD", "JD"
  Refused "SendCommand with two"
  quillet.StopLoop 1
  Refused "StopLoop with one"
  quillet.SendCommandLines "JD", "1"
  Refused "SendCommandLines with two"
  pnr.NameElement
  Refused "NameElement without a bag"
  pnr.Elements 1, 2
  Refused "Elements with two"
  queue.Add
  Refused "Add without an entry"
  queue.Add "JD", "A", "B"
  Refused "Add with three"
  batch.Submit 1
  Refused "Submit with one"
  batch.RMBatch "TEXT"
  Refused "RMBatch with one"
  Equal CLng(0), queue.Count, "nothing was added"
End Sub

Sub Refused(what)
  Equal CLng(450), Err.Number, what
  Err.Clear
End Sub

' --- Bags that are none

' One after another: Wine's For Each keeps the objects of an array.
Sub TestObjectsThatAreNoBagsMeetTheMembersNumber
  Dim control, quillet, pnr, batch
  Set control = Simulator(Desk())
  Set quillet = CreateObject("Wendrill23.CQuillet")
  Set pnr = LoadedPnr(quillet)
  Set batch = CreateObject("Wendrill23.CBatch")
  RefusedAsBag quillet, pnr, batch, quillet
  RefusedAsBag quillet, pnr, batch, pnr
  RefusedAsBag quillet, pnr, batch, batch
  RefusedAsBag quillet, pnr, batch, CreateObject("Wendrill23.IGet")
End Sub

Sub RefusedAsBag(quillet, pnr, batch, value)
  On Error Resume Next
  pnr.NameElement value
  Equal CLng(438), Err.Number, "NameElement"
  Equal "Wendrill23", Err.Source, "source"
  Err.Clear
  pnr.Elements value
  RaisedOwn 2252, "Elements"
  quillet.SendCommandFI "JD", value
  RaisedOwn 2506, "SendCommandFI"
  quillet.SendCommandTicsPas value
  RaisedOwn 2540, "SendCommandTicsPas"
  batch.SubmitWithResponse value
  RaisedOwn 2315, "SubmitWithResponse"
End Sub

Sub TestValuesThatAreNoObjectsAreNoBags
  Dim control, quillet, pnr, value
  Set control = Simulator(Desk())
  Set quillet = CreateObject("Wendrill23.CQuillet")
  Set pnr = LoadedPnr(quillet)
  On Error Resume Next
  pnr.NameElement Nothing
  Equal CLng(91), Err.Number, "NameElement of Nothing"
  Err.Clear
  For Each value In Array("bag", 5, Null, Array("bag"))
    pnr.NameElement value
    Equal CLng(13), Err.Number, "NameElement of type " & VarType(value)
    Err.Clear
  Next
End Sub

' --- Lives

Sub TestObjectsMayGoInAnyOrderAndComeAgain
  Dim control, quillet, other, pnr, queue, batch, names, round
  Set control = Simulator(Desk())
  For round = 1 To 3
    Set quillet = CreateObject("Wendrill23.CQuillet")
    Set other = CreateObject("Wendrill23.CQuillet")
    Set pnr = LoadedPnr(quillet)
    Set queue = CreateObject("Wendrill23.CQueue")
    Set batch = CreateObject("Wendrill23.CBatch")
    Set batch.Commands = queue
    queue.Add "JD"
    Set quillet = Nothing
    Equal 1, pnr.NameElementsCount, "the PNR lives with the other objects"
    Set queue = Nothing
    Set other = Nothing
    Equal CLng(1), batch.Commands.Count, "the queue lives with the batch"
    Equal 1, pnr.NameElementsCount, "and its entry keeps the PNR"
    Set batch = Nothing
    On Error Resume Next
    names = pnr.NameElementsCount
    Equal CLng(91), Err.Number, "the last entry took the PNR with it"
    Err.Clear
    On Error Goto 0
    Set pnr = Nothing
    Equal CLng(0), control.LiveObjects, "objects that are alive"
  Next
End Sub
