' The twenty members of IGet, called by their names on a CPNR.
Option Explicit

' A script can reach a member by its literal name only.
Function Record(pnr, member, bag)
  Select Case member
    Case "ActiveAirSegments": Set Record = pnr.ActiveAirSegments(bag)
    Case "AirSegments": Set Record = pnr.AirSegments(bag)
    Case "AllAirSegments": Set Record = pnr.AllAirSegments(bag)
    Case "BillingAddressElements": Set Record = pnr.BillingAddressElements(bag)
    Case "CarSegment": Set Record = pnr.CarSegment(bag)
    Case "ConfidentialRemarkElements": Set Record = pnr.ConfidentialRemarkElements(bag)
    Case "ContactElements": Set Record = pnr.ContactElements(bag)
    Case "FareCommissionElement": Set Record = pnr.FareCommissionElement(bag)
    Case "FlownAirSegments": Set Record = pnr.FlownAirSegments(bag)
    Case "FormOfPaymentElement": Set Record = pnr.FormOfPaymentElement(bag)
    Case "HotelSegment": Set Record = pnr.HotelSegment(bag)
    Case "MailingAddressElements": Set Record = pnr.MailingAddressElements(bag)
    Case "NameElement": Set Record = pnr.NameElement(bag)
    Case "OpenAirSegments": Set Record = pnr.OpenAirSegments(bag)
    Case "OptionElements": Set Record = pnr.OptionElements(bag)
    Case "PNRHeader": Set Record = pnr.PNRHeader(bag)
    Case "RemarkElement": Set Record = pnr.RemarkElement(bag)
    Case "TicketElement": Set Record = pnr.TicketElement(bag)
    Case "ValidatingAirlineElement": Set Record = pnr.ValidatingAirlineElement(bag)
    Case "AirSequenceNrElement": Set Record = pnr.AirSequenceNrElement(bag)
    Case Else: Err.Raise 5, "records_test", "no member of IGet: " & member
  End Select
End Function

' The members and the number that each raises for an index at or beyond its count; the header, which knows no index, for
' a header without text.
Function NumberOfMembers()
  Dim numbers
  Set numbers = CreateObject("Scripting.Dictionary")
  numbers.Add "ActiveAirSegments", 2205
  numbers.Add "AirSegments", 2207
  numbers.Add "AllAirSegments", 2209
  numbers.Add "BillingAddressElements", 2235
  numbers.Add "CarSegment", 2211
  numbers.Add "ConfidentialRemarkElements", 2241
  numbers.Add "ContactElements", 2239
  numbers.Add "FareCommissionElement", 2215
  numbers.Add "FlownAirSegments", 2217
  numbers.Add "FormOfPaymentElement", 2219
  numbers.Add "HotelSegment", 2221
  numbers.Add "MailingAddressElements", 2237
  numbers.Add "NameElement", 2223
  numbers.Add "OpenAirSegments", 2225
  numbers.Add "OptionElements", 2237
  numbers.Add "PNRHeader", 2227
  numbers.Add "RemarkElement", 2229
  numbers.Add "TicketElement", 2231
  numbers.Add "ValidatingAirlineElement", 2233
  numbers.Add "AirSequenceNrElement", 2213
  Set NumberOfMembers = numbers
End Function

Function ReturnsTheBag(member)
  ReturnsTheBag = member = "ActiveAirSegments" Or member = "FormOfPaymentElement"
End Function

' What a member makes of a bag of a class, in the form of the files.
Function RecordText(pnr, heading, className)
  Dim bag, result
  Set bag = NewBag(className, IndexIn(heading))
  On Error Resume Next
  Set result = Record(pnr, NameIn(heading), bag)
  RecordText = BagText(bag) & ErrorText(heading)
End Function

Sub CompareRecords(file, className)
  Dim control, quillet, pnr, records, heading
  Set control = RichDesk()
  Set quillet = CreateObject("Wendrill23.CQuillet")
  Set pnr = CreateObject("Wendrill23.CPNR")
  quillet.RetrieveCurrent
  Set records = RecordsIn(file)
  For Each heading In records.Keys
    EqualLines "intKeyIndex = int16 " & IndexIn(heading) & vbLf & records(heading), _
      RecordText(pnr, heading, className), heading
  Next
End Sub

' A PNR of inline collections on display.
Function Desk(keys)
  Desk = "[[session]]" & vbLf & "name = 'A'" & vbLf & "[[pnr]]" & vbLf & "on_display = true" & vbLf & keys
End Function

Function Element(collection, number, text)
  Element = "[[pnr." & collection & "]]" & vbLf & "Text = '" & text & "'" & vbLf & "ElementNo = '" & number & "'" & vbLf
End Function

Function FiveRemarks()
  Dim number
  FiveRemarks = "display = 'X'" & vbLf
  For number = 1 To 5
    FiveRemarks = FiveRemarks & Element("Remarks", number, number & " RM X")
  Next
End Function

' --- The rich PNR

Sub TestAirSegmentsOfTheRichPnr
  CompareRecords "air_segments", "Pellorin.ParamBag"
End Sub

Sub TestCarsAndHotelsOfTheRichPnr
  CompareRecords "cars_and_hotels", "Pellorin.ParamBag"
End Sub

Sub TestNamesAndRemarksOfTheRichPnr
  CompareRecords "names_and_remarks", "Pellorin.ParamBag"
End Sub

Sub TestFaresAndHeaderOfTheRichPnr
  CompareRecords "fares_and_header", "Pellorin.ParamBag"
End Sub

Sub TestADictionaryServesAsBag
  CompareRecords "air_segments", "Scripting.Dictionary"
  CompareRecords "cars_and_hotels", "Scripting.Dictionary"
  CompareRecords "names_and_remarks", "Scripting.Dictionary"
  CompareRecords "fares_and_header", "Scripting.Dictionary"
End Sub

Sub TestTheFilesHoldEveryMember
  Dim members, file, heading
  Set members = NumberOfMembers()
  Equal CLng(20), members.Count, "members of IGet"
  For Each file In Array("air_segments", "cars_and_hotels", "names_and_remarks", "fares_and_header")
    For Each heading In RecordsIn(file).Keys
      If members.Exists(NameIn(heading)) Then members.Remove NameIn(heading)
    Next
  Next
  Equal CLng(0), members.Count, "members without a record"
End Sub

' --- Results

Sub TestTwoMembersReturnTheBagAndTheOthersNothing
  Dim control, quillet, pnr, member, bag, result
  Set control = RichDesk()
  Set quillet = CreateObject("Wendrill23.CQuillet")
  Set pnr = CreateObject("Wendrill23.CPNR")
  quillet.RetrieveCurrent
  For Each member In NumberOfMembers().Keys
    Set bag = BagAt(0)
    Set result = Record(pnr, member, bag)
    If ReturnsTheBag(member) Then
      Check result Is bag, member & " returns the caller's own bag"
    Else
      Check result Is Nothing, member & " returns Nothing"
    End If
    Check bag.Count > 1, member & " filled the bag"
  Next
End Sub

Sub TestANegativeIndexSetsNothingAndTheTwoStillReturnTheBag
  Dim control, quillet, pnr, bag
  Set control = RichDesk()
  Set quillet = CreateObject("Wendrill23.CQuillet")
  Set pnr = CreateObject("Wendrill23.CPNR")
  quillet.RetrieveCurrent
  Set bag = BagAt(-1)
  Check pnr.ActiveAirSegments(bag) Is bag, "ActiveAirSegments"
  Check pnr.FormOfPaymentElement(bag) Is bag, "FormOfPaymentElement"
  Check pnr.AllAirSegments(bag) Is Nothing, "AllAirSegments"
  Equal CLng(1), bag.Count, "keys in the bag"
  Check pnr.CarSegment(bag) Is Nothing, "CarSegment"
  Equal CLng(14), bag.Count, "keys in the bag, those of a car being empty"
End Sub

Sub TestTheDictionaryItselfIsReturned
  Dim control, quillet, pnr, bag
  Set control = RichDesk()
  Set quillet = CreateObject("Wendrill23.CQuillet")
  Set pnr = CreateObject("Wendrill23.CPNR")
  quillet.RetrieveCurrent
  Set bag = NewBag("Scripting.Dictionary", 1)
  Check pnr.ActiveAirSegments(bag) Is bag, "ActiveAirSegments"
  Check pnr.FormOfPaymentElement(bag) Is bag, "FormOfPaymentElement"
  Equal "CC4111111111111111", bag("strKeyValue"), "value"
End Sub

Sub TestTheCallMayBeAStatement
  Dim control, quillet, pnr, bag
  Set control = RichDesk()
  Set quillet = CreateObject("Wendrill23.CQuillet")
  Set pnr = CreateObject("Wendrill23.CPNR")
  quillet.RetrieveCurrent
  Set bag = BagAt(1)
  pnr.NameElement bag
  Equal "ANN MRS", bag("strKeyInitial"), "by reference"
  Set bag = BagAt(2)
  pnr.NameElement (bag)
  Equal "TOM", bag("strKeyInitial"), "by value"
End Sub

' --- Errors

Sub TestAnEmptyPnrRaisesEveryMembersOwnNumber
  Dim control, quillet, pnr, numbers, member, bag, result
  Set control = Simulator("[[session]]" & vbLf & "name = 'A'")
  Set quillet = CreateObject("Wendrill23.CQuillet")
  Set pnr = CreateObject("Wendrill23.CPNR")
  Set numbers = NumberOfMembers()
  On Error Resume Next
  For Each member In numbers.Keys
    Set bag = BagAt(0)
    Set result = Record(pnr, member, bag)
    RaisedOwn numbers(member), member
    Equal CLng(1), bag.Count, member & ", keys in the bag"
  Next
End Sub

Sub TestWithoutAPnrEveryMemberIs91
  Dim pnr, member, bag, result
  Set pnr = CreateObject("Wendrill23.CPNR")
  On Error Resume Next
  For Each member In NumberOfMembers().Keys
    ' A failing scan for validating airlines counts none.
    Set bag = BagAt(0)
    Set result = Record(pnr, member, bag)
    If member = "ValidatingAirlineElement" Then
      RaisedOwn 2233, member
    Else
      Raised 91, "Wendrill23", "Object variable or With block variable not set", member
    End If
  Next
End Sub

Sub TestNothingAsBagIs91
  Dim control, quillet, pnr, member, result
  Set control = RichDesk()
  Set quillet = CreateObject("Wendrill23.CQuillet")
  Set pnr = CreateObject("Wendrill23.CPNR")
  quillet.RetrieveCurrent
  On Error Resume Next
  For Each member In NumberOfMembers().Keys
    Set result = Record(pnr, member, Nothing)
    Raised 91, "Wendrill23", "Object variable or With block variable not set", member
  Next
End Sub

Sub TestAToolkitFailureArrivesUnchanged
  Dim control, quillet, pnr, member, bag, result
  Set control = RichDesk()
  Set quillet = CreateObject("Wendrill23.CQuillet")
  Set pnr = CreateObject("Wendrill23.CPNR")
  quillet.RetrieveCurrent
  On Error Resume Next
  For Each member In NumberOfMembers().Keys
    Set bag = BagAt(0)
    control.FailNext "Text", &H80004005, 1
    Set result = Record(pnr, member, bag)
    If member = "ValidatingAirlineElement" Then
      RaisedOwn 2233, member   ' a failing scan counts none
    Else
      Equal CLng(&H80004005), Err.Number, member & ", number"
      Equal "QuilletSimulator", Err.Source, member & ", source"
      Check InStr(Err.Description, "Text") > 0, member & ", description names the operation: " & Err.Description
      Err.Clear
    End If
    Equal CLng(1), bag.Count, member & ", keys in the bag"
  Next
End Sub

Sub TestAFailingBagArrivesUnchanged
  Dim control, quillet, pnr, bag
  Set control = RichDesk()
  Set quillet = CreateObject("Wendrill23.CQuillet")
  Set pnr = CreateObject("Wendrill23.CPNR")
  quillet.RetrieveCurrent
  Set bag = BagAt(0)
  On Error Resume Next
  control.FailNext "Set", &H80004005, 3
  pnr.ContactElements bag
  Equal CLng(&H80004005), Err.Number, "number"
  Equal "QuilletSimulator", Err.Source, "source"
  Err.Clear
  Equal "intKeyIndex = int16 0" & vbLf & "strKeyElement = ""18 AP NCE 04 93 00 00 00-B""" & vbLf & _
    "strKeyElementNr = ""18""" & vbLf, BagText(bag), "keys stored before the failure stay"
End Sub

' --- The index

Sub ReadsRemark(pnr, index, expectedNumber)
  Dim bag
  Set bag = BagAt(index)
  pnr.RemarkElement bag
  If expectedNumber = "" Then
    Equal CLng(1), bag.Count, "keys for the index " & index
  Else
    Equal expectedNumber, bag("strKeyElementNr"), "number of the element at the index " & index
  End If
End Sub

Sub TestAnIndexIsAnyValueThatConverts
  Dim control, quillet, pnr
  Set control = Simulator(Desk(FiveRemarks()))
  Set quillet = CreateObject("Wendrill23.CQuillet")
  Set pnr = CreateObject("Wendrill23.CPNR")
  quillet.RetrieveCurrent
  ReadsRemark pnr, CLng(4), "5"
  ReadsRemark pnr, CDbl(3), "4"
  ReadsRemark pnr, CCur(2), "3"
  ReadsRemark pnr, CByte(1), "2"
  ReadsRemark pnr, "3", "4"
  ReadsRemark pnr, " 3 ", "4"
  ReadsRemark pnr, False, "1"
  ReadsRemark pnr, True, ""           ' True is -1
  ReadsRemark pnr, Empty, "1"
End Sub

Sub TestAnIndexIsComparedAsItIsAndThenRoundedHalfToEven
  Dim control, quillet, pnr, bag
  Set control = Simulator(Desk(FiveRemarks()))
  Set quillet = CreateObject("Wendrill23.CQuillet")
  Set pnr = CreateObject("Wendrill23.CPNR")
  quillet.RetrieveCurrent
  ReadsRemark pnr, 0.6, "2"
  ReadsRemark pnr, 0.5, "1"
  ReadsRemark pnr, 1.5, "3"
  ReadsRemark pnr, 2.5, "3"
  ReadsRemark pnr, "0.6", "2"
  ReadsRemark pnr, 4.9, ""            ' below 5, and then position 5, which is none
  ReadsRemark pnr, -0.4, "1"
  On Error Resume Next
  Set bag = BagAt(5.0)
  pnr.RemarkElement bag
  RaisedOwn 2229, "5 of 5"
End Sub

Sub TestAMissingIndexIs0
  Dim control, quillet, pnr, bag
  Set control = Simulator(Desk(FiveRemarks()))
  Set quillet = CreateObject("Wendrill23.CQuillet")
  Set pnr = CreateObject("Wendrill23.CPNR")
  quillet.RetrieveCurrent
  Set bag = CreateObject("Pellorin.ParamBag")
  pnr.RemarkElement bag
  Equal "1", bag("strKeyElementNr"), "the first element"
  Check Not bag.Exists("intKeyIndex"), "the index is not written"
  Set bag = CreateObject("Scripting.Dictionary")
  pnr.RemarkElement bag
  Equal "1", bag("strKeyElementNr"), "the first element, with a dictionary"
  Check Not bag.Exists("intKeyIndex"), "nor by asking for it"
End Sub

Sub TestAMissingIndexOfAFareOfTheDisplayIs13WhereThereIsOne
  Dim control, quillet, pnr, bag
  Set control = RichDesk()
  Set quillet = CreateObject("Wendrill23.CQuillet")
  Set pnr = CreateObject("Wendrill23.CPNR")
  quillet.RetrieveCurrent
  Set bag = CreateObject("Pellorin.ParamBag")
  On Error Resume Next
  pnr.ValidatingAirlineElement bag
  Raised 13, "Wendrill23", "Type mismatch", "a validating airline"
  pnr.AirSequenceNrElement bag
  Raised 13, "Wendrill23", "Type mismatch", "an air sequence number"
End Sub

Sub TestAMissingIndexOfAFareOfTheDisplayRaisesTheMembersNumberWhereThereIsNone
  Dim control, quillet, pnr, bag
  Set control = Simulator(Desk(FiveRemarks()))
  Set quillet = CreateObject("Wendrill23.CQuillet")
  Set pnr = CreateObject("Wendrill23.CPNR")
  quillet.RetrieveCurrent
  Set bag = CreateObject("Pellorin.ParamBag")
  On Error Resume Next
  pnr.ValidatingAirlineElement bag
  RaisedOwn 2233, "no validating airline"
  pnr.AirSequenceNrElement bag
  RaisedOwn 2213, "no air sequence number"
  Equal CLng(0), bag.Count, "keys in the bag"
End Sub

Sub TestAnIndexThatIsNoNumberIs13
  Dim control, quillet, pnr, bag
  Set control = RichDesk()
  Set quillet = CreateObject("Wendrill23.CQuillet")
  Set pnr = CreateObject("Wendrill23.CPNR")
  quillet.RetrieveCurrent
  On Error Resume Next
  Set bag = BagAt("one")
  pnr.RemarkElement bag
  Raised 13, "Wendrill23", "Type mismatch", "a remark"
  pnr.ActiveAirSegments bag
  Raised 13, "Wendrill23", "Type mismatch", "an air segment"
  pnr.ValidatingAirlineElement bag
  Raised 13, "Wendrill23", "Type mismatch", "a validating airline"
  Set bag = BagAt("")
  pnr.RemarkElement bag
  Raised 13, "Wendrill23", "Type mismatch", "an empty text"
  Set bag = BagAt(Array(1))
  pnr.RemarkElement bag
  Raised 13, "Wendrill23", "Type mismatch", "an array"
  Set bag = BagAt(Null)
  pnr.RemarkElement bag
  Raised 94, "Wendrill23", "Invalid use of Null", "Null"
End Sub

Sub TestAnIndexOfASegmentIsRoundedAndThenCompared
  Dim control, quillet, pnr, bag
  Set control = RichDesk()
  Set quillet = CreateObject("Wendrill23.CQuillet")
  Set pnr = CreateObject("Wendrill23.CPNR")
  quillet.RetrieveCurrent
  Dim last
  last = pnr.AllAirSegmentsCount - 1
  Check last > 0, "the PNR has air segments"
  Set bag = BagAt(last + 0.4)
  pnr.AllAirSegments bag
  Dim number
  number = bag("strKeySegmentNr")
  Set bag = BagAt(last)
  pnr.AllAirSegments bag
  Equal bag("strKeySegmentNr"), number, "rounded down it is the last segment"
  On Error Resume Next
  Set bag = BagAt(last + 0.6)
  pnr.AllAirSegments bag
  RaisedOwn 2209, "rounded up it is the count, an air segment"
  Equal CLng(1), bag.Count, "keys in the bag"
  Set bag = BagAt(pnr.CarSegmentsCount - 0.4)
  pnr.CarSegment bag
  RaisedOwn 2211, "rounded up it is the count, a car"
  Set bag = BagAt(pnr.HotelSegmentsCount - 0.4)
  pnr.HotelSegment bag
  RaisedOwn 2221, "rounded up it is the count, a hotel"
End Sub

Sub TestAnIndexBeyond16BitsOverflowsForASegmentAndIsOutOfRangeForAnElement
  Dim control, quillet, pnr, bag
  Set control = RichDesk()
  Set quillet = CreateObject("Wendrill23.CQuillet")
  Set pnr = CreateObject("Wendrill23.CPNR")
  quillet.RetrieveCurrent
  On Error Resume Next
  Set bag = BagAt(CLng(40000))
  pnr.RemarkElement bag
  RaisedOwn 2229, "40000"
  Set bag = BagAt(1E300)
  pnr.RemarkElement bag
  RaisedOwn 2229, "1E300"
  Set bag = BagAt(CLng(40000))
  pnr.AllAirSegments bag
  Raised 6, "Wendrill23", "Overflow", "40000, an air segment"
  pnr.CarSegment bag
  Raised 6, "Wendrill23", "Overflow", "40000, a car"
  pnr.HotelSegment bag
  Raised 6, "Wendrill23", "Overflow", "40000, a hotel"
  Set bag = BagAt(CLng(-40000))
  pnr.RemarkElement bag
  Raised 6, "Wendrill23", "Overflow", "-40000, a remark"
  pnr.AllAirSegments bag
  Raised 6, "Wendrill23", "Overflow", "-40000, an air segment"
  pnr.AirSequenceNrElement bag
  Raised 6, "Wendrill23", "Overflow", "-40000, an air sequence number"
  Equal CLng(1), bag.Count, "keys in the bag"
End Sub

Sub TestAnIndexBetweenTheLastAndTheCountFindsNoPlaceInArrays
  Dim control, quillet, pnr, bag
  Set control = RichDesk()
  Set quillet = CreateObject("Wendrill23.CQuillet")
  Set pnr = CreateObject("Wendrill23.CPNR")
  quillet.RetrieveCurrent
  On Error Resume Next
  Set bag = BagAt(0.9)
  pnr.ValidatingAirlineElement bag
  Raised 9, "Wendrill23", "Subscript out of range", "a validating airline"
  pnr.AirSequenceNrElement bag
  Raised 9, "Wendrill23", "Subscript out of range", "an air sequence number"
End Sub

' --- What stays in the bag

Sub TestAnOpenSegmentKeepsAnEarlierFlightNumber
  Dim control, quillet, pnr, bag
  Set control = RichDesk()
  Set quillet = CreateObject("Wendrill23.CQuillet")
  Set pnr = CreateObject("Wendrill23.CPNR")
  quillet.RetrieveCurrent
  Set bag = BagAt(1)
  pnr.ActiveAirSegments bag
  bag("intKeyIndex") = 2
  pnr.ActiveAirSegments bag
  Equal "7", bag("strKeySegmentNr"), "the open segment"
  Equal True, bag("blnKeyOpenSeg"), "open mark"
  Equal "456", bag("strKeyNumber"), "flight number of the call before"
  Equal "1200", bag("strKeyDepTime"), "departure time of the call before"
  Equal "1220", bag("strKeyArrTime"), "arrival time of the call before"
  Equal "0", bag("strKeyDayChange"), "day change of the call before"
  Equal "", bag("strKeyConfirmationNbr"), "the confirmation number is of this call"
End Sub

Sub TestANameWithoutParenthesisKeepsAnEarlierType
  Dim control, quillet, pnr, bag
  Set control = Simulator(Desk("display = 'X'" & vbLf & Element("Names", 1, "1.SMITH/JOHN(ADT)") & _
    Element("Names", 2, "2.MILLER/TOM")))
  Set quillet = CreateObject("Wendrill23.CQuillet")
  Set pnr = CreateObject("Wendrill23.CPNR")
  quillet.RetrieveCurrent
  Set bag = BagAt(1)
  pnr.NameElement bag
  Check Not bag.Exists("strKeyPapType"), "no type"
  bag("intKeyIndex") = 0
  pnr.NameElement bag
  Equal "ADT", bag("strKeyPapType"), "type of the first name"
  bag("intKeyIndex") = 1
  pnr.NameElement bag
  Equal "2", bag("strKeyElementNr"), "the second name"
  Equal "ADT", bag("strKeyPapType"), "it keeps the type of the first"
End Sub

Sub TestAHotelWithoutServiceMarkKeepsAnEarlierOne
  Dim control, quillet, pnr, bag
  Const head = "2  HHL QH HK1 NCE IN15JUN OUT18JUN EUR120.00 DLY A1KRAC-BEDROOM GRAND HOTEL/CF-98765"
  Set control = Simulator(Desk("display = 'X'" & vbLf & Element("Hotels", 2, head & "/P12 SEE RTSVCH") & _
    Element("Hotels", 3, head)))
  Set quillet = CreateObject("Wendrill23.CQuillet")
  Set pnr = CreateObject("Wendrill23.CPNR")
  quillet.RetrieveCurrent
  Set bag = BagAt(1)
  pnr.HotelSegment bag
  Check Not bag.Exists("blnKeyRTSVCH"), "no service mark"
  Check Not bag.Exists("strKeyPasAsso"), "no passenger"
  bag("intKeyIndex") = 0
  pnr.HotelSegment bag
  Equal True, bag("blnKeyRTSVCH"), "service mark of the first"
  Equal "1", bag("strKeyPasAsso"), "one digit of passenger 12"
  bag("intKeyIndex") = 1
  pnr.HotelSegment bag
  Equal "3", bag("strKeySegmentNr"), "the second hotel"
  Equal True, bag("blnKeyRTSVCH"), "it keeps the service mark of the first"
  Equal "1", bag("strKeyPasAsso"), "and its passenger"
End Sub

Sub TestKeysStoredBeforeAFailureStay
  Dim control, quillet, pnr, bag
  Set control = Simulator(Desk("display = 'X'" & vbLf & Element("Remarks", 1, "1 RM PAY/P1/S3") & _
    Element("FormsOfPayment", 2, "2 FP/CASH") & Element("Hotels", 3, "3 HHL NO LAYOUT")))
  Set quillet = CreateObject("Wendrill23.CQuillet")
  Set pnr = CreateObject("Wendrill23.CPNR")
  quillet.RetrieveCurrent
  On Error Resume Next
  Set bag = BagAt(0)
  pnr.RemarkElement bag
  Raised 5, "Wendrill23", "Invalid procedure call or argument", "a passenger in front of a segment"
  Equal "intKeyIndex = int16 0" & vbLf & "strKeyElement = ""1 RM PAY/P1/S3""" & vbLf, BagText(bag), "remark"
  Set bag = BagAt(0)
  pnr.FormOfPaymentElement bag
  Raised 5, "Wendrill23", "Invalid procedure call or argument", "a slash that comes too early"
  Equal "intKeyIndex = int16 0" & vbLf & "strKeyElement = ""2 FP/CASH""" & vbLf & "strKeyElementNr = ""2""" & vbLf, _
    BagText(bag), "form of payment"
  Set bag = BagAt(0)
  pnr.HotelSegment bag
  Raised 5, "Wendrill23", "Invalid procedure call or argument", "a hotel without a name"
  Equal CLng(8), bag.Count, "keys of the hotel up to its rate, but for the passenger"
  Equal "", bag("strKeyRoomRate"), "the last of them"
End Sub

' --- Texts of other layouts

Sub TestASegmentWithATwoDigitNumberIsShiftedByOneColumn
  Dim control, quillet, pnr, one, two
  Set control = Simulator(Desk("display = 'X'" & vbLf & _
    Element("AirSegments", 2, "2  AF 123 Y 15JUN 3 NCECDG HK1      0900 1030") & _
    Element("AirSegments", 12, "12  AF 123 Y 15JUN 3 NCECDG HK1      0900 1030")))
  Set quillet = CreateObject("Wendrill23.CQuillet")
  Set pnr = CreateObject("Wendrill23.CPNR")
  quillet.RetrieveCurrent
  Set one = pnr.ActiveAirSegments(BagAt(0))
  Set two = pnr.ActiveAirSegments(BagAt(1))
  Equal "AF", one("strKeyAirline"), "airline"
  Equal "123", one("strKeyNumber"), "flight number"
  Equal "HK1", one("strKeyStatus"), "status"
  Equal "AF", two("strKeyAirline"), "airline behind two digits"
  Equal "123", two("strKeyNumber"), "flight number behind two digits"
  Equal "HK1", two("strKeyStatus"), "status behind two digits"
End Sub

Sub TestARateIsTakenFromTheMostWantedMark
  Dim control, quillet, pnr, bag
  Set control = Simulator(Desk("display = 'X'" & vbLf & Element("Cars", 2, "2 CCR/RQ-USD 30.00 DY/RG-EUR 45.00- WEEK") & _
    Element("Cars", 3, "3 CCR/RG-Eur 45.00/DO-ORY/VV")))
  Set quillet = CreateObject("Wendrill23.CQuillet")
  Set pnr = CreateObject("Wendrill23.CPNR")
  quillet.RetrieveCurrent
  Set bag = BagAt(0)
  pnr.CarSegment bag
  Equal "EUR 45.00", bag("strKeyPrice"), "price, up to the dash"
  Equal "- WEEK", bag("strKeyPaymentBase"), "what follows as many characters as the price has"
  Set bag = BagAt(1)
  pnr.CarSegment bag
  Equal "", bag("strKeyPrice"), "no three capital letters in a row"
  Equal "", bag("strKeyPaymentBase"), "nor what follows them"
  Equal "ORY", bag("strKeyDoCity"), "the other keys are set"
  Equal True, bag("blnKeyVchr"), "to the last one"
End Sub

Sub TestAContactsPassengerIsANumberAndNothingElse
  Dim control, quillet, pnr, bag
  Set control = Simulator(Desk("display = 'X'" & vbLf & Element("Contacts", 2, "2 AP HOME/P1-2") & _
    Element("Contacts", 3, "3 AP HOME/PAR/P1")))
  Set quillet = CreateObject("Wendrill23.CQuillet")
  Set pnr = CreateObject("Wendrill23.CPNR")
  quillet.RetrieveCurrent
  Set bag = BagAt(0)
  pnr.ContactElements bag
  Equal "", bag("strKeyPasAsso"), "a range"
  Set bag = BagAt(1)
  pnr.ContactElements bag
  Equal "", bag("strKeyPasAsso"), "only the first mark is looked at"
End Sub

Sub TestCopiedValuesKeepTheToolkitsType
  Dim control, quillet, pnr, bag
  Set control = Simulator(Desk("display = 'X'" & vbLf & "[[pnr.Commissions]]" & vbLf & "Text = '3 FM 5'" & vbLf & _
    "ElementNo = 3" & vbLf & "Percent = 5.5"))
  Set quillet = CreateObject("Wendrill23.CQuillet")
  Set pnr = CreateObject("Wendrill23.CPNR")
  quillet.RetrieveCurrent
  Set bag = BagAt(0)
  pnr.FareCommissionElement bag
  Equal CLng(3), bag("strKeyElementNr"), "number"
  Equal CDbl(5.5), bag("strKeyValue"), "percent"
End Sub

Sub TestTheCrossReferenceTagStandsInTheFirstThreeLines
  Dim control, quillet, pnr, bag, tag
  For Each tag In Array("TST AXR ---", "TST-AXR ---")
    Set quillet = Nothing
    Set control = Simulator(Desk("display = '''" & vbLf & "1" & vbLf & "2" & vbLf & tag & vbLf & "'''"))
    Set quillet = CreateObject("Wendrill23.CQuillet")
    Set pnr = CreateObject("Wendrill23.CPNR")
    quillet.RetrieveCurrent
    Set bag = BagAt(0)
    pnr.PNRHeader bag
    Equal InStr(tag, " AXR") > 0, bag("blnKeyAXRTag"), tag & " in line 3"
  Next
  Set quillet = Nothing
  Set control = Simulator(Desk("display = '''" & vbLf & "1" & vbLf & "2" & vbLf & "3" & vbLf & "TST AXR ---" & vbLf & "'''"))
  Set quillet = CreateObject("Wendrill23.CQuillet")
  quillet.RetrieveCurrent
  pnr.PNRHeader bag
  Equal False, bag("blnKeyAXRTag"), "in line 4"
End Sub

Sub TestEveryObjectReadsThePnrRetrievedLast
  Dim control, quillet, one, another, bag
  Set control = Simulator("[[session]]" & vbLf & "name = 'A'" & vbLf & _
    "[[pnr]]" & vbLf & "RecordLocator = 'FIRST1'" & vbLf & "display = 'X'" & vbLf & Element("Names", 1, "1.SMITH/JOHN") & _
    "[[pnr]]" & vbLf & "RecordLocator = 'SECOND'" & vbLf & "display = 'X'" & vbLf & Element("Names", 1, "1.MILLER/TOM"))
  Set quillet = CreateObject("Wendrill23.CQuillet")
  Set one = CreateObject("Wendrill23.CPNR")
  Set another = CreateObject("Wendrill23.CPNR")
  Set bag = BagAt(0)
  quillet.RetrieveRecLoc "FIRST1"
  one.NameElement bag
  Equal "1.SMITH/JOHN", bag("strKeyElement"), "one object"
  quillet.RetrieveRecLoc "SECOND"
  another.NameElement bag
  Equal "1.MILLER/TOM", bag("strKeyElement"), "another"
  one.NameElement bag
  Equal "1.MILLER/TOM", bag("strKeyElement"), "the one again"
End Sub
