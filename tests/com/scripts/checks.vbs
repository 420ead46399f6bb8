
' --- Checks. A failed one is reported and the test goes on; its end tells how many held.
'
' The library's objects must be the tests' local variables: at the end nothing of the desktop may live any more.

Dim checksHeld, checksFailed

Sub Check(held, what)
  If held Then
    checksHeld = checksHeld + 1
  Else
    checksFailed = checksFailed + 1
    WScript.Echo "FAILED: " & what
  End If
End Sub

' The value and its type: 27 as a 16-bit number is not 27 as a 32-bit one.
Sub Equal(expected, actual, what)
  Dim held
  held = False
  If VarType(expected) = VarType(actual) Then held = (expected = actual)
  Check held, what & ": expected " & Shown(expected) & ", was " & Shown(actual)
End Sub

' Two texts of lines: each line that differs is reported.
Sub EqualLines(expected, actual, what)
  Dim expectedLines, actualLines, line
  expectedLines = Split(expected, vbLf)
  actualLines = Split(actual, vbLf)
  For line = 0 To UBound(expectedLines)
    If line <= UBound(actualLines) Then Equal expectedLines(line), actualLines(line), what & ", line " & line + 1
  Next
  Equal UBound(expectedLines), UBound(actualLines), what & ", number of lines"
End Sub

Function Shown(value)
  If VarType(value) = vbString Then
    Shown = """" & Replace(Replace(value, vbCr, "<CR>"), vbLf, "<LF>") & """"
  ElseIf VarType(value) = vbEmpty Then
    Shown = "Empty"
  ElseIf VarType(value) = vbNull Then
    Shown = "Null"
  ElseIf IsArray(value) Or IsObject(value) Then
    Shown = "of type " & VarType(value)
  Else
    Shown = CStr(value) & " (type " & VarType(value) & ")"
  End If
End Function

' Call it with On Error Resume Next in force, right behind the call that fails.
Sub Raised(number, source, description, what)
  Dim raisedNumber, raisedSource, raisedDescription
  raisedNumber = Err.Number
  raisedSource = Err.Source
  raisedDescription = Err.Description
  Err.Clear
  Equal CLng(number), CLng(raisedNumber), what & ", number"
  Equal source, raisedSource, what & ", source"
  Equal description, raisedDescription, what & ", description"
End Sub

' One of the library's own errors.
Sub RaisedOwn(number, what)
  Raised number, "Wendrill23", MessageOf(number), what
End Sub

Sub RaisedNothing(what)
  Check Err.Number = 0, what & ": raised " & Err.Number & " " & Err.Description
  Err.Clear
End Sub

Function MessageOf(number)
  Const activePnr = "Could not retrieve an active PNR. Make sure there is an active PNR/Session."
  Const communication = "An error has occurred while communicating with Quillet."
  Const general = "A general error has occurred."
  Select Case number
    Case 2500, 2510: MessageOf = activePnr
    Case 2501: MessageOf = "Could not retrieve the PNR."
    Case 2502: MessageOf = "Error when splitting the PNR."
    Case 2503: MessageOf = "Error when reading the PNR."
    Case 2535: MessageOf = "Could not connect to Quillet Session."
    Case 2515, 2520, 2300, 2305, 2310, 2315, 2400: MessageOf = general
    Case Else: MessageOf = communication
  End Select
  If number >= 2010 And number <= 2261 Then
    MessageOf = "An error has occurred while retrieving a PNR element/segment."
  End If
End Function

' The control of the simulator, with a scenario in force when its text is not empty, and an empty journal.
Function Simulator(scenario)
  Set Simulator = CreateObject("QuilletSimulator.Control")
  If scenario <> "" Then Simulator.LoadText scenario
  Simulator.ClearJournal
End Function

' What reached the terminal since the last time, lines joined with " | ".
Function Journal()
  Dim control, text
  Set control = CreateObject("QuilletSimulator.Control")
  text = control.Journal
  control.ClearJournal
  If Len(text) >= 2 Then text = Left(text, Len(text) - 2)
  Journal = Replace(text, vbCrLf, " | ")
End Function

' A row of the terminal.
Function Row(text)
  Row = Left(text & Space(80), 80)
End Function

' Rows of the terminal, given as "FIRST|SECOND".
Function Rows(text)
  Dim part
  For Each part In Split(text, "|")
    Rows = Rows & Row(part)
  Next
End Function

' A scenario of one session that gives these replies.
Function SessionWith(replies)
  SessionWith = "[[session]]" & vbLf & "name = 'A'" & vbLf & replies
End Function

' A reply to an entry: a response of a type, page by page, each page given as "FIRST|SECOND". MD shows the next one.
Function Answer(entry, kind, screens)
  Dim screen
  Answer = "[[reply]]" & vbLf & "entry = '" & entry & "'" & vbLf & "type = " & kind & vbLf & "pages = ["
  For Each screen In screens
    Answer = Answer & "'''" & vbLf & Replace(screen, "|", vbLf) & "'''," & vbLf
  Next
  Answer = Answer & "]" & vbLf
End Function

Sub EndTest
  Dim control
  Set control = CreateObject("QuilletSimulator.Control")
  Equal 0, CInt(control.LiveObjects), "objects that are still alive"
  If checksFailed > 0 Then
    WScript.Echo checksFailed & " checks FAILED"
    WScript.Quit 1
  End If
  WScript.Echo "all " & checksHeld & " checks held"
End Sub
