' PNRs: retrieving them, what they say about themselves, how much they hold.
Option Explicit

Function Desk(pnrs)
  Desk = "[[session]]" & vbLf & "name = 'A'" & vbLf & pnrs
End Function

Function Pnr(locator, keys)
  Pnr = "[[pnr]]" & vbLf & "RecordLocator = '" & locator & "'" & vbLf & keys & vbLf
End Function


Function Creation(text)
  Creation = "display = '''" & vbLf & "RP/PARXX0100/PARXX0100" & vbLf & text & vbLf & "'''"
End Function

Sub TestRetrieveRecLocSendsRT
  Dim control, quillet, pnr1
  Set control = Simulator(Desk(Pnr("ABC123", Creation("PARXX0100/0001AA/12JUN08"))))
  Set quillet = CreateObject("Wendrill23.CQuillet")
  Set pnr1 = CreateObject("Wendrill23.CPNR")
  Equal True, quillet.RetrieveRecLoc("ABC123"), "result"
  Equal "retrieve RTABC123", Journal(), "what reached the terminal"
  Equal "ABC123", pnr1.RecordLocator, "RecordLocator"
  Equal "PARXX0100", pnr1.CreationOfficeID, "CreationOfficeID"
  Equal "0001AA", pnr1.CreationAgentSign, "CreationAgentSign"
  Equal "12JUN08", pnr1.CreationDate, "CreationDate"
  Equal Row("RP/PARXX0100/PARXX0100") & Row("PARXX0100/0001AA/12JUN08"), pnr1.Text, "Text"
End Sub

Sub TestSplitPNRSendsSP
  Dim control, quillet
  Set control = Simulator(Desk(Pnr("ABC123", "entries = ['SP2']" & vbLf & Creation("X"))))
  Set quillet = CreateObject("Wendrill23.CQuillet")
  Equal True, quillet.SplitPNR("2"), "result"
  Equal "retrieve SP2", Journal(), "what reached the terminal"
  Equal False, quillet.SplitPNR(3), "a number is taken for its text; there is no such PNR"
  Equal "retrieve SP3", Journal(), "what reached the terminal"
End Sub

Sub TestReadPNRTakesTheAlarmLockForER
  Dim control, quillet
  Set control = Simulator(Desk(Pnr("ABC123", "entries = ['ER', 'RT']" & vbLf & Creation("X"))))
  Set quillet = CreateObject("Wendrill23.CQuillet")
  Equal True, quillet.ReadPNR("ER"), "result"
  Equal "alarm lock | retrieve ER | alarm unlock", Journal(), "what reached the terminal"
  Equal True, quillet.ReadPNR("RT"), "result"
  Equal "retrieve RT", Journal(), "what reached the terminal"
End Sub

Sub TestAnEmptyLocatorKeepsThePnr
  Dim control, quillet, pnr1
  Set control = Simulator(Desk(Pnr("ABC123", Creation("X"))))
  Set quillet = CreateObject("Wendrill23.CQuillet")
  Set pnr1 = CreateObject("Wendrill23.CPNR")
  quillet.RetrieveRecLoc "ABC123"
  Journal
  Equal False, quillet.RetrieveRecLoc(""), "RetrieveRecLoc"
  Equal False, quillet.SplitPNR(""), "SplitPNR"
  Equal False, quillet.ReadPNR(""), "ReadPNR"
  Equal "", Journal(), "what reached the terminal"
  Equal "ABC123", pnr1.RecordLocator, "the PNR is kept"
End Sub

Sub TestAPnrThatIsNotFoundIsFalse
  Dim control, quillet, pnr1
  Set control = Simulator(Desk(Pnr("ABC123", Creation("X"))))
  Set quillet = CreateObject("Wendrill23.CQuillet")
  Set pnr1 = CreateObject("Wendrill23.CPNR")
  quillet.RetrieveRecLoc "ABC123"
  Equal False, quillet.RetrieveRecLoc("NOBODY"), "result"
  Equal "", pnr1.RecordLocator, "the PNR before is gone"
End Sub

Sub TestAnAnswerWithoutHeaderLeavesNoPnr
  Dim control, quillet, pnr1, text
  Set control = Simulator(Desk(Pnr("ABC123", Creation("X") & vbLf & "[pnr.Header]" & vbLf & "absent = true")))
  Set quillet = CreateObject("Wendrill23.CQuillet")
  Set pnr1 = CreateObject("Wendrill23.CPNR")
  Equal False, quillet.RetrieveRecLoc("ABC123"), "result"
  Check pnr1.PNR Is Nothing, "PNR"
  On Error Resume Next
  text = pnr1.RecordLocator
  Raised 91, "Wendrill23", "Object variable or With block variable not set", "RecordLocator"
End Sub

Sub TestRetrieveCurrentReturnsTheStatus
  Dim control, quillet
  Set control = Simulator(Desk(Pnr("ABC123", "on_display = true" & vbLf & "status = 7" & vbLf & Creation("X"))))
  Set quillet = CreateObject("Wendrill23.CQuillet")
  Equal CLng(7), quillet.RetrieveCurrent, "status"
  Equal "read pnr on display", Journal(), "what reached the terminal"
End Sub

Sub TestNoPnrOnDisplayIs2500
  Dim control, quillet, status
  Set control = Simulator(Desk(""))
  Set quillet = CreateObject("Wendrill23.CQuillet")
  On Error Resume Next
  status = quillet.RetrieveCurrent
  RaisedOwn 2500, "RetrieveCurrent"
End Sub

Sub TestAFailingRetrievalRaisesTheMembersNumber
  Dim control, quillet, found
  Set control = Simulator(Desk(Pnr("ABC123", "entries = ['SP2', 'ER']" & vbLf & "on_display = true" & vbLf & _
    "error = 0x80004005" & vbLf & Creation("X"))))
  Set quillet = CreateObject("Wendrill23.CQuillet")
  On Error Resume Next
  found = quillet.RetrieveRecLoc("ABC123")
  RaisedOwn 2501, "RetrieveRecLoc"
  found = quillet.SplitPNR("2")
  RaisedOwn 2502, "SplitPNR"
  Journal
  found = quillet.ReadPNR("ER")
  RaisedOwn 2503, "ReadPNR"
  Equal "alarm lock | retrieve ER | alarm unlock", Journal(), "the lock is given back"
  found = quillet.RetrieveCurrent
  RaisedOwn 2500, "RetrieveCurrent"
End Sub

Sub TestWithoutASessionCommandAnswersAndTheRestIs91
  Dim pnr1, text
  Set pnr1 = CreateObject("Wendrill23.CPNR")
  pnr1.Command = "RT"
  Equal "RT", pnr1.Command, "Command"
  Check pnr1.PNR Is Nothing, "PNR"
  On Error Resume Next
  text = pnr1.RecordLocator
  Raised 91, "Wendrill23", "Object variable or With block variable not set", "RecordLocator"
  text = pnr1.Text
  Raised 91, "Wendrill23", "Object variable or With block variable not set", "Text"
  text = pnr1.NameElementsCount
  Raised 91, "Wendrill23", "Object variable or With block variable not set", "NameElementsCount"
  text = pnr1.HTLElementsCount
  Raised 91, "Wendrill23", "Object variable or With block variable not set", "HTLElementsCount"
End Sub

Sub TestADisplayWithoutCreationLineIsSearchedAgain
  Dim control, quillet, pnr1
  Set control = Simulator(Desk(Pnr("NOLINE", "display = 'NOTHING HERE'") & _
    Pnr("ABC123", Creation("PARXX0100/0001AA/12JUN08"))))
  Set quillet = CreateObject("Wendrill23.CQuillet")
  Set pnr1 = CreateObject("Wendrill23.CPNR")
  quillet.RetrieveRecLoc "NOLINE"
  Equal "", pnr1.CreationOfficeID, "office"
  Equal "", pnr1.CreationAgentSign, "agent"
  Equal "", pnr1.CreationDate, "date"
  quillet.RetrieveRecLoc "ABC123"
  Equal "12JUN08", pnr1.CreationDate, "the search began anew"
End Sub

Sub TestTheCreationLineStaysTheFirstOne
  Dim control, quillet, pnr1, pnr2
  Set control = Simulator(Desk(Pnr("ABC123", Creation("PARXX0100/0001AA/12JUN08")) & _
    Pnr("DEF456", Creation("NCEXX0200/0002BB/13JUL09"))))
  Set quillet = CreateObject("Wendrill23.CQuillet")
  Set pnr1 = CreateObject("Wendrill23.CPNR")
  quillet.RetrieveRecLoc "ABC123"
  Equal "12JUN08", pnr1.CreationDate, "the first PNR"
  quillet.RetrieveRecLoc "DEF456"
  Equal "12JUN08", pnr1.CreationDate, "kept"
  Equal "DEF456", pnr1.RecordLocator, "the second PNR"
  Set pnr2 = CreateObject("Wendrill23.CPNR")
  Equal "13JUL09", pnr2.CreationDate, "another object reads the second"
End Sub

Sub TestThePnrPropertyHandsOutTheToolkitsObject
  Dim control, quillet, pnr1, toolkit
  Set control = Simulator(Desk(Pnr("ABC123", Creation("X"))))
  Set quillet = CreateObject("Wendrill23.CQuillet")
  Set pnr1 = CreateObject("Wendrill23.CPNR")
  quillet.RetrieveRecLoc "ABC123"
  Set toolkit = pnr1.PNR
  Equal "ABC123", toolkit.Header.RecordLocator, "read from the toolkit's object"
  Check pnr1.PNR Is toolkit, "the same object each time"
End Sub

Sub TestPuttingThePnrAssignsTheDefaultProperty
  Dim control, quillet, pnr1, bag, toolkit
  Set control = Simulator(Desk(Pnr("ABC123", Creation("X"))))
  Set quillet = CreateObject("Wendrill23.CQuillet")
  Set pnr1 = CreateObject("Wendrill23.CPNR")
  Set bag = CreateObject("Pellorin.ParamBag")
  quillet.RetrieveRecLoc "ABC123"
  Set toolkit = pnr1.PNR
  Set pnr1.PNR = bag
  Check pnr1.PNR Is toolkit, "the reference is not replaced"
  Check toolkit.Value Is bag, "the default property holds the object"
  Set pnr1.PNR = Nothing
End Sub

Sub TestSegmentsAreCountedByKind
  Dim control, quillet, pnr1
  Set control = Simulator(Desk(Pnr("ABC123", Creation("X") & vbLf & _
    "[[pnr.AirSegments]]" & vbLf & "kind = 'timed'" & vbLf & "[[pnr.AirSegments]]" & vbLf & "kind = 'open'" & vbLf & _
    "[[pnr.AirSegments]]" & vbLf & "kind = 'flown'")))
  Set quillet = CreateObject("Wendrill23.CQuillet")
  Set pnr1 = CreateObject("Wendrill23.CPNR")
  quillet.RetrieveRecLoc "ABC123"
  Equal 3, pnr1.AllAirSegmentsCount, "AllAirSegmentsCount"
  Equal 2, pnr1.ActiveAirSegmentsCount, "ActiveAirSegmentsCount"
  Equal 1, pnr1.AirSegmentsCount, "AirSegmentsCount"
  Equal 1, pnr1.OpenAirSegmentsCount, "OpenAirSegmentsCount"
  Equal 1, pnr1.FlownAirSegmentsCount, "FlownAirSegmentsCount"
End Sub

' One element more in each collection than in the one before, so that no count can stand for another.
Sub TestEachCountCountsItsOwnCollection
  Dim control, quillet, pnr1, toml, number, name
  number = 0
  For Each name In Array("Names", "Tickets", "Remarks", "FormsOfPayment", "Hotels", "Commissions", "OriginalIssues", _
      "INSElements", "MISElements", "MailingAddresses", "Contacts", "ConfidentialRemarks", "Options", _
      "BillingAddresses", "Cars", "FEElements", "AutoTickets", "HTLElements")
    number = number + 1
    toml = toml & Repeated("[[pnr." & name & "]]" & vbLf & "Text = 'X'" & vbLf, number)
  Next
  Set control = Simulator(Desk(Pnr("ABC123", Creation("X") & vbLf & toml)))
  Set quillet = CreateObject("Wendrill23.CQuillet")
  Set pnr1 = CreateObject("Wendrill23.CPNR")
  quillet.RetrieveRecLoc "ABC123"
  Equal 1, pnr1.NameElementsCount, "NameElementsCount"
  Equal 2, pnr1.TicketElementsCount, "TicketElementsCount"
  Equal 3, pnr1.RemarkElementsCount, "RemarkElementsCount"
  Equal 4, pnr1.FormOfPaymentElementsCount, "FormOfPaymentElementsCount"
  Equal 5, pnr1.HotelSegmentsCount, "HotelSegmentsCount"
  Equal 6, pnr1.FareCommissionElementsCount, "FareCommissionElementsCount"
  Equal 7, pnr1.OrigianlIssueElementsCount, "OrigianlIssueElementsCount"
  Equal 8, pnr1.INSElementsCount, "INSElementsCount"
  Equal 9, pnr1.MISElementsCount, "MISElementsCount"
  Equal 10, pnr1.MailingAddressElementsCount, "MailingAddressElementsCount"
  Equal 11, pnr1.ContactElementsCount, "ContactElementsCount"
  Equal 12, pnr1.ConfidentialRemarkElementsCount, "ConfidentialRemarkElementsCount"
  Equal 13, pnr1.OptionElementsCount, "OptionElementsCount"
  Equal 14, pnr1.BillingAddressElementsCount, "BillingAddressElementsCount"
  Equal 15, pnr1.CarSegmentsCount, "CarSegmentsCount"
  Equal 16, pnr1.FEElementsCount, "FEElementsCount"
  Equal 17, pnr1.AutoTktElementsCount, "AutoTktElementsCount"
  Equal 18, pnr1.HTLElementsCount, "HTLElementsCount"
End Sub

Function Repeated(text, times)
  Dim time
  For time = 1 To times
    Repeated = Repeated & text
  Next
End Function

Sub TestAGroupLineGivesTheNumberOfNames
  Dim control, quillet, pnr1, seven
  Set control = Simulator(Desk( _
    Pnr("GROUP1", "display = '''" & vbLf & "RP/X" & vbLf & "  0.25TOUR GROUP NM: 2" & vbLf & "'''") & _
    Pnr("GROUP2", "display = '''" & vbLf & "RP/X" & vbLf & "  0.25TOUR GROUP NM:12" & vbLf & "'''") & _
    Pnr("LATE88", "display = '''" & vbLf & "1" & vbLf & "2" & vbLf & "3" & vbLf & "4" & vbLf & "5" & vbLf & "6" & _
      vbLf & "7" & vbLf & "  0.25TOUR GROUP NM: 2" & vbLf & "'''" & vbLf & "[[pnr.Names]]" & vbLf & "Text = 'X'") & _
    Pnr("NONE00", "display = 'X'")))
  Set quillet = CreateObject("Wendrill23.CQuillet")
  Set pnr1 = CreateObject("Wendrill23.CPNR")
  quillet.RetrieveRecLoc "GROUP1"
  Equal 27, pnr1.NameElementsCount, "25 in the group and 2 named"
  quillet.RetrieveRecLoc "GROUP2"
  Equal 37, pnr1.NameElementsCount, "25 in the group and 12 named"
  quillet.RetrieveRecLoc "LATE88"
  Equal 1, pnr1.NameElementsCount, "line 8 is not seen: the toolkit's names"
  quillet.RetrieveRecLoc "NONE00"
  Equal 0, pnr1.NameElementsCount, "no group and no names"
End Sub

Sub TestAFailingCountArrivesUnchanged
  Dim control, quillet, pnr1, count
  Set control = Simulator(Desk(Pnr("ABC123", Creation("X"))))
  Set quillet = CreateObject("Wendrill23.CQuillet")
  Set pnr1 = CreateObject("Wendrill23.CPNR")
  quillet.RetrieveRecLoc "ABC123"
  On Error Resume Next
  control.FailNext "Count", &H80004005, 1
  count = pnr1.TicketElementsCount
  Equal CLng(&H80004005), Err.Number, "number"
  Equal "QuilletSimulator", Err.Source, "source"
End Sub
