' The counts that come from scanning the display: nine kinds of element and the two kinds of fare line.
Option Explicit

' A script can reach a property by its literal name only.
Function CountOf(pnr, kind)
  Select Case kind
    Case "SpecialServiceElements": CountOf = pnr.SpecialServiceElementsCount
    Case "OtherServiceElements": CountOf = pnr.OtherServiceElementsCount
    Case "SecurityElements": CountOf = pnr.SecurityElementsCount
    Case "ManualTktElements": CountOf = pnr.ManualTktElementsCount
    Case "MiscTktInfoElements": CountOf = pnr.MiscTktInfoElementsCount
    Case "SURElements": CountOf = pnr.SURElementsCount
    Case "SPElements": CountOf = pnr.SPElementsCount
    Case "ATXSegments": CountOf = pnr.ATXSegmentsCount
    Case "MCOElements": CountOf = pnr.MCOElementsCount
    Case "ValidatingAirlineElements": CountOf = pnr.ValidatingAirlineElementsCount
    Case "AirSequenceNrElements": CountOf = pnr.AirSequenceNrElementsCount
    Case Else: Err.Raise 5, "scans_test", "no kind: " & kind
  End Select
End Function

' The kinds and what a failing scan raises: 0 where the failure arrives as it is, -1 where it counts none.
Function NumberOfScans()
  Dim numbers
  Set numbers = CreateObject("Scripting.Dictionary")
  numbers.Add "SpecialServiceElements", 2035
  numbers.Add "OtherServiceElements", 2030
  numbers.Add "SecurityElements", 2035          ' the same number on purpose
  numbers.Add "ManualTktElements", 2020
  numbers.Add "MiscTktInfoElements", 2025
  numbers.Add "SURElements", 0
  numbers.Add "SPElements", 2056
  numbers.Add "ATXSegments", 0
  numbers.Add "MCOElements", 2057
  numbers.Add "ValidatingAirlineElements", -1
  numbers.Add "AirSequenceNrElements", 0
  Set NumberOfScans = numbers
End Function

Function Desk(pnrs)
  Desk = "[[session]]" & vbLf & "name = 'A'" & vbLf & pnrs
End Function

' A PNR on display, lines joined with "|".
Function Pnr(lines)
  Pnr = "[[pnr]]" & vbLf & "on_display = true" & vbLf & "display = '''" & vbLf & Replace(lines, "|", vbLf) & vbLf & "'''" & vbLf
End Function

' The same, the lines being broken by CR LF.
Function BrokenPnr(lines)
  BrokenPnr = Pnr(lines) & "breaks = true" & vbLf
End Function

Sub TestCountsOfTheRichPnr
  Dim control, quillet, pnr1
  Set control = RichDesk()
  Set quillet = CreateObject("Wendrill23.CQuillet")
  Set pnr1 = CreateObject("Wendrill23.CPNR")
  quillet.RetrieveCurrent
  Equal 5, pnr1.SpecialServiceElementsCount, "special service requests"
  Equal 1, pnr1.OtherServiceElementsCount, "other service information"
  Equal 2, pnr1.SecurityElementsCount, "security entries"
  Equal 2, pnr1.ManualTktElementsCount, "manual tickets"
  Equal 1, pnr1.MiscTktInfoElementsCount, "miscellaneous ticketing"
  Equal 2, pnr1.SURElementsCount, "surface segments"
  Equal 1, pnr1.SPElementsCount, "split parties"
  Equal 1, pnr1.ATXSegmentsCount, "ATX segments"
  Equal 1, pnr1.MCOElementsCount, "MCO documents"
  Equal 1, pnr1.ValidatingAirlineElementsCount, "validating airlines"
  Equal 1, pnr1.AirSequenceNrElementsCount, "air sequence numbers"
End Sub

Sub TestAPnrWithoutLinesOfAKindCountsNone
  Dim control, quillet, pnr1, kind
  Set control = Simulator(Desk(Pnr("RP/PARXX0100/PARXX0100|PARXX0100/0001AA/12JUN08|  1.SMITH/JOHN MR|  2 AP HOME")))
  Set quillet = CreateObject("Wendrill23.CQuillet")
  Set pnr1 = CreateObject("Wendrill23.CPNR")
  quillet.RetrieveCurrent
  For Each kind In NumberOfScans().Keys
    Equal 0, CountOf(pnr1, kind), kind
  Next
End Sub

Sub TestAnEmptyDisplayCountsNone
  Dim control, quillet, pnr1, kind
  Set control = Simulator(Desk(""))
  Set quillet = CreateObject("Wendrill23.CQuillet")
  Set pnr1 = CreateObject("Wendrill23.CPNR")
  For Each kind In NumberOfScans().Keys
    Equal 0, CountOf(pnr1, kind), kind
  Next
End Sub

Sub TestAPromptTakesTheCountFromTwoKindsOnly
  Dim control, quillet, pnr1, bag
  Const lines = "RP/PARXX0100|* SP 11JUN/AMSU/PARXX0100-QRS456|3 *SSR VGML AF HK1|  4 FV AF|  5 OSI AF VIP|  6 FB 120001|7 FHE 057-1| 8 FS PAX N-1|9   ATX QT HK1 NCECDG 20JUN|10 MCO AF PAR|  * ES/G PARAG1 ALL/R LONAG2|> "
  Set control = Simulator(Desk(Pnr(lines)))
  Set quillet = CreateObject("Wendrill23.CQuillet")
  Set pnr1 = CreateObject("Wendrill23.CPNR")
  quillet.RetrieveCurrent
  Equal 0, pnr1.SpecialServiceElementsCount, "special service requests"
  Equal 0, pnr1.MiscTktInfoElementsCount, "miscellaneous ticketing"
  Equal 1, pnr1.OtherServiceElementsCount, "other service information"
  Equal 2, pnr1.SecurityElementsCount, "security entries"
  Equal 1, pnr1.ManualTktElementsCount, "manual tickets"
  Equal 1, pnr1.SPElementsCount, "split parties"
  Equal 1, pnr1.ATXSegmentsCount, "ATX segments"
  Equal 1, pnr1.MCOElementsCount, "MCO documents"
  Equal 1, pnr1.ValidatingAirlineElementsCount, "validating airlines"
  Equal 1, pnr1.AirSequenceNrElementsCount, "air sequence numbers"
  On Error Resume Next
  Set bag = BagAt(0)
  bag("strKeyPNRElement") = "SSR"
  pnr1.Elements bag
  RaisedOwn 2247, "the first special service request"
  bag("strKeyPNRElement") = "FS"
  pnr1.Elements bag
  RaisedOwn 2251, "the first miscellaneous ticketing"
End Sub

Sub TestAnEmptySecondLineEndsSomeScansOnly
  Dim control, quillet, pnr1
  Set control = Simulator(Desk(BrokenPnr("HEADER||3 SSR VGML AF HK1|4 FS PAX N-1|5 FHE 057-1|* SP 11JUN/AMSU/PARXX0100-QRS456" & _
    "|7   ATX QT HK1 NCECDG 20JUN|  * ES/G PARAG1 ALL/R LONAG2|10 MCO AF PAR")))
  Set quillet = CreateObject("Wendrill23.CQuillet")
  Set pnr1 = CreateObject("Wendrill23.CPNR")
  quillet.RetrieveCurrent
  Equal 0, pnr1.SpecialServiceElementsCount, "special service requests end there"
  Equal 0, pnr1.MiscTktInfoElementsCount, "so does miscellaneous ticketing"
  Equal 0, pnr1.ManualTktElementsCount, "and so do manual tickets"
  Equal 0, pnr1.MCOElementsCount, "and MCO documents"
  Equal 1, pnr1.SPElementsCount, "a display of split parties may begin with empty lines"
  Equal 1, pnr1.ATXSegmentsCount, "so may one of ATX segments"
  Equal 2, pnr1.SecurityElementsCount, "and security entries are looked for behind them"
End Sub

Sub TestLinesMayBeBroken
  Dim control, quillet, pnr1, bag
  Set control = Simulator(Desk(BrokenPnr("HEADER|12 *SSR VGML SK HK1/S3/P1|13 SSR WCHR AF HK1 FIRST|       SECOND|   THIRD|14 SSR OTHS YY TEXT")))
  Set quillet = CreateObject("Wendrill23.CQuillet")
  Set pnr1 = CreateObject("Wendrill23.CPNR")
  quillet.RetrieveCurrent
  Equal 3, pnr1.SpecialServiceElementsCount, "special service requests"
  Set bag = BagAt(1)
  bag("strKeyPNRElement") = "SSR"
  pnr1.Elements bag
  Equal "13 SSR WCHR AF HK1 FIRST SECOND", bag("strKeyElement"), "four blanks continue an element, three do not"
End Sub

Sub TestEveryCountReadsThePnrAnew
  Dim control, quillet, pnr1
  Set control = Simulator(Desk(Replace(Pnr("HEADER|1 SSR VGML AF HK1"), "on_display = true", "RecordLocator = 'ONESSR'") & _
    Replace(Pnr("HEADER|1 SSR VGML AF HK1|2 SSR WCHR AF HK1"), "on_display = true", "RecordLocator = 'TWOSSR'")))
  Set quillet = CreateObject("Wendrill23.CQuillet")
  Set pnr1 = CreateObject("Wendrill23.CPNR")
  quillet.RetrieveRecLoc "ONESSR"
  Equal 1, pnr1.SpecialServiceElementsCount, "of the first"
  quillet.RetrieveRecLoc "TWOSSR"
  Equal 2, pnr1.SpecialServiceElementsCount, "of the second"
  quillet.RetrieveRecLoc "ONESSR"
  Equal 1, pnr1.SpecialServiceElementsCount, "of the first again"
End Sub

Sub TestAFailingDisplayRaisesTheScansNumber
  Dim control, quillet, pnr1, numbers, kind, count
  Set control = RichDesk()
  Set quillet = CreateObject("Wendrill23.CQuillet")
  Set pnr1 = CreateObject("Wendrill23.CPNR")
  quillet.RetrieveCurrent
  Set numbers = NumberOfScans()
  On Error Resume Next
  For Each kind In numbers.Keys
    control.FailNext "Text", &H80004005, 1
    count = CountOf(pnr1, kind)
    If numbers(kind) > 0 Then
      RaisedOwn numbers(kind), kind
    ElseIf numbers(kind) = 0 Then
      Equal CLng(&H80004005), Err.Number, kind & ", number"
      Equal "QuilletSimulator", Err.Source, kind & ", source"
      Err.Clear
    Else
      RaisedNothing kind
      Equal 0, count, kind
    End If
  Next
End Sub

Sub TestSomeScansReadTheDisplayOnceAndSomeAgainAndAgain
  Dim control, quillet, pnr1, count
  Set control = RichDesk()
  Set quillet = CreateObject("Wendrill23.CQuillet")
  Set pnr1 = CreateObject("Wendrill23.CPNR")
  quillet.RetrieveCurrent
  control.FailNext "Text", &H80004005, 2
  Equal 5, pnr1.SpecialServiceElementsCount, "the whole scan is one reading"
  On Error Resume Next
  count = pnr1.SpecialServiceElementsCount
  RaisedOwn 2035, "the next scan is the second"
  control.FailNext "Text", &H80004005, 10
  count = pnr1.OtherServiceElementsCount
  RaisedOwn 2030, "a reading for every row"
  control.FailNext "Text", &H80004005, 10
  count = pnr1.SPElementsCount
  RaisedOwn 2056, "a reading for every line"
  control.FailNext "Text", &H80004005, 10
  count = pnr1.ValidatingAirlineElementsCount
  RaisedNothing "a reading for every line"
  Equal 0, count, "a failing scan counts none"
End Sub

Sub TestWithoutAPnrTheTrapsGiveTheirNumbers
  Dim pnr1, numbers, kind, count
  Set pnr1 = CreateObject("Wendrill23.CPNR")
  Set numbers = NumberOfScans()
  On Error Resume Next
  For Each kind In numbers.Keys
    count = CountOf(pnr1, kind)
    If numbers(kind) > 0 Then
      RaisedOwn numbers(kind), kind
    ElseIf numbers(kind) = 0 Then
      Raised 91, "Wendrill23", "Object variable or With block variable not set", kind
    Else
      RaisedNothing kind
      Equal 0, count, kind
    End If
  Next
End Sub

' The scans that read the display once a line would read it 32,768 times here.
Sub TestADisplayOfMoreThan32767LinesOverflows
  Dim control, quillet, pnr1, kind, count
  Set control = Simulator(Desk(BrokenPnr(Replace(String(32768, "x"), "x", "LINE|"))))
  Set quillet = CreateObject("Wendrill23.CQuillet")
  Set pnr1 = CreateObject("Wendrill23.CPNR")
  quillet.RetrieveCurrent
  On Error Resume Next
  For Each kind In Array("SpecialServiceElements", "SecurityElements", "ManualTktElements", "MiscTktInfoElements", _
      "ATXSegments", "MCOElements")
    count = CountOf(pnr1, kind)
    Raised 6, "Wendrill23", "Overflow", kind
  Next
End Sub

Sub TestACountCannotBeSet
  Dim control, quillet, pnr1
  Set control = RichDesk()
  Set quillet = CreateObject("Wendrill23.CQuillet")
  Set pnr1 = CreateObject("Wendrill23.CPNR")
  On Error Resume Next
  pnr1.SURElementsCount = 1
  Equal CLng(438), Err.Number, "number"
  Err.Clear
End Sub

' --- What looks like an error

Function ElementOf(pnr1, kind, index)
  Dim bag
  Set bag = CreateObject("Scripting.Dictionary")
  bag("strKeyPNRElement") = kind
  bag("intKeyIndex") = index
  pnr1.Elements bag
  Set ElementOf = bag
End Function

Function ValueOf(pnr1, kind, index, key)
  Dim bag
  Set bag = ElementOf(pnr1, kind, index)
  ValueOf = bag(key)
End Function

Function DeskWith(lines)
  Set DeskWith = Simulator(Desk(Pnr("RP/PARXX0100|PARXX0100/0001AA/12JUN08|  1.SMITH/JOHN MR|" & lines) & _
    "[pnr.Header]" & vbLf & "Text = 'RP/PARXX0100'" & vbLf))
End Function

Sub TestThreeDigitElementNumbersMoveTheFixedColumns
  Dim control, quillet, pnr1, bag
  Set control = DeskWith("123 SSR VGML AF HK1/S3|124 OSI AF VIP|125 FS N-100|126 ATX YY HK1 PARLON 12JUN|" & _
    "127 ATX YY HK1 LONPAR 14JUN|128 MCO AF PAR 12JUN/100.00|129 FV AF/S1|130 FHE PAX 117-1234567890/S3")
  Set quillet = CreateObject("Wendrill23.CQuillet")
  Set pnr1 = CreateObject("Wendrill23.CPNR")
  quillet.RetrieveCurrent
  Set bag = ElementOf(pnr1, "SSR", 0)
  Equal "12 VGML AF HK", bag("strKeyElementNr") & " " & bag("strKeyCode") & " " & bag("strKeyAirline") & " " & _
    bag("strKeyStatus"), "SSR"
  Equal "24", ValueOf(pnr1, "OSI", 0, "strKeyElementNr"), "OSI"
  Set bag = ElementOf(pnr1, "FS", 0)
  Equal "12", bag("strKeyElementNr"), "FS"
  Equal "S N-100", bag("strKeyText"), "FS"
  Equal 2, pnr1.ATXSegmentsCount, "ATX"
  Set bag = ElementOf(pnr1, "ATX", 1)
  Equal "12", bag("strKeySegmentNr"), "ATX"
  Equal "X", bag("strKeyProvider"), "ATX: two columns before the provider"
  Equal 0, pnr1.MCOElementsCount, "MCO"
  Equal "130", ValueOf(pnr1, "FH", 0, "strKeyElementNr"), "FH"
  Set bag = CreateObject("Scripting.Dictionary")
  bag("intKeyIndex") = 0
  pnr1.ValidatingAirlineElement bag
  Equal "129", bag("strKeyElementNr"), "FV"
  Equal "", bag("strKeyAirline"), "FV"
End Sub

Sub TestTextsAndPassengersThatBeginElsewhereThanExpected
  Dim control, quillet, pnr1
  Set control = DeskWith("5 SSR OTHS YY VIP CLIENT|12 SSR DOCS AF HK1/P/FRA/12345/P1|13 SSR DOCS AF HK1//FRA/P12345/P1")
  Set quillet = CreateObject("Wendrill23.CQuillet")
  Set pnr1 = CreateObject("Wendrill23.CPNR")
  quillet.RetrieveCurrent
  Equal "IP CLIENT", ValueOf(pnr1, "SSR", 0, "strKeyFreeText"), "OTHS under one digit"
  Equal "/FRA/12345/P1", ValueOf(pnr1, "SSR", 1, "strKeyPasAsso"), "DOCS of type P"
  Equal "12345/P1", ValueOf(pnr1, "SSR", 2, "strKeyPasAsso"), "DOCS with a P in the number"
End Sub

Sub TestTheFieldsOfOneLineAreTheSecurityEntries
  Dim control, quillet, pnr1
  Set control = DeskWith("  * ES/G PARXX0100-R/B LONXX0200-B")
  Set quillet = CreateObject("Wendrill23.CQuillet")
  Set pnr1 = CreateObject("Wendrill23.CPNR")
  quillet.RetrieveCurrent
  Equal 2, pnr1.SecurityElementsCount, "on one line"
  Equal "G", ValueOf(pnr1, "ES", 0, "strKeyAccessMode"), "on one line"
  Equal "LONXX0200-B", ValueOf(pnr1, "ES", 1, "strKeyOfficeID"), "on one line"
End Sub

Sub TestTheLinesOfAListAreTheSecurityEntriesTheFirstOneToo
  Dim control, quillet, pnr1, bag
  Set control = DeskWith("  * ES/G PARXX0100|B LONXX0200-B")
  Set quillet = CreateObject("Wendrill23.CQuillet")
  Set pnr1 = CreateObject("Wendrill23.CPNR")
  quillet.RetrieveCurrent
  Equal 2, pnr1.SecurityElementsCount, "a list"
  Set bag = ElementOf(pnr1, "ES", 0)
  Equal "", bag("strKeyAccessMode"), "the line with the marker"
  Equal "* ES/G PARXX0100", bag("strKeyOfficeID"), "the line with the marker"
  Equal "B", ValueOf(pnr1, "ES", 1, "strKeyAccessMode"), "a list"
End Sub
