' Keys, mode and alarm lock.
Option Explicit

Function Desk(terminal)
  Desk = "[[session]]" & vbLf & "name = 'A'" & vbLf & "[terminal]" & vbLf & terminal
End Function

Sub TestSendKeyPressesTheKey
  Dim control, quillet, key
  Set control = Simulator(Desk("refuses = [257]"))
  Set quillet = CreateObject("Wendrill23.CQuillet")
  quillet.SendKey 320
  key = 257
  quillet.SendKey key
  Equal "key 320 | key 257", Journal(), "a refused key is not reported"
  Equal 257, key, "the variable afterwards"
End Sub

Sub TestAFailingKeyIs2515
  Dim control, quillet
  Set control = Simulator(Desk(""))
  Set quillet = CreateObject("Wendrill23.CQuillet")
  On Error Resume Next
  control.FailNext "SendKey", &H80004005, 1
  quillet.SendKey 320
  RaisedOwn 2515, "SendKey"
End Sub

Sub TestChangeSMODSendsModeAndForm
  Dim control, quillet
  Set control = Simulator(Desk(""))
  Set quillet = CreateObject("Wendrill23.CQuillet")
  quillet.ChangeSMOD 5
  Equal "key 353 | key 353 | send 0500 (unanswered)", Journal(), "mode 5, no form"
  quillet.ChangeSMOD 5, 12
  Equal "key 353 | key 353 | send 0512 (unanswered)", Journal(), "mode 5, form 12"
  quillet.ChangeSMOD 123
  Equal "key 353 | key 353 | send 12300 (unanswered)", Journal(), "mode 123"
End Sub

Sub TestChangeSMODFailsWith2520
  Dim control, quillet
  Set control = Simulator(Desk(""))
  Set quillet = CreateObject("Wendrill23.CQuillet")
  On Error Resume Next
  control.FailNext "SendKey", &H80004005, 2
  quillet.ChangeSMOD 5
  RaisedOwn 2520, "ChangeSMOD"
End Sub

Sub TestLockingTwiceSendsNothingTheSecondTime
  Dim control, quillet
  Set control = Simulator(Desk(""))
  Set quillet = CreateObject("Wendrill23.CQuillet")
  Equal 0, quillet.LockUnLockAlarm(True), "the first time"
  Equal "alarm lock", Journal(), "the first time"
  Equal 0, quillet.LockUnLockAlarm(True), "the second time"
  Equal "", Journal(), "the second time"
  quillet.UnLockAlarm
  Equal "alarm unlock", Journal(), "unlocking"
End Sub

Sub TestWhatAScriptTakesForABooleanIsOne
  Dim control, quillet, value
  Set control = Simulator(Desk(""))
  Set quillet = CreateObject("Wendrill23.CQuillet")
  For Each value In Array(True, -1, 1, 5, 0.4, 70000, -100000.5, "1", "True", "true", "#TRUE#")
    Equal 0, quillet.LockUnLockAlarm(value), "code of " & value
    Equal "alarm lock", Journal(), "a true value: " & value
    quillet.UnLockAlarm
    Journal
  Next
  For Each value In Array(False, 0, 0.0, "0", "False", "#FALSE#", Empty)
    quillet.LockAlarm
    Journal
    Equal 0, quillet.LockUnLockAlarm(value), "code of " & value
    Equal "alarm unlock", Journal(), "a false value: " & value
  Next
End Sub

Sub TestTheVersionDecidesBetweenComponentAndEntries
  Dim version, control, quillet, expected
  For Each version In Array("2.3P300", "3.0P1", "2.3P299", "2.9P999", "3.0")
    Set quillet = Nothing
    Set control = Simulator(Desk("version = '" & version & "'"))
    Set quillet = CreateObject("Wendrill23.CQuillet")
    quillet.LockAlarm
    expected = "key 322 | send LOCK (unanswered)"
    If version = "2.3P300" Or version = "3.0P1" Then expected = "alarm lock"
    Equal expected, Journal(), version
    quillet.UnLockAlarm
    expected = "key 322 | send UNLOCK (unanswered)"
    If version = "2.3P300" Or version = "3.0P1" Then expected = "alarm unlock"
    Equal expected, Journal(), version & ", unlocking"
  Next
End Sub

Sub TestAComponentWithoutTheMethodFallsBackToEntries
  Dim control, quillet
  Set control = Simulator("[[session]]" & vbLf & "name = 'A'" & vbLf & "[alarm]" & vbLf & "method = false")
  Set quillet = CreateObject("Wendrill23.CQuillet")
  quillet.LockAlarm
  Check InStr(Journal(), "send LOCK") > 0, "LOCK was sent"
End Sub

Sub TestACodeOf5LeavesTheLockAndRaisesNothing
  Dim control, quillet
  Set control = Simulator("[[session]]" & vbLf & "name = 'A'" & vbLf & "[alarm]" & vbLf & "code = 5")
  Set quillet = CreateObject("Wendrill23.CQuillet")
  Equal 5, quillet.LockUnLockAlarm(True), "code"
  Equal 5, quillet.LockUnLockAlarm(True), "the lock is not held: the component is asked again"
  quillet.LockAlarm
  Equal "alarm lock | alarm lock | alarm lock", Journal(), "what reached the terminal"
End Sub

Sub TestAFallbackThatCannotClearIs2558And2559
  Dim control, quillet
  Set control = Simulator(Desk("version = '2.0P1'"))
  Set quillet = CreateObject("Wendrill23.CQuillet")
  quillet.LockAlarm
  control.LoadText Desk("version = '2.0P1'" & vbLf & "refuses = [322]")
  Set quillet = Nothing
  Set quillet = CreateObject("Wendrill23.CQuillet")
  Equal -7, quillet.LockUnLockAlarm(True), "code"
  On Error Resume Next
  quillet.LockAlarm
  RaisedOwn 2558, "LockAlarm"
End Sub

Sub TestAnAlarmThatCannotBeCreatedCountsAsLocked
  Dim control, quillet
  Set control = Simulator("[[session]]" & vbLf & "name = 'A'" & vbLf & "[alarm]" & vbLf & "present = false")
  Set quillet = CreateObject("Wendrill23.CQuillet")
  Equal 0, quillet.LockUnLockAlarm(True), "code"
  Equal "", Journal(), "what reached the terminal"
End Sub

' --- An alarm that cannot be unlocked

' An older terminal's keys around an alarm entry: the screen is cleared for the entry, for LOCK and for UNLOCK.
Sub TestAnAlarmLockThatCannotBeGivenBackIs2559
  Dim control, quillet, text
  Set control = Simulator("[terminal]" & vbLf & "version = '2.3P299'" & vbLf & SessionWith( _
    Answer("ER", 0, Array("OK")) & Answer("LOCK", 0, Array("LOCKED")) & Answer("UNLOCK", 0, Array("UNLOCKED"))))
  Set quillet = CreateObject("Wendrill23.CQuillet")
  On Error Resume Next
  control.FailNext "SendKey", &H80004005, 3
  text = quillet.SendCommand("ER")
  RaisedOwn 2505, "the second attempt works"
  Equal "key 322 | key 322 | send LOCK | send ER | key 322 | key 322 | send UNLOCK", Journal(), "the second attempt works"
  control.FailNext "SendKey", &H80004005, 3
  control.FailNext "SendKey", &H80004005, 4
  text = quillet.SendCommand("ER")
  RaisedOwn 2559, "neither attempt works"
  quillet.UnLockAlarm
  Equal CLng(0), Err.Number, "a later unlock"
  control.FailNext "Buffer", &H80004005, 1
  control.FailNext "SendKey", &H80004005, 3
  text = quillet.SendCommand("ER")
  RaisedOwn 2559, "the entry and the unlock"
  quillet.UnLockAlarm
  control.FailNext "SendKey", &H80004005, 3
  control.FailNext "SendKey", &H80004005, 4
  text = quillet.SendCommandGetAll("ER")
  RaisedOwn 2525, "inside SendCommandGetAll"
End Sub
