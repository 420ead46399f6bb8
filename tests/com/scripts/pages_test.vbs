' Responses that are longer than a screen, and the first line and number of pages of a display.
Option Explicit

' Five pages under one title, each ended by a mark with its number, such as ")> 1/ 5".
Function Numbered(mark)
  Dim page(4), number
  For number = 1 To 5
    page(number - 1) = "TITLE|LINE " & number & "|" & mark & " " & number & "/ 5"
  Next
  Numbered = page
End Function

Function WideMark()
  WideMark = ">" & Space(49) & "PAGE "
End Function

' What reaches the terminal when an entry brings five pages.
Function SentWithFourMore(entry)
  SentWithFourMore = "send " & entry & " | send MD | send MD | send MD | send MD"
End Function

' --- Five pages in each marker style

Sub TestFivePagesInTheShortMarkerStyle
  Dim control, quillet
  Set control = Simulator(SessionWith(Answer("TQ", 0, Numbered(")>"))))
  Set quillet = CreateObject("Wendrill23.CQuillet")
  Equal Rows("TITLE|LINE 1|LINE 2|LINE 3|LINE 4|LINE 5|)> 5/ 5"), quillet.SendCommandGetAll("TQ"), _
    "the title once, the number of the last page"
  Equal "key 322 | " & SentWithFourMore("TQ"), Journal(), "what reached the terminal"
End Sub

Sub TestFivePagesInTheWideMarkerStyle
  Dim control, quillet
  Set control = Simulator(SessionWith(Answer("AN", 0, Numbered(WideMark()))))
  Set quillet = CreateObject("Wendrill23.CQuillet")
  Equal Rows("TITLE|LINE 1|LINE 2|LINE 3|LINE 4|LINE 5|" & WideMark() & " 5/ 5"), quillet.SendCommandGetAll("AN"), _
    "the title once, the number of the last page"
  Equal "key 322 | " & SentWithFourMore("AN"), Journal(), "what reached the terminal"
End Sub

Sub TestFivePagesInTheContinuationStyle
  Dim control, quillet
  Set control = Simulator(SessionWith(Answer("HE", 23, Array("HELP|LINE 1|MORE", "HELP|LINE 2|MORE", _
    "HELP|LINE 3|MORE", "HELP|LINE 4|MORE", "HELP|LINE 5"))))
  Set quillet = CreateObject("Wendrill23.CQuillet")
  Equal Rows("HELP|LINE 1|HELP|LINE 2|HELP|LINE 3|HELP|LINE 4|HELP|LINE 5"), quillet.SendCommandGetAll("HE"), _
    "every title stays: only numbered pages drop what they repeat"
  Equal "key 322 | " & SentWithFourMore("HE"), Journal(), "what reached the terminal"
End Sub

' A prompt after the last whole row moves no row.
Sub TestAPromptAfterTheLastRowHidesNoContinuation
  Dim control, quillet, prompt
  For Each prompt In Array("", ">", "> ", Left(Row("> HE"), 79))
    Set control = Simulator(SessionWith(Answer("HE", 0, Array(Rows("HELP|LINE 1|MORE") & prompt, _
      Rows("HELP|LINE 2"))) & "raw = true" & vbLf))
    Set quillet = CreateObject("Wendrill23.CQuillet")
    Equal Rows("HELP|LINE 1|HELP|LINE 2"), quillet.SendCommandGetAll("HE"), "after the last row: """ & prompt & """"
    Equal "key 322 | send HE | send MD", Journal(), "what reached the terminal"
    Set quillet = Nothing
  Next
End Sub

Sub TestFivePagesInThePnrStyle
  Dim control, quillet
  Set control = Simulator(SessionWith(Answer("RT", 22, Array( _
    "--- TC-BIZ RLP ---|RP/PARXX0100/PARXX0100|  1.SMITH/JOHN MR|MORE", "  2  AF 123 Y|MORE", "  3  AF 456 Y|MORE", _
    "  4 AP PARIS|MORE", "  5 RM WINDOW"))))
  Set quillet = CreateObject("Wendrill23.CQuillet")
  Equal Rows("RP/PARXX0100/PARXX0100|  1.SMITH/JOHN MR|  2  AF 123 Y|  3  AF 456 Y|  4 AP PARIS|  5 RM WINDOW"), _
    quillet.SendCommandGetAll("RT"), "the PNR without the title above it"
  Equal "key 322 | " & SentWithFourMore("RT"), Journal(), "what reached the terminal"
End Sub

' --- Marks

Sub TestEqualPageNumbersEndTheCollectionAtOnceEvenBesideAMoreMarker
  Dim control, quillet
  Set control = Simulator(SessionWith(Answer("TQ", 0, Array("LINE|)> 3/ 3|MORE", "NEVER SHOWN"))))
  Set quillet = CreateObject("Wendrill23.CQuillet")
  Equal Rows("LINE|)> 3/ 3|MORE"), quillet.SendCommandGetAll("TQ"), "response"
  Equal "key 322 | send TQ", Journal(), "what reached the terminal"
End Sub

Sub TestAMarkWithoutASlashIsNoPageNumber
  Dim control, quillet
  Set control = Simulator(SessionWith(Answer("TQ", 0, Array("LINE|)> 7", "NEVER SHOWN"))))
  Set quillet = CreateObject("Wendrill23.CQuillet")
  Equal Rows("LINE|)> 7"), quillet.SendCommandGetAll("TQ"), "response"
  Equal "key 322 | send TQ", Journal(), "what reached the terminal"
End Sub

Sub TestMoreMayStandAtTheHeadOfTheLastButOneRow
  Dim control, quillet
  Set control = Simulator(SessionWith(Answer("HE", 0, Array("ONE|TWO|MORE|>", "THREE"))))
  Set quillet = CreateObject("Wendrill23.CQuillet")
  Equal Rows("ONE|TWO|THREE"), quillet.SendCommandGetAll("HE"), "response"
End Sub

Sub TestMoreElsewhereIsText
  Dim control, quillet, page
  Set control = Simulator(SessionWith(Answer("HE", 0, Array("ONE|MORE|THREE|FOUR", "NEVER SHOWN")) & _
    Answer("HF", 0, Array("ONE|TWO|  MORE|FOUR", "NEVER SHOWN"))))
  Set quillet = CreateObject("Wendrill23.CQuillet")
  Equal Rows("ONE|MORE|THREE|FOUR"), quillet.SendCommandGetAll("HE"), "in an earlier row"
  Equal Rows("ONE|TWO|  MORE|FOUR"), quillet.SendCommandGetAll("HF"), "inside a row"
  Equal "key 322 | send HE | key 322 | send HF", Journal(), "what reached the terminal"
End Sub

' --- First lines

Sub TestAResponseOfOnePageIsReturnedAsItCame
  Dim control, quillet
  Set control = Simulator(SessionWith(Answer("HE", 0, Array("  HELP|LINE"))))
  Set quillet = CreateObject("Wendrill23.CQuillet")
  Equal Rows("  HELP|LINE"), quillet.SendCommandGetAll("HE"), "SendCommandGetAll"
  Equal Rows("  HELP|LINE"), quillet.SendCommandGetAllNoClear("HE"), "SendCommandGetAllNoClear"
  Equal Rows("  HELP|LINE"), quillet.GetTotalHostResponse, "GetTotalHostResponse"
End Sub

Sub TestABlankFirstLineIsDropped
  Dim control, quillet
  Set control = Simulator(SessionWith(Answer("HE", 0, Array("|HELP|LINE")) & _
    Answer("TQ", 0, Array("|ONE|)> 1/ 2", "|TWO|)> 2/ 2"))))
  Set quillet = CreateObject("Wendrill23.CQuillet")
  Equal Rows("HELP|LINE"), quillet.SendCommandGetAll("HE"), "one page"
  Equal Rows("ONE|TWO|)> 2/ 2"), quillet.SendCommandGetAll("TQ"), "each page"
End Sub

Sub TestAnEntryWithPF24DropsTheFirstLineOfEveryPage
  Dim control, quillet
  Set control = Simulator(SessionWith(Answer("XXPF24", 0, Array("HEAD 1|ONE|)> 1/ 2", "HEAD 2|TWO|)> 2/ 2"))))
  Set quillet = CreateObject("Wendrill23.CQuillet")
  Equal Rows("ONE|TWO|)> 2/ 2"), quillet.SendCommandGetAll("XXPF24"), "response"
End Sub

Sub TestAnEntryWith4505DropsTheFirstLineOfEveryPage
  Dim control, quillet
  Set control = Simulator(SessionWith(Answer("4505", 0, Array("HEAD 1|ONE|)> 1/ 2", "HEAD 2|TWO|)> 2/ 2"))))
  Set quillet = CreateObject("Wendrill23.CQuillet")
  Equal Rows("ONE|TWO|)> 2/ 2"), quillet.SendCommandGetAll("4505"), "response"
End Sub

Sub TestAPnrDisplayIsReturnedWithoutItsTitle
  Dim control, quillet
  Set control = Simulator(SessionWith(Answer("RT1", 22, Array("--- TC-BIZ RLP ---|RP/PARXX0100")) & _
    Answer("RT2", 22, Array("--- TST TC-BIZ RLP ---|RP/PARXX0100")) & _
    Answer("RT3", 22, Array("RP/PARXX0100|  1.SMITH")) & _
    Answer("HE", 0, Array("--- TC-BIZ RLP ---|RP/PARXX0100"))))
  Set quillet = CreateObject("Wendrill23.CQuillet")
  Equal Row("RP/PARXX0100"), quillet.SendCommandGetAll("RT1"), "the title"
  Equal Row("RP/PARXX0100"), quillet.SendCommandGetAll("RT2"), "the title of a PNR with a TST"
  Equal Rows("RP/PARXX0100|  1.SMITH"), quillet.SendCommandGetAll("RT3"), "a PNR without a title"
  Equal Rows("--- TC-BIZ RLP ---|RP/PARXX0100"), quillet.SendCommandGetAll("HE"), "no PNR"
End Sub

' --- The members' own ways

Sub TestGetAllNoClearPressesNoClearKey
  Dim control, quillet
  Set control = Simulator(SessionWith(Answer("TQ", 0, Numbered(")>"))))
  Set quillet = CreateObject("Wendrill23.CQuillet")
  Equal Rows("TITLE|LINE 1|LINE 2|LINE 3|LINE 4|LINE 5|)> 5/ 5"), quillet.SendCommandGetAllNoClear("TQ"), "response"
  Equal SentWithFourMore("TQ"), Journal(), "what reached the terminal"
End Sub

Sub TestGetTotalHostResponseCollectsWhatIsOnTheScreen
  Dim control, quillet
  Set control = Simulator(SessionWith(Answer("TQ", 0, Numbered(")>")) & _
    Answer("HE", 23, Array("HELP|LINE 1|MORE", "LINE 2")) & Answer("XXPF24", 0, Array("HEAD|LINE"))))
  Set quillet = CreateObject("Wendrill23.CQuillet")
  Equal Rows("TITLE|LINE 1|)> 1/ 5"), quillet.SendCommand("TQ"), "the first page"
  Journal
  Equal Rows("TITLE|LINE 1|LINE 2|LINE 3|LINE 4|LINE 5|)> 5/ 5"), quillet.GetTotalHostResponse, "all pages"
  Equal "send MD | send MD | send MD | send MD", Journal(), "the first page is not asked for again"
  quillet.SendCommand "HE"
  Equal Rows("HELP|LINE 1|LINE 2"), quillet.GetTotalHostResponse(), "called like a method"
  quillet.SendCommand "XXPF24"
  Equal Row("LINE"), quillet.GetTotalHostResponse, "the entry is the one that brought the screen"
End Sub

Sub TestAlarmEntriesHoldTheLockUntilTheLastPage
  Dim control, quillet, text, page
  Set control = Simulator(SessionWith(Answer("QE1", 0, Array("ONE|)> 1/ 2", "TWO|)> 2/ 2"))))
  Set quillet = CreateObject("Wendrill23.CQuillet")
  text = quillet.SendCommandGetAllNoClear("QE1")
  Equal "alarm lock | send QE1 | send MD | alarm unlock", Journal(), "SendCommandGetAllNoClear"
  text = quillet.SendCommandGetAll("QE1")
  Equal "key 322 | alarm lock | send QE1 | send MD | alarm unlock", Journal(), "SendCommandGetAll"
  text = quillet.SendCommandCollectPages("QE1", page)
  Equal "alarm lock | send QE1 | send MD | alarm unlock", Journal(), "SendCommandCollectPages"
End Sub

Sub TestAnEmptyEntryCollectsNothing
  Dim control, quillet, page
  Set control = Simulator("")
  Set quillet = CreateObject("Wendrill23.CQuillet")
  Equal "", quillet.SendCommandGetAll(""), "SendCommandGetAll"
  Equal "", quillet.SendCommandGetAllNoClear(""), "SendCommandGetAllNoClear"
  Equal "", quillet.SendCommandLines("", "1", "1"), "SendCommandLines"
  Equal "", quillet.SendCommandCollectPages("", page), "SendCommandCollectPages"
  Check IsArray(page), "there is an array of pages"
  Equal CLng(0), CLng(UBound(page)), "and no page in it"
  Equal "", Journal(), "what reached the terminal"
End Sub

' --- The pages one by one

Sub TestThePagesComeBackInAPlainVariableCountedFrom1
  Dim control, quillet, page, number
  Set control = Simulator(SessionWith(Answer("TQ", 0, Numbered(")>"))))
  Set quillet = CreateObject("Wendrill23.CQuillet")
  Equal Rows("TITLE|LINE 1|LINE 2|LINE 3|LINE 4|LINE 5|)> 5/ 5"), quillet.SendCommandCollectPages("TQ", page), _
    "the whole response"
  Equal SentWithFourMore("TQ"), Journal(), "what reached the terminal"
  Check IsArray(page), "an array came back"
  Equal CLng(1), CLng(LBound(page)), "the first page's number"
  Equal CLng(5), CLng(UBound(page)), "the last page's number"
  For number = 1 To 5
    Equal Rows("TITLE|LINE " & number & "|)> " & number & "/ 5"), page(number), "page " & number & ", whole"
  Next
End Sub

Sub TestEachMarkerStyleHandsItsPagesBack
  Dim control, quillet, page, text
  Set control = Simulator(SessionWith(Answer("AN", 0, Numbered(WideMark())) & _
    Answer("HE", 23, Array("ONE|MORE", "TWO|MORE", "THREE|MORE", "FOUR|MORE", "FIVE")) & _
    Answer("RT", 22, Array("--- TC-BIZ RLP ---|RP/PARXX0100|MORE", "TWO|MORE", "THREE|MORE", "FOUR|MORE", "FIVE"))))
  Set quillet = CreateObject("Wendrill23.CQuillet")
  text = quillet.SendCommandCollectPages("AN", page)
  Equal CLng(5), CLng(UBound(page)), "pages with the wide mark"
  Equal Rows("TITLE|LINE 3|" & WideMark() & " 3/ 5"), page(3), "the third of them"
  text = quillet.SendCommandCollectPages("HE", page)
  Equal CLng(5), CLng(UBound(page)), "pages with the continuation mark"
  Equal Row("FIVE"), page(5), "the last of them"
  text = quillet.SendCommandCollectPages("RT", page)
  Equal CLng(5), CLng(UBound(page)), "pages of a PNR"
  Equal Rows("--- TC-BIZ RLP ---|RP/PARXX0100|MORE"), page(1), "the first of them, as the host showed it"
End Sub

Sub TestOnePageComesBackAsAnArrayOfOne
  Dim control, quillet, page, text
  Set control = Simulator(SessionWith(Answer("HE", 0, Array("HELP"))))
  Set quillet = CreateObject("Wendrill23.CQuillet")
  text = quillet.SendCommandCollectPages("HE", page)
  Equal CLng(1), CLng(LBound(page)), "first"
  Equal CLng(1), CLng(UBound(page)), "last"
  Equal Row("HELP"), page(1), "the page"
End Sub

Sub TestWhateverTheVariableHeldMakesRoomForThePages
  Dim control, quillet, held, page, text
  Set control = Simulator(SessionWith(Answer("HE", 0, Array("HELP"))))
  Set quillet = CreateObject("Wendrill23.CQuillet")
  For Each held In Array(Empty, Null, "text", 5, True, Array(1, 2, 3), Array())
    page = held
    text = quillet.SendCommandCollectPages("HE", page)
    Equal Row("HELP"), page(1), "after " & Shown(held)
  Next
  Set page = Nothing
  text = quillet.SendCommandCollectPages("HE", page)
  Equal Row("HELP"), page(1), "after Nothing"
  Set page = CreateObject("Pellorin.ParamBag")
  text = quillet.SendCommandCollectPages("HE", page)
  Equal Row("HELP"), page(1), "after an object"
End Sub

Sub TestDeclaredArraysTakeThePagesUnlessTheyHaveBounds
  Dim control, quillet, text, growing(), fixed(3)
  Set control = Simulator(SessionWith(Answer("HE", 0, Array("HELP"))))
  Set quillet = CreateObject("Wendrill23.CQuillet")
  text = quillet.SendCommandCollectPages("HE", growing)
  Equal Row("HELP"), growing(1), "an array without bounds"
  fixed(1) = "kept"
  control.ClearJournal
  On Error Resume Next
  text = quillet.SendCommandCollectPages("HE", fixed)
  Equal CLng(10), Err.Number, "fixed or locked"
  Err.Clear
  Equal "kept", fixed(1), "the array is as it was"
  Equal "", Journal(), "nothing was sent"
End Sub

' A procedure's own by-reference parameter is a reference to a reference.
Sub CollectInto(quillet, entry, pages)
  Dim text
  text = quillet.SendCommandCollectPages(entry, pages)
End Sub

Sub TestThePagesReachAVariableThroughAProcedure
  Dim control, quillet, page
  Set control = Simulator(SessionWith(Answer("TQ", 0, Numbered(")>"))))
  Set quillet = CreateObject("Wendrill23.CQuillet")
  CollectInto quillet, "TQ", page
  Equal CLng(5), CLng(UBound(page)), "the last page's number"
  Equal Rows("TITLE|LINE 3|)> 3/ 5"), page(3), "the third page"
  CollectInto quillet, "TQ", page
  Equal CLng(5), CLng(UBound(page)), "and once more"
End Sub

Sub TestAValueInPlaceOfAVariableLosesThePagesAlone
  Dim control, quillet, page
  Set control = Simulator(SessionWith(Answer("HE", 0, Array("HELP"))))
  Set quillet = CreateObject("Wendrill23.CQuillet")
  Equal Row("HELP"), quillet.SendCommandCollectPages("HE", (page)), "a copy of the variable"
  Check IsEmpty(page), "the variable is as it was"
  Equal Row("HELP"), quillet.SendCommandCollectPages("HE", 0), "a number"
End Sub

' --- Lines of a display

Sub TestLinesByNumberEndAtEqualPageNumbers
  Dim control, quillet
  Set control = Simulator(SessionWith(Answer("DO1", 0, Array("ONE|)> 1/ 2", "TWO|)> 2/ 2", "NO MORE PAGES"))))
  Set quillet = CreateObject("Wendrill23.CQuillet")
  Equal Rows("ONE|)> 1/ 2|TWO|)> 2/ 2"), quillet.SendCommandLines("DO1", "", ""), "both pages"
  Equal "send DO1 | send MD", Journal(), "what reached the terminal"
End Sub

Sub TestLinesByNumberDropAPageThatRepeatsTheOneBefore
  Dim control, quillet
  Set control = Simulator(SessionWith(Answer("DO1", 0, Array("ONE", "TWO", "TWO", "NEVER SHOWN"))))
  Set quillet = CreateObject("Wendrill23.CQuillet")
  Equal Rows("ONE|TWO"), quillet.SendCommandLines("DO1", "", ""), "the second page once"
  Equal "send DO1 | send MD | send MD", Journal(), "what reached the terminal"
End Sub

Function Flight()
  Flight = SessionWith(Answer("DO1", 0, Array("ONE|TWO", "THREE|FOUR", "FIVE|END OF DISPLAY", "NEVER SHOWN")))
End Function

Sub TestLinesGoOnToTheEndOfTheDisplay
  Dim control, quillet
  Set control = Simulator(Flight())
  Set quillet = CreateObject("Wendrill23.CQuillet")
  Equal Rows("ONE|TWO|THREE|FOUR|FIVE|END OF DISPLAY"), quillet.SendCommandLines("DO1", "1", "0"), "response"
  Equal "send DO1 | send MD | send MD", Journal(), "what reached the terminal"
End Sub

Sub TestAFullStopAloneEndsADisplay
  Dim control, quillet
  Set control = Simulator(SessionWith(Answer("DO1", 0, Array("ONE.", "TWO|.| ", "NEVER SHOWN"))))
  Set quillet = CreateObject("Wendrill23.CQuillet")
  Equal Rows("ONE.|TWO|.| "), quillet.SendCommandLines("DO1", "", ""), "response"
  Equal "send DO1 | send MD", Journal(), "what reached the terminal"
End Sub

Sub TestLinesBeginAtTheFirstLineAskedFor
  Dim control, quillet
  Set control = Simulator(Flight())
  Set quillet = CreateObject("Wendrill23.CQuillet")
  Equal Rows("FOUR|FIVE|END OF DISPLAY"), quillet.SendCommandLines("DO1", "4", ""), "line 4"
  Equal Rows("FOUR|FIVE|END OF DISPLAY"), quillet.SendCommandLines("DO1", 4, ""), "a number serves as text"
  Equal Row("END OF DISPLAY"), quillet.SendCommandLines("DO1", "6", ""), "the last line"
  Equal "", quillet.SendCommandLines("DO1", "7", ""), "behind the last line"
  Equal Rows("ONE|TWO|THREE|FOUR|FIVE|END OF DISPLAY"), quillet.SendCommandLines("DO1", "", ""), "no line"
  Equal Rows("ONE|TWO|THREE|FOUR|FIVE|END OF DISPLAY"), quillet.SendCommandLines("DO1", "X", ""), "no number"
  Equal Rows("ONE|TWO|THREE|FOUR|FIVE|END OF DISPLAY"), quillet.SendCommandLines("DO1", "-1", ""), "in front of line 1"
End Sub

Sub TestLinesReadTheNumberOfPagesAskedFor
  Dim control, quillet
  Set control = Simulator(Flight())
  Set quillet = CreateObject("Wendrill23.CQuillet")
  Equal Rows("ONE|TWO"), quillet.SendCommandLines("DO1", "1", "1"), "one page"
  Equal "send DO1", Journal(), "one page"
  Equal Rows("ONE|TWO|THREE|FOUR"), quillet.SendCommandLines("DO1", "", 2), "two pages"
  Equal "send DO1 | send MD", Journal(), "two pages"
  Equal Rows("TWO|THREE|FOUR"), quillet.SendCommandLines("DO1", 2, 2), "two pages from line 2 on"
  Equal Rows("ONE|TWO|THREE|FOUR|FIVE|END OF DISPLAY"), quillet.SendCommandLines("DO1", "1", "99"), "all there are"
End Sub

' --- Failures

Sub TestARefusedClearKeyIs2525
  Dim control, quillet, text
  Set control = Simulator("[terminal]" & vbLf & "refuses = [322]" & vbLf & SessionWith(Answer("HE", 0, Array("HELP"))))
  Set quillet = CreateObject("Wendrill23.CQuillet")
  On Error Resume Next
  text = quillet.SendCommandGetAll("HE")
  RaisedOwn 2525, "SendCommandGetAll"
  Equal "key 322", Journal(), "nothing was sent"
  text = quillet.SendCommandGetAllNoClear("HE")
  RaisedNothing "SendCommandGetAllNoClear needs no clear key"
End Sub

Sub TestAFailingSendRaisesTheMembersOwnNumber
  Dim control, quillet, text, page
  Set control = Simulator("")
  Set quillet = CreateObject("Wendrill23.CQuillet")
  On Error Resume Next
  control.FailNext "Send", &H80004005, 1
  text = quillet.SendCommandGetAll("HE")
  RaisedOwn 2525, "SendCommandGetAll"
  control.FailNext "Send", &H80004005, 1
  text = quillet.SendCommandGetAllNoClear("HE")
  RaisedOwn 2525, "SendCommandGetAllNoClear"
  control.FailNext "LastResponse", &H80004005, 1
  text = quillet.GetTotalHostResponse
  RaisedOwn 2545, "GetTotalHostResponse"
  control.FailNext "Send", &H80004005, 1
  text = quillet.SendCommandLines("HE", "1", "1")
  RaisedOwn 2600, "SendCommandLines"
  control.FailNext "Send", &H80004005, 1
  text = quillet.SendCommandCollectPages("HE", page)
  RaisedOwn 2557, "SendCommandCollectPages"
  Check IsEmpty(page), "the variable is as it was"
  text = quillet.SendCommandGetAll("HE")
  RaisedNothing "the next call"
End Sub

Sub TestAPageThatFailsRaisesTheMembersOwnNumberAndGivesTheLockBack
  Dim control, quillet, text, page
  Set control = Simulator(SessionWith(Answer("QE1", 0, Numbered(")>"))))
  Set quillet = CreateObject("Wendrill23.CQuillet")
  page = "untouched"
  On Error Resume Next
  control.FailNext "Send", &H80004005, 3
  text = quillet.SendCommandGetAll("QE1")
  RaisedOwn 2525, "SendCommandGetAll"
  Equal "key 322 | alarm lock | send QE1 | send MD | send MD | alarm unlock", Journal(), "SendCommandGetAll"
  control.FailNext "Send", &H80004005, 3
  text = quillet.SendCommandGetAllNoClear("QE1")
  RaisedOwn 2525, "SendCommandGetAllNoClear"
  Equal "alarm lock | send QE1 | send MD | send MD | alarm unlock", Journal(), "SendCommandGetAllNoClear"
  control.FailNext "Send", &H80004005, 3
  text = quillet.SendCommandCollectPages("QE1", page)
  RaisedOwn 2557, "SendCommandCollectPages"
  Equal "alarm lock | send QE1 | send MD | send MD | alarm unlock", Journal(), "SendCommandCollectPages"
  Equal "untouched", page, "the variable of the pages"
  control.FailNext "Send", &H80004005, 3
  text = quillet.SendCommandLines("QE1", "", "")
  RaisedOwn 2600, "SendCommandLines"
  text = quillet.SendCommand("QE1")
  control.FailNext "Send", &H80004005, 2
  text = quillet.GetTotalHostResponse
  RaisedOwn 2545, "GetTotalHostResponse"
End Sub

Sub TestAfterStopLoopEveryCollectionFailsUntilASessionIsConnected
  Dim control, quillet, other, text, page
  Set control = Simulator(SessionWith(Answer("HE", 0, Array("HELP"))))
  Set quillet = CreateObject("Wendrill23.CQuillet")
  Set other = CreateObject("Wendrill23.CQuillet")
  text = quillet.SendCommandGetAll("HE")
  quillet.StopLoop
  On Error Resume Next
  text = other.SendCommandGetAll("HE")
  RaisedOwn 2525, "SendCommandGetAll"
  text = other.SendCommandGetAllNoClear("HE")
  RaisedOwn 2525, "SendCommandGetAllNoClear"
  text = other.GetTotalHostResponse
  RaisedOwn 2545, "GetTotalHostResponse"
  text = other.SendCommandLines("HE", "1", "1")
  RaisedOwn 2600, "SendCommandLines"
  text = other.SendCommandCollectPages("HE", page)
  RaisedOwn 2557, "SendCommandCollectPages"
  quillet.ConnectSession "A"
  Equal Row("HELP"), other.SendCommandGetAll("HE"), "after connecting again"
  RaisedNothing "after connecting again"
End Sub

Sub TestAPageCountBeyond32BitsIs2600
  Dim control, quillet, text
  Set control = Simulator(Flight())
  Set quillet = CreateObject("Wendrill23.CQuillet")
  On Error Resume Next
  text = quillet.SendCommandLines("DO1", "1", "99999999999")
  RaisedOwn 2600, "pages"
  text = quillet.SendCommandLines("DO1", "99999999999", "1")
  RaisedOwn 2600, "first line"
  Equal "", Journal(), "nothing was sent"
End Sub

Sub TestWrongArgumentsAreRefused
  Dim quillet, text, page
  Set quillet = CreateObject("Wendrill23.CQuillet")
  Simulator ""
  On Error Resume Next
  text = quillet.SendCommandGetAll()
  Equal CLng(450), Err.Number, "SendCommandGetAll without an entry"
  Err.Clear
  text = quillet.SendCommandLines("HE", "1")
  Equal CLng(450), Err.Number, "SendCommandLines without a number of pages"
  Err.Clear
  text = quillet.SendCommandCollectPages("HE")
  Equal CLng(450), Err.Number, "SendCommandCollectPages without a variable"
  Err.Clear
  text = quillet.GetTotalHostResponse("HE")
  Equal CLng(450), Err.Number, "GetTotalHostResponse with an entry"
  Err.Clear
  text = quillet.SendCommandGetAll(Null)
  Equal CLng(13), Err.Number, "SendCommandGetAll of Null"
  Err.Clear
  text = quillet.SendCommandGetAll(Nothing)
  Equal CLng(13), Err.Number, "SendCommandGetAll of Nothing"
  Err.Clear
  text = quillet.SendCommandGetAll(quillet)
  Equal CLng(13), Err.Number, "SendCommandGetAll of an object"
  Err.Clear
  text = quillet.SendCommandLines("HE", Array(1), "1")
  Equal CLng(13), Err.Number, "SendCommandLines from an array on"
  Err.Clear
  Equal "", Journal(), "nothing was sent"
End Sub
