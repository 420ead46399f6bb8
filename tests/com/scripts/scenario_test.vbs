' What a scenario's author relies on, as a script meets it: matching, turns and state, packed entries, PNRs, waiting, and
' the report.
Option Explicit

Function QuilletOn(scenario)
  Simulator scenario
  Set QuilletOn = CreateObject("Wendrill23.CQuillet")
End Function

Function Sent(quillet, entry)
  Sent = RTrim(quillet.SendCommand(entry))
End Function

Function Report()
  Report = Replace(CreateObject("QuilletSimulator.Control").Report, vbCrLf, vbLf)
End Function

Function Joined(items, separator)
  Dim item
  For Each item In items
    Joined = Joined & separator & item
  Next
  Joined = Mid(Joined, Len(separator) + 1)
End Function

Function Lines(items)
  Lines = Joined(items, vbLf)
End Function

Function First(items)
  First = items(0)
End Function

' --- Matching

Sub TestContainsAndLikeAnswerEntriesOfTheirForm
  Dim quillet
  Set quillet = QuilletOn(Lines(Array("session = [{ name = 'A' }]", "reply = [", _
    "{ like = 'NM1?????/*', screen = 'LIKE' },", "{ contains = 'LON', screen = 'CONTAINS' } ]")))
  Equal "LIKE", Sent(quillet, "NM1SMITH/JOHN MR"), "like"
  Equal "CONTAINS", Sent(quillet, "AN15JUNPARLON"), "contains"
  Equal "ENTRY NOT UNDERSTOOD", Sent(quillet, "NM1LEE/JOHN MR"), "neither"
End Sub

Sub TestAReplyOfASessionAnswersThere
  Dim quillet
  Set quillet = QuilletOn(Lines(Array("session = [{ name = 'A' }, { name = 'B' }]", "reply = [", _
    "{ entry = 'JD', session = 'B', screen = 'OF B' },", "{ entry = 'JD', screen = 'OF ALL' } ]")))
  quillet.ConnectSession "A"
  Equal "OF ALL", Sent(quillet, "JD"), "in A"
  quillet.ConnectSession "B"
  Equal "OF B", Sent(quillet, "JD"), "in B"
End Sub

' --- Turns and state

Sub TestWhenAndThenFollowTheState
  Dim quillet
  Set quillet = QuilletOn(Lines(Array("session = [{ name = 'A' }]", "reply = [", _
    "{ entry = 'QT', when = '', screen = 'CLOSED', then = 'open' },", _
    "{ entry = 'QT', when = 'open', screen = 'OPEN' } ]")))
  Equal "CLOSED", Sent(quillet, "QT"), "first"
  Equal "OPEN", Sent(quillet, "QT"), "then"
  Equal "OPEN", Sent(quillet, "QT"), "and on"
End Sub

Sub TestRemarkEndOfTransactionAndRetrievalShowTheChangedPnr
  Dim quillet, pnr
  Set quillet = QuilletOn(Lines(Array("session = [{ name = 'A' }]", "reply = [", _
    "{ starts = 'RM', screen = 'RP/', then = 'changed' },", _
    "{ entry = 'ER', when = 'changed', screen = 'RP/', then = 'stored' } ]", "pnr = [", _
    "{ RecordLocator = 'ABC123', when = 'stored', display = 'CHANGED', derive = false },", _
    "{ RecordLocator = 'ABC123', display = 'FIRST', derive = false } ]")))
  Set pnr = CreateObject("Wendrill23.CPNR")
  Check quillet.RetrieveRecLoc("ABC123"), "found"
  Equal Row("FIRST"), pnr.Text, "before"
  quillet.SendCommand "RMPAY AT AIRPORT"
  quillet.SendCommand "ER"
  Check quillet.RetrieveRecLoc("ABC123"), "found again"
  Equal Row("CHANGED"), pnr.Text, "afterwards"
  quillet.RetrieveCurrent
  Equal Row("CHANGED"), pnr.Text, "on display"
  Equal "", Report(), "nothing to tell"
End Sub

Sub TestPnrsTakeTurnsAndASentRetrievalShowsThem
  Dim quillet
  Set quillet = QuilletOn(Lines(Array("session = [{ name = 'A' }]", "pnr = [", _
    "{ RecordLocator = 'ABC123', display = 'FIRST' },", "{ RecordLocator = 'ABC123', display = 'SECOND' } ]")))
  Equal "FIRST", Sent(quillet, "RTABC123"), "first turn"
  Equal "SECOND", Sent(quillet, "RTABC123"), "second turn"
  quillet.RetrieveCurrent
  Equal Row("SECOND"), CreateObject("Wendrill23.CPNR").Text, "on display"
End Sub

' --- Packed entries

Sub TestAPackedBatchWhoseThirdEntryIsRefusedReportsExactlyThatOne
  Dim batch, bag
  Simulator Lines(Array("session = [{ name = 'A' }]", "reply = [", "{ starts = 'RM', screen = 'RP/' },", _
    "{ starts = 'TK', screen = 'CHECK DATE', refuses = true },", "{ entry = 'ER', screen = 'RP/', optional = true } ]"))
  Set batch = CreateObject("Wendrill23.CBatch")
  batch.Commands.Add "RM ONE"
  batch.Commands.Add "RM TWO"
  batch.Commands.Add "TKTL99XXX"
  batch.Commands.Add "ER"
  Set bag = CreateObject("Pellorin.ParamBag")
  batch.SubmitWithResponse bag
  Equal "1", bag("strKeyErr"), "strKeyErr"
  Equal False, bag("blnKeyResponseOK"), "blnKeyResponseOK"
  Equal "key 322 | send RM ONE;RM TWO;TKTL99XXX;ER |   RM ONE |   RM TWO |   TKTL99XXX (refused)", Journal(), "journal"
  Equal "scenario text: 1 packed entry was not carried out to its end" & vbLf & _
    "  RM ONE;RM TWO;TKTL99XXX;ER  ended with part 3, TKTL99XXX" & vbLf, Report(), "report"
End Sub

' --- Waiting

' Timer begins again at midnight.
Function SecondsSince(began)
  SecondsSince = Timer - began
  If SecondsSince < 0 Then SecondsSince = SecondsSince + 86400
End Function

Sub TestNeverMakesSendCommandNoClearRaise2530AfterItsWaits
  Dim quillet, began
  Set quillet = QuilletOn(Lines(Array("session = [{ name = 'A' }]", "reply = [{ entry = 'JI', never = true }]")))
  began = Timer
  On Error Resume Next
  quillet.SendCommandNoClear "JI"
  RaisedOwn 2530, "SendCommandNoClear"
  On Error GoTo 0
  Check SecondsSince(began) >= 91, "two waits of 46 seconds"
  Equal "send JI | send JI | send JI", Journal(), "journal"
End Sub

Sub TestABufferFillsAfterItsTime
  Dim quillet, began
  Set quillet = QuilletOn(Lines(Array("session = [{ name = 'A' }]", _
    "reply = [{ entry = 'JI', screen = 'DONE', after = 1.5 }]")))
  began = Timer
  Equal Row("DONE"), quillet.SendCommandNoClear("JI"), "the answer"
  Check SecondsSince(began) >= 1.4, "it came after a second and a half"
  Equal "send JI", Journal(), "sent once"
End Sub

Sub TestASilentKeyIsAccepted
  Dim quillet
  Set quillet = QuilletOn(Lines(Array("session = [{ name = 'A' }]", "terminal = { silent = [353] }")))
  quillet.SendKey 353
  Equal "key 353", Journal(), "journal"
End Sub

' --- The report

Sub TestTheReportTellsEntriesRepliesAndWarnings
  Dim control, quillet
  Set control = Simulator(Lines(Array("[[session]]", "name = 'A'", "[[reply]]", "entry = 'AN15JUNPARLON'", "screen = '1'", _
    "[[reply]]", "entry = 'NEVERUSED'", "screen = '1'", "[[reply]]", "entry = 'LATER'", "screen = '1'", _
    "optional = true")))
  Set quillet = CreateObject("Wendrill23.CQuillet")
  quillet.SendCommand "AN15JUNPARLON"
  quillet.SendCommand "AN15JUNPARLOM"
  control.Warn "my own"
  Equal "scenario text: 1 entry was not answered" & vbLf & "  AN15JUNPARLOM  sent first in session A" & vbLf & _
    "  nearest: line 3, entry = ""AN15JUNPARLON""; column 13: ""M"" sent, ""N"" expected" & vbLf & _
    "scenario text: 1 reply was never used" & vbLf & "  line 6, entry = ""NEVERUSED""" & vbLf & _
    "scenario text: 1 warning" & vbLf & "  my own" & vbLf, Report(), "Report"
  Equal 8204, VarType(control.Unanswered), "an array of VARIANT"
  Equal "0 0 AN15JUNPARLOM", LBound(control.Unanswered) & " " & UBound(control.Unanswered) & " " & _
    First(control.Unanswered), "Unanswered"
  Equal "line 6, entry = ""NEVERUSED""", First(control.Unused), "Unused"
  Equal "my own", First(control.Warnings), "Warnings"
  Equal CLng(3), control.Findings, "Findings"
  Equal False, control.Strict, "Strict"
End Sub

Sub TestListsWithoutAnythingAreEmptyArrays
  Dim control
  Set control = Simulator(Lines(Array("session = [{ name = 'A' }]", "[strict]", "on = true")))
  Equal CLng(-1), UBound(control.Unanswered), "Unanswered"
  Equal CLng(-1), UBound(control.Unused), "Unused"
  Equal CLng(-1), UBound(control.Warnings), "Warnings"
  Equal CLng(0), control.Findings, "Findings"
  Equal "", control.Report, "Report"
  Equal True, control.Strict, "Strict"
End Sub

Sub TestAMisspelledKeyAndKindAreWarnings
  Dim control, pnr, bag
  Set control = Simulator(Lines(Array("session = [{ name = 'A' }]", "[[pnr]]", "on_display = true", "display = 'RP/'")))
  CreateObject("Wendrill23.CQuillet").RetrieveCurrent
  Set pnr = CreateObject("Wendrill23.CPNR")
  Set bag = CreateObject("Pellorin.ParamBag")
  bag("intKeyIndx") = 0
  bag("strKeyPNRElement") = "SRS"
  On Error Resume Next
  pnr.Elements bag
  On Error GoTo 0
  Equal "there is no kind of element SRS; nearest: SSR|nothing reads intKeyIndx; nearest: intKeyIndex", _
    Joined(control.Warnings, "|"), "Warnings"
End Sub
