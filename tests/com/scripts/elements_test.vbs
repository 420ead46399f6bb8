' The generic element access: IGetPNR.Elements, called by its name on a CPNR.
Option Explicit

' A bag that asks for an element of a kind.
Function Asking(kind, index)
  Dim bag
  Set bag = BagAt(index)
  bag("strKeyPNRElement") = kind
  Set Asking = bag
End Function

Sub CompareRecords(file, className)
  Dim control, quillet, pnr, records, heading
  Set control = RichDesk()
  Set quillet = CreateObject("Wendrill23.CQuillet")
  Set pnr = CreateObject("Wendrill23.CPNR")
  quillet.RetrieveCurrent
  Set records = RecordsIn(file)
  For Each heading In records.Keys
    CompareRecord pnr, heading, records(heading), className
  Next
End Sub

Sub CompareRecord(pnr, heading, expected, className)
  Dim bag, given, result, raisedText
  Set bag = NewBag(className, IndexIn(heading))
  bag("strKeyPNRElement") = NameIn(heading)
  given = BagText(bag)
  On Error Resume Next
  Set result = pnr.Elements(bag)
  raisedText = ErrorText(heading)
  If raisedText = "" Then Check result Is Nothing, heading & " returns Nothing"
  EqualLines given & expected, BagText(bag) & raisedText, heading
End Sub

' A PNR on display.
Function Desk(keys)
  Desk = "[[session]]" & vbLf & "name = 'A'" & vbLf & "[[pnr]]" & vbLf & "on_display = true" & vbLf & keys
End Function

' Its display, lines joined with "|".
Function Display(lines)
  Display = "display = '''" & vbLf & Replace(lines, "|", vbLf) & vbLf & "'''" & vbLf
End Function

' What the search for prefixes finds: "28 RM PAY|29 RM WINDOW".
Function Found(pnr, prefixes)
  Dim bag, result, texts, numbers, index, text
  Set bag = CreateObject("Pellorin.ParamBag")
  bag("strKeyPNRElement") = "ALL"
  bag("strKeyFind()") = prefixes
  Set result = pnr.Elements(bag)
  texts = result("strKeyResult()")
  numbers = result("strKeyElementNbrs()")
  Equal CLng(1), LBound(texts), "lower bound of the texts"
  Equal CLng(1), LBound(numbers), "lower bound of the numbers"
  Equal UBound(texts), UBound(numbers), "as many numbers as texts"
  text = ""
  For index = 1 To UBound(texts)
    If index > 1 Then text = text & "|"
    text = text & numbers(index) & " " & texts(index)
  Next
  Found = text
End Function

' --- The rich PNR

Sub TestKindsOfTheDisplay
  CompareRecords "kinds_of_the_display", "Pellorin.ParamBag"
End Sub

Sub TestKindsOfTheToolkit
  CompareRecords "kinds_of_the_toolkit", "Pellorin.ParamBag"
End Sub

Sub TestADictionaryServesAsBag
  CompareRecords "kinds_of_the_display", "Scripting.Dictionary"
  CompareRecords "kinds_of_the_toolkit", "Scripting.Dictionary"
End Sub

Sub TestTheFilesHoldEveryKindButAll
  Dim kinds, kind, file, heading
  Set kinds = CreateObject("Scripting.Dictionary")
  For Each kind In Array("ATX", "* SP", "SUR", "FH", "FA", "FE", "FS", "OSI", "SSR", "ES", "MIS", "MCO", "INS", "HTL")
    kinds(kind) = True
  Next
  For Each file In Array("kinds_of_the_display", "kinds_of_the_toolkit")
    For Each heading In RecordsIn(file).Keys
      If kinds.Exists(NameIn(heading)) Then kinds.Remove NameIn(heading)
    Next
  Next
  Equal CLng(0), kinds.Count, "kinds without a record"
End Sub

' --- The kind

Sub TestAnEmptyOrUnknownKindDoesNothing
  Dim control, quillet, pnr, kind, bag
  Set control = RichDesk()
  Set quillet = CreateObject("Wendrill23.CQuillet")
  Set pnr = CreateObject("Wendrill23.CPNR")
  quillet.RetrieveCurrent
  For Each kind In Array("", "NOPE", "ssr", "SSR ", " FS ", "*SP", "all", Empty, 5)
    Set bag = Asking(kind, 0)
    Check pnr.Elements(bag) Is Nothing, "'" & kind & "' returns Nothing"
    Equal CLng(2), bag.Count, "'" & kind & "' writes nothing"
  Next
  Set bag = BagAt(0)
  Check pnr.Elements(bag) Is Nothing, "without a kind it returns Nothing"
  Equal CLng(1), bag.Count, "without a kind it writes nothing"
End Sub

Sub TestAKindThatIsNoTextIs2252
  Dim control, quillet, pnr, result
  Set control = RichDesk()
  Set quillet = CreateObject("Wendrill23.CQuillet")
  Set pnr = CreateObject("Wendrill23.CPNR")
  quillet.RetrieveCurrent
  On Error Resume Next
  Set result = pnr.Elements(Asking(Null, 0))
  RaisedOwn 2252, "Null"
  Set result = pnr.Elements(Asking(Array("SSR"), 0))
  RaisedOwn 2252, "an array"
  Set result = pnr.Elements(Nothing)
  RaisedOwn 2252, "Nothing as bag"
End Sub

Sub TestTheCallMayBeAStatement
  Dim control, quillet, pnr, bag
  Set control = RichDesk()
  Set quillet = CreateObject("Wendrill23.CQuillet")
  Set pnr = CreateObject("Wendrill23.CPNR")
  quillet.RetrieveCurrent
  Set bag = Asking("INS", 0)
  pnr.Elements bag
  Equal "44", bag("strKeyElementNr"), "by reference"
  Set bag = Asking("HTL", 0)
  pnr.Elements (bag)
  Equal "14", bag("strKeyElementNr"), "by value"
End Sub

' --- The index

' The number that a kind raises; 0 for the one that raises nothing and for the one whose reader raises by itself.
Function NumberOfKinds()
  Dim numbers
  Set numbers = CreateObject("Scripting.Dictionary")
  numbers.Add "ATX", 0
  numbers.Add "* SP", 2259
  numbers.Add "SUR", 2258
  numbers.Add "FH", 2245
  numbers.Add "FA", 2255
  numbers.Add "FE", 2256
  numbers.Add "FS", 2251
  numbers.Add "OSI", 2249
  numbers.Add "SSR", 2247
  numbers.Add "ES", 2253
  numbers.Add "MIS", 0
  numbers.Add "MCO", 2260
  numbers.Add "INS", 2261
  numbers.Add "HTL", 2261
  Set NumberOfKinds = numbers
End Function

Sub TestAMissingIndexRaisesTheKindsNumber
  Dim control, quillet, pnr, numbers, kind, bag, result
  Set control = RichDesk()
  Set quillet = CreateObject("Wendrill23.CQuillet")
  Set pnr = CreateObject("Wendrill23.CPNR")
  quillet.RetrieveCurrent
  Set numbers = NumberOfKinds()
  On Error Resume Next
  For Each kind In numbers.Keys
    If numbers(kind) > 0 Then
      Set bag = CreateObject("Pellorin.ParamBag")
      bag("strKeyPNRElement") = kind
      Set result = pnr.Elements(bag)
      RaisedOwn numbers(kind), kind
      Equal CLng(1), bag.Count, kind & ", keys in the bag"
    End If
  Next
End Sub

Sub TestAMissingIndexMeansTheFirstMisElement
  Dim control, quillet, pnr, bag
  Set control = RichDesk()
  Set quillet = CreateObject("Wendrill23.CQuillet")
  Set pnr = CreateObject("Wendrill23.CPNR")
  quillet.RetrieveCurrent
  Set bag = CreateObject("Pellorin.ParamBag")
  bag("strKeyPNRElement") = "MIS"
  pnr.Elements bag
  Equal "16", bag("strKeySegmentNr"), "number"
End Sub

Sub TestAnIndexThatDoesNotConvertRaisesTheKindsNumber
  Dim control, quillet, pnr, numbers, kind, index, result
  Set control = RichDesk()
  Set quillet = CreateObject("Wendrill23.CQuillet")
  Set pnr = CreateObject("Wendrill23.CPNR")
  quillet.RetrieveCurrent
  Set numbers = NumberOfKinds()
  On Error Resume Next
  For Each kind In numbers.Keys
    If numbers(kind) > 0 Then
      For Each index In Array("one", "", CLng(40000), CLng(-40000), 1E300)
        Set result = pnr.Elements(Asking(kind, index))
        RaisedOwn numbers(kind), kind & " at '" & index & "'"
      Next
    End If
  Next
End Sub

Sub TestABooleanIndexRaisesTheKindsNumber
  Dim control, quillet, pnr, numbers, kind, result
  Set control = RichDesk()
  Set quillet = CreateObject("Wendrill23.CQuillet")
  Set pnr = CreateObject("Wendrill23.CPNR")
  quillet.RetrieveCurrent
  Set numbers = NumberOfKinds()
  On Error Resume Next
  For Each kind In numbers.Keys
    If numbers(kind) > 0 Then
      Set result = pnr.Elements(Asking(kind, True))
      RaisedOwn numbers(kind), kind
    End If
  Next
End Sub

Sub TestTwoKindsPassTheErrorsOfTheIndexOn
  Dim control, quillet, pnr, result
  Set control = RichDesk()
  Set quillet = CreateObject("Wendrill23.CQuillet")
  Set pnr = CreateObject("Wendrill23.CPNR")
  quillet.RetrieveCurrent
  On Error Resume Next
  Set result = pnr.Elements(Asking("MIS", "one"))
  Raised 13, "Wendrill23", "Type mismatch", "MIS at a text"
  Set result = pnr.Elements(Asking("MIS", CLng(-40000)))
  Raised 6, "Wendrill23", "Overflow", "MIS at -40000"
  Set result = pnr.Elements(Asking("MIS", CLng(40000)))
  RaisedOwn 2206, "MIS at 40000"
  Set result = pnr.Elements(Asking("ATX", "one"))
  Raised 13, "Wendrill23", "Type mismatch", "ATX at a text"
  Set result = pnr.Elements(Asking("ATX", CLng(40000)))
  RaisedNothing "ATX at 40000"
  Check result Is Nothing, "ATX at 40000 returns Nothing"
End Sub

Sub TestAnIndexIsComparedAsItIsAndThenRoundedHalfToEven
  Dim control, quillet, pnr, index, bag
  Set control = RichDesk()
  Set quillet = CreateObject("Wendrill23.CQuillet")
  Set pnr = CreateObject("Wendrill23.CPNR")
  quillet.RetrieveCurrent
  For Each index In Array(0.6, "0.6", 1, CLng(1), CDbl(1), "1", " 1 ")
    Set bag = Asking("SSR", index)
    pnr.Elements bag
    Equal "22", bag("strKeyElementNr"), "SSR at " & index
    Set bag = Asking("MIS", index)
    pnr.Elements bag
    Equal "17", bag("strKeySegmentNr"), "MIS at " & index
  Next
  For Each index In Array(2.5, 1.5, "2.5")
    Set bag = Asking("SSR", index)
    pnr.Elements bag
    Equal "23", bag("strKeyElementNr"), "SSR at " & index
  Next
  On Error Resume Next
  Set bag = Asking("SSR", 4.9)
  pnr.Elements bag
  RaisedOwn 2247, "SSR at 4.9 of 5: below the count, but position 5 is none"
  Equal CLng(2), bag.Count, "it writes nothing"
  Set bag = Asking("MIS", 1.9)
  pnr.Elements bag
  RaisedNothing "MIS at 1.9 of 2"
  Equal CLng(2), bag.Count, "it writes nothing"
End Sub

Sub TestKindsThatStandAtIndex1GiveTheirFirstButNotTheirLast
  Dim control, quillet, pnr, bag
  Set control = Simulator(Desk(Display("HEADER|* SP 11JUN/AMSU/PARXX0100-QRS456|* SP 12JUN/AMSU/PARXX0100-TUV789" & _
    "|15  ATX QT HK1 NCECDG 20JUN-TAXI TO TERMINAL 2|16  ATX QT HK1 CDGNCE 22JUN|45 MCO AF PAR 12JUN/EUR50.00/*EXCESS BAGGAGE/P1" & _
    "|   FA PAX 057-4000000001/ETAF|   FP CASH|   FM 0|46 MCO AF PAR 13JUN")))
  Set quillet = CreateObject("Wendrill23.CQuillet")
  Set pnr = CreateObject("Wendrill23.CPNR")
  quillet.RetrieveCurrent
  Set bag = Asking("* SP", 1)
  pnr.Elements bag
  Equal "* SP 11JUN/AMSU/PARXX0100-QRS456", bag("strKeyElement"), "split party"
  Equal "QRS456", bag("strKeyRecLoc"), "its locator"
  Set bag = Asking("ATX", 1)
  pnr.Elements bag
  EqualLines "intKeyIndex = int16 1" & vbLf & "strKeyPNRElement = ""ATX""" & vbLf & _
    "strKeySegment = """ & Row("15  ATX QT HK1 NCECDG 20JUN-TAXI TO TERMINAL 2") & """" & vbLf & _
    "strKeySegmentNr = ""15""" & vbLf & "strKeyDepCity = ""NCE""" & vbLf & "strKeyArrCity = ""CDG""" & vbLf & _
    "strKeyProvider = ""QT""" & vbLf & "strKeyDepDate = ""20JUN""" & vbLf & _
    "strKeyFreeText = ""TAXI TO TERMINAL 2""" & vbLf & "strKeyStatus = ""HK1""" & vbLf, BagText(bag), "ATX"
  Set bag = Asking("MCO", 1)
  pnr.Elements bag
  EqualLines "intKeyIndex = int16 1" & vbLf & "strKeyPNRElement = ""MCO""" & vbLf & _
    "strKeyElement = ""MCO AF PAR 12JUN/EUR50.00/*EXCESS BAGGAGE/P1""" & vbLf & "strKeyElementNr = ""45""" & vbLf & _
    "strKeyAirline = ""AF""" & vbLf & "strKeyOrigin = ""PAR""" & vbLf & "strKeyDepDate = ""12JUN""" & vbLf & _
    "strKeyPasAsso = ""1""" & vbLf & "strKeyFare = ""EUR50.00""" & vbLf & "strKeyServiceType = ""EXCESS BAGGAGE""" & vbLf & _
    "strKeyMCOFAElement = ""FA PAX 057-4000000001/ETAF""" & vbLf & "strKeyMCOFATicketNbr = ""057-4000000001""" & vbLf & _
    "strKeyMCOFPElement = ""FP CASH""" & vbLf & "strKeyMCOFMElement = ""FM 0""" & vbLf, BagText(bag), "MCO"
  On Error Resume Next
  Set bag = Asking("* SP", 2)
  pnr.Elements bag
  RaisedOwn 2259, "the last split party"
  Set bag = Asking("MCO", 2)
  pnr.Elements bag
  RaisedOwn 2260, "the last MCO"
  Set bag = Asking("ATX", 2)
  pnr.Elements bag
  RaisedNothing "the last ATX segment"
  Equal CLng(2), bag.Count, "keys in the bag"
End Sub

' --- The fields

Sub TestAPassengerTypeInsideAnEndorsementCutsNothing
  Dim control, quillet, pnr
  Set control = Simulator(Desk("display = 'X'" & vbLf & Endorsement("33 FE REF/INFANT DISCOUNT") & _
    Endorsement("34 FE PAX VALID FOR 2 PAX ONLY/S3/P1") & Endorsement("35 FE INF INFO/P2")))
  Set quillet = CreateObject("Wendrill23.CQuillet")
  Set pnr = CreateObject("Wendrill23.CPNR")
  quillet.RetrieveCurrent
  Equal "REF/INFANT DISCOUNT", EndorsementText(pnr, 0), "no passenger type"
  Equal "VALID FOR 2 PAX ONLY", EndorsementText(pnr, 1), "PAX"
  Equal "INFO", EndorsementText(pnr, 2), "INF"
End Sub

Function Endorsement(text)
  Endorsement = "[[pnr.FEElements]]" & vbLf & "Text = '" & text & "'" & vbLf & "ElementNo = '33'" & vbLf
End Function

Function EndorsementText(pnr, index)
  Dim bag
  Set bag = Asking("FE", index)
  pnr.Elements bag
  EndorsementText = bag("strKeyText")
End Function

Sub TestPassengersOfATicketingLineMayFollowAComma
  Dim control, quillet, pnr, bag
  Set control = Simulator(Desk(Display("HEADER|7 FS PAX N-100/S3,P1|8 FS N-100,P9/S4/P2")))
  Set quillet = CreateObject("Wendrill23.CQuillet")
  Set pnr = CreateObject("Wendrill23.CPNR")
  quillet.RetrieveCurrent
  Set bag = Asking("FS", 0)
  pnr.Elements bag
  Equal "1", bag("strKeyPasAsso"), "passenger"
  Equal "3", bag("strKeySegAsso"), "segment"
  Set bag = Asking("FS", 1)
  pnr.Elements bag
  Equal "2", bag("strKeyPasAsso"), "a passenger after a slash goes first"
  Equal "4", bag("strKeySegAsso"), "its segment"
End Sub

' --- What stays in the bag

Sub TestAReusedBagKeepsWhatALaterKindDoesNotSet
  Dim control, quillet, pnr, bag
  Set control = RichDesk()
  Set quillet = CreateObject("Wendrill23.CQuillet")
  Set pnr = CreateObject("Wendrill23.CPNR")
  quillet.RetrieveCurrent
  Set bag = Asking("FH", 1)
  pnr.Elements bag
  bag("strKeyPNRElement") = "HTL"
  bag("intKeyIndex") = 0
  pnr.Elements bag
  Equal "14", bag("strKeyElementNr"), "the later element"
  Equal "057-1234567892", bag("strKeyTktNbr"), "ticket number of the call before"
  Equal True, bag("blnKeyElectronic"), "flag of the call before"
End Sub

Sub TestOutOfRangeKeepsTheWholeRecordBefore
  Dim control, quillet, pnr, bag, before
  Set control = RichDesk()
  Set quillet = CreateObject("Wendrill23.CQuillet")
  Set pnr = CreateObject("Wendrill23.CPNR")
  quillet.RetrieveCurrent
  Set bag = Asking("SSR", 4)
  pnr.Elements bag
  bag("intKeyIndex") = 5
  before = BagText(bag)
  On Error Resume Next
  pnr.Elements bag
  RaisedOwn 2247, "SSR at 5 of 5"
  EqualLines before, BagText(bag), "the bag"
End Sub

' --- Failures

Sub TestAToolkitFailureBecomesTheKindsNumber
  Dim control, quillet, pnr, numbers, kind, bag, result
  Set control = RichDesk()
  Set quillet = CreateObject("Wendrill23.CQuillet")
  Set pnr = CreateObject("Wendrill23.CPNR")
  quillet.RetrieveCurrent
  Set numbers = NumberOfKinds()
  On Error Resume Next
  For Each kind In numbers.Keys
    Set bag = Asking(kind, 0)
    control.FailNext "Text", &H80004005, 1
    Set result = pnr.Elements(bag)
    If numbers(kind) > 0 Then
      RaisedOwn numbers(kind), kind
    Else
      Equal CLng(&H80004005), Err.Number, kind & ", number"
      Equal "QuilletSimulator", Err.Source, kind & ", source"
      Err.Clear
    End If
    Equal CLng(2), bag.Count, kind & ", keys in the bag"
  Next
End Sub

Sub TestKeysStoredBeforeAFailureStay
  Dim control, quillet, pnr, bag
  Set control = RichDesk()
  Set quillet = CreateObject("Wendrill23.CQuillet")
  Set pnr = CreateObject("Wendrill23.CPNR")
  quillet.RetrieveCurrent
  On Error Resume Next
  Set bag = Asking("FS", 0)
  control.FailNext "Set", &H80004005, 3
  pnr.Elements bag
  RaisedOwn 2251, "a failing bag"
  EqualLines "intKeyIndex = int16 0" & vbLf & "strKeyPNRElement = ""FS""" & vbLf & _
    "strKeyElement = ""40 FS PAX T-ITX08,N-EUR200.00,S-EUR320.00/S5/P1""" & vbLf & "strKeyElementNr = ""40""" & vbLf, _
    BagText(bag), "the bag"
End Sub

Sub TestWithoutAPnrEveryKindRaisesItsNumber
  Dim pnr, numbers, kind, result
  Set pnr = CreateObject("Wendrill23.CPNR")
  Set numbers = NumberOfKinds()
  On Error Resume Next
  For Each kind In numbers.Keys
    Set result = pnr.Elements(Asking(kind, 0))
    If numbers(kind) > 0 Then
      RaisedOwn numbers(kind), kind
    Else
      Raised 91, "Wendrill23", "Object variable or With block variable not set", kind
    End If
  Next
  Set result = pnr.Elements(Asking("ALL", 0))
  RaisedOwn 2252, "ALL"
End Sub

' --- The search for prefixes

Sub TestAllFindsTheLinesOfAKeyword
  Dim control, quillet, pnr
  Set control = RichDesk()
  Set quillet = CreateObject("Wendrill23.CQuillet")
  Set pnr = CreateObject("Wendrill23.CPNR")
  quillet.RetrieveCurrent
  Equal "28 RM PAY AT AIRPORT/S5/P1|29 RM WINDOW SEATS WANTED", Found(pnr, Array("", "rm")), "rm"
  Equal "28 RM PAY AT AIRPORT/S5/P1|29 RM WINDOW SEATS WANTED", Found(pnr, Array("FP", "RM")), "entry 0 is not tried"
  Equal "", Found(pnr, Array("RM")), "nor is it when it is the only one"
  Equal "", Found(pnr, Array("", "RMX")), "three letters are a keyword"
  Equal "21 SSR VGML AF HK1/S5/P1", Found(pnr, Array("", "SSR V")), "other lengths stay as they are"
  Equal "", Found(pnr, Array("", "ssr v")), "and their case counts"
  Equal "22 *SSR WCHR AF HK1 NEEDS A CHAIR TO THE GATE AND HELP WITH HER BAGS AT THE CONNECTION/S6/P2", _
    Found(pnr, Array("", "*SSR ")), "a continued line"
  Equal "37 FO 057-1234567880PAR01JUN08/12345675/057-12345678804E1|46 SUR/0830/A/NCE/12 RUE DE LYON/P1" & _
    "|47 SUR/1910/D/LYS/3 QUAI DU RHONE", Found(pnr, Array("", "SUR/", "FO")), "several prefixes, in display order"
  Equal "18 AP NCE 04 93 00 00 00-B|18 AP NCE 04 93 00 00 00-B|19 AP MOBILE 0612345678/P1", _
    Found(pnr, Array("", "AP", "AP NCE")), "a line once for each prefix"
  Equal "38 FP CASH|39 FP PAX CC4111111111111111/N123456/X1210/S5-6/P1| FP CASH", Found(pnr, Array("", "FP")), _
    "a line without a number too"
End Sub

Sub TestAllGivesANewBagAndKeepsTheCallersAsItWas
  Dim control, quillet, pnr, bag, result, keys
  Set control = RichDesk()
  Set quillet = CreateObject("Wendrill23.CQuillet")
  Set pnr = CreateObject("Wendrill23.CPNR")
  quillet.RetrieveCurrent
  Set bag = CreateObject("Pellorin.ParamBag")
  bag("strKeyPNRElement") = "ALL"
  bag("strKeyFind()") = Array("", "TK")
  Set result = pnr.Elements(bag)
  Check Not result Is bag, "another bag"
  Equal CLng(2), bag.Count, "keys in the caller's"
  Equal CLng(2), result.Count, "keys in the new one"
  keys = result.Keys
  Equal "strKeyResult()", keys(0), "the first key"
  Equal "strKeyElementNbrs()", keys(1), "the second key"
End Sub

Sub TestAllThatFindsNothingGivesArraysWithoutEntries
  Dim control, quillet, pnr, bag, result, texts
  Set control = RichDesk()
  Set quillet = CreateObject("Wendrill23.CQuillet")
  Set pnr = CreateObject("Wendrill23.CPNR")
  quillet.RetrieveCurrent
  Set bag = CreateObject("Pellorin.ParamBag")
  bag("strKeyPNRElement") = "ALL"
  bag("strKeyFind()") = Array("", "QQ")
  Set result = pnr.Elements(bag)
  texts = result("strKeyResult()")
  Check IsArray(texts), "an array"
  Equal CLng(1), LBound(texts), "lower bound"
  Equal CLng(0), UBound(texts), "upper bound"
End Sub

Sub TestAllTakesAPlainVariableAndADictionary
  Dim control, quillet, pnr, bag, prefixes(2), result, texts
  Set control = RichDesk()
  Set quillet = CreateObject("Wendrill23.CQuillet")
  Set pnr = CreateObject("Wendrill23.CPNR")
  quillet.RetrieveCurrent
  prefixes(1) = "OSI"
  prefixes(2) = "tk"
  Equal "20 TK OK12JUN/PARXX0100|26 OSI AF VIP FREQUENT TRAVELLER/P1", Found(pnr, prefixes), "a declared array"
  Set bag = CreateObject("Scripting.Dictionary")
  bag("strKeyPNRElement") = "ALL"
  bag("strKeyFind()") = prefixes
  Set result = pnr.Elements(bag)
  texts = result("strKeyResult()")
  Equal "TK OK12JUN/PARXX0100", texts(1), "with a dictionary"
  Equal CLng(2), bag.Count, "which keeps its two keys"
End Sub

Sub TestAllAppendsFourContinuationLinesAtMost
  Dim control, quillet, pnr
  Set control = Simulator(Desk(Display("HEADER|  7 RM ONE|       TWO|       THREE|       FOUR|       FIVE|       SIX|  8 RM END")))
  Set quillet = CreateObject("Wendrill23.CQuillet")
  Set pnr = CreateObject("Wendrill23.CPNR")
  quillet.RetrieveCurrent
  Equal "7 RM ONE TWO THREE FOUR FIVE|8 RM END", Found(pnr, Array("", "RM")), "what is found"
End Sub

Sub TestAllWithoutAListOfPrefixesIs2252
  Dim control, quillet, pnr, bag, prefixes, result
  Set control = RichDesk()
  Set quillet = CreateObject("Wendrill23.CQuillet")
  Set pnr = CreateObject("Wendrill23.CPNR")
  quillet.RetrieveCurrent
  Set bag = CreateObject("Pellorin.ParamBag")
  bag("strKeyPNRElement") = "ALL"
  On Error Resume Next
  Set result = pnr.Elements(bag)
  RaisedOwn 2252, "a missing list"
  For Each prefixes In Array("RM", 5, Empty, Null)
    bag("strKeyFind()") = prefixes
    Set result = pnr.Elements(bag)
    RaisedOwn 2252, "a list of type " & VarType(prefixes)
  Next
  bag("strKeyFind()") = Array("", "RM")
  control.FailNext "Text", &H80004005, 1
  Set result = pnr.Elements(bag)
  RaisedOwn 2252, "a failing display"
End Sub
