' One entry and its response.
Option Explicit

Function Desk(replies)
  Desk = "[[session]]" & vbLf & "name = 'A'" & vbLf & "[[session]]" & vbLf & "name = 'B'" & vbLf & replies
End Function

Function Reply(entry, keys)
  Reply = "[[reply]]" & vbLf & "entry = '" & entry & "'" & vbLf & keys & vbLf
End Function

Sub TestCommandIsPlainText
  Dim quillet
  Set quillet = CreateObject("Wendrill23.CQuillet")
  Equal "", quillet.Command, "at first"
  Simulator ""
  quillet.Command = "AN15JUNPARLON"
  Equal "AN15JUNPARLON", quillet.Command, "afterwards"
  quillet.Command = 5
  Equal "5", quillet.Command, "a number becomes text"
  Equal "", Journal(), "what reached the terminal"
End Sub

Sub TestSendCommandClearsSendsAndReturnsTheBuffer
  Dim control, quillet
  Set control = Simulator(Desk(Reply("HE", "screen = 'HELP'")))
  Set quillet = CreateObject("Wendrill23.CQuillet")
  Equal Row("HELP"), quillet.SendCommand("HE"), "response"
  Equal "key 322 | send HE", Journal(), "what reached the terminal"
End Sub

Sub TestEmptyEntrySendsNothing
  Dim quillet
  Set quillet = CreateObject("Wendrill23.CQuillet")
  Simulator ""
  Equal "", quillet.SendCommand(""), "SendCommand"
  Equal "", quillet.SendCommandNoClear(""), "SendCommandNoClear"
  Equal "", quillet.SendCommandNoTransmit(""), "SendCommandNoTransmit"
  Equal "", Journal(), "what reached the terminal"
End Sub

Sub TestNoTransmitReturnsEmptyAlthoughTheEntryReachedTheScreen
  Dim quillet
  Set quillet = CreateObject("Wendrill23.CQuillet")
  Simulator ""
  Equal "", quillet.SendCommandNoTransmit("HE"), "result"
  Equal "type HE", Journal(), "what reached the terminal"
End Sub

Sub TestNoClearWaitsForALateBuffer
  Dim control, quillet
  Set control = Simulator(Desk(Reply("HE", "screen = 'HELP'" & vbLf & "late = 3")))
  Set quillet = CreateObject("Wendrill23.CQuillet")
  Equal Row("HELP"), quillet.SendCommandNoClear("HE"), "response"
  Equal "send HE", Journal(), "sent once, without the clear key"
End Sub

Sub TestSendCommandTakesTheBufferAsItIs
  Dim control, quillet
  Set control = Simulator(Desk(Reply("HE", "screen = 'HELP'" & vbLf & "late = 3")))
  Set quillet = CreateObject("Wendrill23.CQuillet")
  Equal "", quillet.SendCommand("HE"), "response"
End Sub

Sub TestARefusedClearKeyIs2505
  Dim control, quillet, text
  Set control = Simulator(Desk("[terminal]" & vbLf & "refuses = [322]"))
  Set quillet = CreateObject("Wendrill23.CQuillet")
  On Error Resume Next
  text = quillet.SendCommand("HE")
  RaisedOwn 2505, "SendCommand"
  Equal "key 322", Journal(), "nothing was sent"
End Sub

Sub TestAFailingSendRaisesTheMembersOwnNumber
  Dim control, quillet, text
  Set control = Simulator("")
  Set quillet = CreateObject("Wendrill23.CQuillet")
  On Error Resume Next
  control.FailNext "Send", &H80004005, 1
  text = quillet.SendCommand("HE")
  RaisedOwn 2505, "SendCommand"
  control.FailNext "Send", &H80004005, 1
  text = quillet.SendCommandNoClear("HE")
  RaisedOwn 2530, "SendCommandNoClear"
  control.FailNext "Send", &H80004005, 1
  text = quillet.SendCommandNoTransmit("HE")
  RaisedOwn 2505, "SendCommandNoTransmit"
  text = quillet.SendCommand("HE")
  RaisedNothing "the next call"
End Sub

Sub TestLastPropertiesReadTheSessionsLastResponse
  Dim control, quillet
  Set control = Simulator(Desk(Reply("HE", "screen = 'HELP'" & vbLf & "type = 23" & vbLf & "text = 'help text'" & _
    vbLf & "columns = 64" & vbLf & "lines = 12")))
  Set quillet = CreateObject("Wendrill23.CQuillet")
  quillet.SendCommand "HE"
  Equal Left(Row("HELP"), 64), quillet.LastBuffer, "LastBuffer"
  Equal 23, quillet.LastResponseType, "LastResponseType"
  Equal 64, quillet.LastNumberOfColumns, "LastNumberOfColumns"
  Equal 12, quillet.LastNumberOfLines, "LastNumberOfLines"
  Equal "HE", quillet.LastHostCommand, "LastHostCommand"
  Equal "help text", quillet.LastText, "LastText"
  Equal Left(Row("HELP"), 64), quillet.GetLineFromLastBuffer(1), "GetLineFromLastBuffer"
End Sub

Sub TestAResponseTypeBeyond16BitsOverflows
  Dim control, quillet, kind
  Set control = Simulator(Desk(Reply("HE", "screen = 'HELP'" & vbLf & "type = 40000")))
  Set quillet = CreateObject("Wendrill23.CQuillet")
  quillet.SendCommand "HE"
  On Error Resume Next
  kind = quillet.LastResponseType
  Raised 6, "Wendrill23", "Overflow", "LastResponseType"
End Sub

Sub TestAToolkitFailureOfALastPropertyArrivesUnchanged
  Dim control, quillet, text
  Set control = Simulator("")
  Set quillet = CreateObject("Wendrill23.CQuillet")
  quillet.SendCommand "HE"
  On Error Resume Next
  control.FailNext "LastResponse", &H80004005, 1
  text = quillet.LastBuffer
  Equal CLng(&H80004005), Err.Number, "number"
  Equal "QuilletSimulator", Err.Source, "source"
  Check InStr(Err.Description, "LastResponse") > 0, "description names the operation: " & Err.Description
End Sub

Sub TestAlarmEntriesTakeTheLockOthersDoNot
  Dim control, quillet, entry
  Set control = Simulator(Desk(""))
  Set quillet = CreateObject("Wendrill23.CQuillet")
  For Each entry In Array("BT", "EF", "ET", "ER", "QE5", "TTP/T-AF", "FQD", "FXB", "FXL", "FXC", "FQP", "FXA")
    quillet.SendCommand entry
    Equal "key 322 | alarm lock | send " & entry & " (unanswered) | alarm unlock", Journal(), entry
  Next
  For Each entry In Array("ERK", "er", "qe5", "TT", "FX")
    quillet.SendCommand entry
    Equal "key 322 | send " & entry & " (unanswered)", Journal(), entry
  Next
End Sub

Sub TestNotReadyIsToleratedBeforeAnAlarmEntry
  Dim control, quillet
  Set control = Simulator(Desk("[terminal]" & vbLf & "ready = [0, 1]" & vbLf & Reply("ET", "screen = 'OK'")))
  Set quillet = CreateObject("Wendrill23.CQuillet")
  Equal -8, quillet.LockUnLockAlarm(True), "code"
  Equal Row("OK"), quillet.SendCommand("ET"), "response"
End Sub

Sub TestConnectSessionSelectsByName
  Dim quillet
  Set quillet = CreateObject("Wendrill23.CQuillet")
  Simulator ""
  quillet.ConnectSession "B"
  Equal Row("END OF TRANSACTION COMPLETE - ABC123"), quillet.SendCommand("ET"), "response"
End Sub

Sub TestAnUnknownSessionNameIs2535AndLeavesNoSession
  Dim quillet, other, text
  Set quillet = CreateObject("Wendrill23.CQuillet")
  Set other = CreateObject("Wendrill23.CQuillet")
  On Error Resume Next
  quillet.ConnectSession "NOBODY"
  RaisedOwn 2535, "unknown name"
  text = other.SendCommand("HE")
  RaisedOwn 2505, "no shared session for the other object"
  quillet.ConnectSession "A"
  RaisedNothing "connecting anew"
  text = other.SendCommand("HE")
  RaisedNothing "the session is shared again"
  other.ConnectSession "A"
  RaisedOwn 2535, "an object that has no session list"
  text = quillet.SendCommand("HE")
  RaisedOwn 2505, "and that left no session either"
End Sub

Sub TestStopLoopTakesTheSessionFromEveryObject
  Dim quillet, other, text
  Set quillet = CreateObject("Wendrill23.CQuillet")
  Set other = CreateObject("Wendrill23.CQuillet")
  quillet.StopLoop
  On Error Resume Next
  text = other.SendCommand("HE")
  RaisedOwn 2505, "the other object"
  text = other.LastBuffer
  Raised 91, "Wendrill23", "Object variable or With block variable not set", "LastBuffer without a session"
  quillet.ConnectSession "A"
  text = other.SendCommand("ET")
  RaisedNothing "after connecting again"
End Sub

Sub TestTheEventHandlerCanBeCalled
  Dim quillet
  Set quillet = CreateObject("Wendrill23.CQuillet")
  quillet.mTmpSession_ReceivedResponse Nothing
  Check True, "it raised nothing"
End Sub

Sub TestAPlainVariableServesAsArgument
  Dim quillet, entry
  Set quillet = CreateObject("Wendrill23.CQuillet")
  entry = "ET"
  Equal Row("END OF TRANSACTION COMPLETE - ABC123"), quillet.SendCommand(entry), "response"
  Equal "ET", entry, "the variable afterwards"
End Sub
