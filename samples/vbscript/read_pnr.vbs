' Reads the PNR on display: every segment and every element, with all that is known of each.
'
'   script/run samples/vbscript/read_pnr.vbs        beside the simulator: the PNR of simulator/scenarios/rich_pnr.toml
'   cscript read_pnr.vbs                            on a desktop with Quillet, the library registered
'
' Every element is read in the same way. Its position, counted from 0, goes into a bag; a member of CPNR puts the
' element's values into that bag; the script takes them out. A Scripting.Dictionary serves as bag. Each call gets a new
' one, because a member leaves there what an earlier call has put and it does not put itself.
Option Explicit

Dim quillet, pnr
UseRichPnr
Set quillet = CreateObject("Wendrill23.CQuillet")   ' connects to the running session
Set pnr = CreateObject("Wendrill23.CPNR")           ' reads the PNR that was retrieved last
If Retrieved() Then ShowPnr Else WScript.Echo "There is no PNR on display."

' The simulator, where there is one, shows the rich PNR unless the caller has named a scenario.
Sub UseRichPnr
  Dim named, simulator, files, root, folder, scenario
  named = CreateObject("WScript.Shell").ExpandEnvironmentStrings("%QUILLET_SCENARIO%")
  If Left(named, 1) <> "%" Then Exit Sub   ' a variable that is not set stays as it is written
  On Error Resume Next
  Set simulator = CreateObject("QuilletSimulator.Control")
  If Err.Number <> 0 Then Exit Sub
  On Error GoTo 0
  Set files = CreateObject("Scripting.FileSystemObject")
  root = files.GetParentFolderName(WScript.ScriptFullName) & "\..\.."
  For Each folder In Array("\scenarios", "\simulator\scenarios")   ' installed, and in the sources
    scenario = root & folder & "\rich_pnr.toml"
    If files.FileExists(scenario) Then simulator.Load scenario
  Next
End Sub

Function Retrieved()
  On Error Resume Next
  quillet.RetrieveCurrent
  Retrieved = (Err.Number = 0)
End Function

Sub ShowPnr
  ShowHeader
  ShowSplitParties
  ShowNames
  ShowAirSegments
  ShowCars
  ShowHotels
  ShowATXSegments
  ShowMISElements
  ShowContacts
  ShowTicketing
  ShowSpecialServices
  ShowOtherServices
  ShowOptions
  ShowRemarks
  ShowTickets
  ShowFares
  ShowAddresses
  ShowInsurance
  ShowMCODocuments
  ShowSurfaceSegments
  ShowSecurity
End Sub

' --- Asking

' A bag that asks for the element at a position.
Function At(index)
  Dim bag
  Set bag = CreateObject("Scripting.Dictionary")
  bag("intKeyIndex") = index
  Set At = bag
End Function

' The bag of an element of a kind that is asked for by its name.
Function Element(kind, index)
  Dim bag
  Set bag = At(index)
  bag("strKeyPNRElement") = kind
  pnr.Elements bag
  Set Element = bag
End Function

' --- Showing

' The heading of a kind; a kind without elements is not shown at all.
Sub Title(text, count)
  If count = 0 Then Exit Sub
  WScript.Echo
  WScript.Echo text & " (" & count & ")"
End Sub

' A line behind an element's number.
Sub Show(number, text)
  WScript.Echo RTrim(Right("   " & number, 3) & "  " & text)
End Sub

' An element as it stands in the PNR.
Sub ShowText(bag)
  Show bag("strKeyElementNr"), WithoutNumber(bag("strKeyElement"), bag("strKeyElementNr")) & Belonging(bag)
End Sub

Function WithoutNumber(text, number)
  WithoutNumber = Trim(Mid(text, Len(number) + 1))
End Function

' The segments and passengers that an element belongs to.
Function Belonging(bag)
  Belonging = Also("segment ", bag("strKeySegAsso")) & Also("passenger ", bag("strKeyPasAsso"))
End Function

' A value behind its name; nothing when it is empty.
Function Also(name, value)
  If value <> "" Then Also = ", " & name & value
End Function

' A word that applies or not.
Function AlsoIf(applies, word)
  If applies Then AlsoIf = ", " & word
End Function

' Two values as one; a blank between them where both are there.
Function Joined(first, last)
  Joined = Trim(first & " " & last)
End Function

' A text without the segments and passengers at its end: without "/S5/P1".
Function WithoutBelonging(text)
  Dim column, mark
  WithoutBelonging = text
  For column = 1 To Len(text) - 2
    mark = Mid(text, column, 2)
    If (mark = "/S" Or mark = "/P") And IsNumeric(Mid(text, column + 2, 1)) Then
      WithoutBelonging = Left(text, column - 1)
      Exit For
    End If
  Next
End Function

Function Padded(text, width)
  Padded = text
  If Len(text) < width Then Padded = text & Space(width - Len(text))
End Function

' --- The PNR as a whole

Sub ShowHeader
  Dim bag
  Set bag = At(0)
  pnr.PNRHeader bag
  WScript.Echo "PNR " & bag("strKeyRecordLocator")
  Show bag("strKeyElementNr"), bag("strKeyText")
  Show "", "office " & bag("strKeyOfficeID") & Also("queue office ", bag("strKeyQueOfficeID")) & _
    Also("last changed at ", bag("strKeyUpdateTime")) & AlsoIf(bag("blnKeyAXRTag"), "cross-referenced")
  Show "", "made by " & pnr.CreationOfficeID & " " & pnr.CreationAgentSign & " on " & pnr.CreationDate
End Sub

Sub ShowSplitParties
  Dim index, bag
  Title "Split parties", pnr.SPElementsCount
  For index = 1 To pnr.SPElementsCount - 1
    Set bag = Element("* SP", index)
    Show "", bag("strKeyElement") & Also("now ", bag("strKeyRecLoc"))
  Next
  ShowLast "* SP"
End Sub

Sub ShowNames
  Dim index, bag
  Title "Names", pnr.NameElementsCount
  For index = 0 To pnr.NameElementsCount - 1
    Set bag = At(index)
    pnr.NameElement bag
    Show bag("strKeyElementNr"), bag("strKeyLastName") & Also("", bag("strKeyInitial")) & Also("", bag("strKeyPapType"))
  Next
End Sub

' --- Air segments: all in their order, with what the other members know of the timed, active, open and flown ones

Sub ShowAirSegments
  Dim times, notes, index, bag, number
  Set times = TimesByNumber()
  Set notes = NotesByNumber()
  Title "Air segments", pnr.AllAirSegmentsCount
  For index = 0 To pnr.AllAirSegmentsCount - 1
    Set bag = At(index)
    pnr.AllAirSegments bag
    number = bag("strKeySegmentNr")
    If bag("strKeyDepCity") = "" Then   ' no flight but a gap in the journey
      Show number, WithoutNumber(bag("strKeySegment"), number)
    Else
      Show number, Flight(bag) & "  " & Padded(times(number), 9) & "  " & notes(number)
    End If
  Next
End Sub

Function Flight(bag)
  Flight = Padded(bag("strKeyAirline") & " " & bag("strKeyNumber"), 8) & bag("strKeyClass") & "  " & _
    bag("strKeyDepDate") & "  " & bag("strKeyDepCity") & "-" & bag("strKeyArrCity")
End Function

' The counts of the timed and of the active segments may exceed what their members find. A member that finds none puts
' nothing into the bag.
Function TimesByNumber()
  Dim times, index, bag
  Set times = CreateObject("Scripting.Dictionary")
  For index = 0 To pnr.AirSegmentsCount - 1
    Set bag = At(index)
    pnr.AirSegments bag
    If bag.Exists("strKeySegmentNr") Then times(bag("strKeySegmentNr")) = bag("strKeyDepTime") & "-" & bag("strKeyArrTime")
  Next
  Set TimesByNumber = times
End Function

Function NotesByNumber()
  Dim notes, index, bag
  Set notes = CreateObject("Scripting.Dictionary")
  For index = 0 To pnr.ActiveAirSegmentsCount - 1
    Set bag = At(index)
    pnr.ActiveAirSegments bag
    If bag.Exists("strKeySegmentNr") Then notes(bag("strKeySegmentNr")) = StatusOf(bag)
  Next
  For index = 0 To pnr.OpenAirSegmentsCount - 1
    Set bag = At(index)
    pnr.OpenAirSegments bag
    notes(bag("strKeySegmentNr")) = "open"
  Next
  For index = 0 To pnr.FlownAirSegmentsCount - 1
    Set bag = At(index)
    pnr.FlownAirSegments bag
    notes(bag("strKeySegmentNr")) = "flown"
  Next
  Set NotesByNumber = notes
End Function

Function StatusOf(bag)
  StatusOf = bag("strKeyStatus") & Also("confirmation ", bag("strKeyConfirmationNbr"))
  If bag("strKeyDayChange") <> "0" Then StatusOf = StatusOf & Also("day change ", bag("strKeyDayChange"))
End Function

' --- Other segments

Sub ShowCars
  Dim index, bag
  Title "Cars", pnr.CarSegmentsCount
  For index = 0 To pnr.CarSegmentsCount - 1
    Set bag = At(index)
    pnr.CarSegment bag
    Show bag("strKeySegmentNr"), bag("strKeyCarCode") & Also("from ", Joined(bag("strKeyCity"), bag("strKeyPuDate"))) & _
      " to " & Joined(bag("strKeyDoCity"), bag("strKeyDoDate")) & _
      Also("", Joined(bag("strKeyPrice"), bag("strKeyPaymentBase"))) & Also("confirmation ", bag("strKeyConfNo")) & _
      AlsoIf(bag("blnKeyRTSVCC"), "see RTSVCC") & AlsoIf(bag("blnKeyVchr"), "voucher") & Belonging(bag)
  Next
End Sub

Sub ShowHotels
  Dim index, bag
  Title "Hotels", pnr.HotelSegmentsCount + pnr.HTLElementsCount
  For index = 0 To pnr.HotelSegmentsCount - 1
    Set bag = At(index)
    pnr.HotelSegment bag
    Show bag("strKeySegmentNr"), bag("strKeyHotelName") & Also("", bag("strKeyCity")) & _
      Also("from ", bag("strKeyInDate")) & " to " & bag("strKeyOutDate") & _
      Also("", Joined(bag("strKeyPrice"), bag("strKeyPaymentBase"))) & Also("rate ", bag("strKeyRoomRate")) & _
      Also("confirmation ", bag("strKeyConfNo")) & AlsoIf(bag("blnKeyRTSVCH"), "see RTSVCH") & Belonging(bag)
  Next
  For index = 0 To pnr.HTLElementsCount - 1
    ShowText Element("HTL", index)
  Next
End Sub

Sub ShowATXSegments
  Dim index, bag
  Title "ATX segments", pnr.ATXSegmentsCount
  For index = 1 To pnr.ATXSegmentsCount - 1
    Set bag = Element("ATX", index)
    Show bag("strKeySegmentNr"), bag("strKeyProvider") & " " & bag("strKeyStatus") & _
      Also("", bag("strKeyDepCity") & "-" & bag("strKeyArrCity")) & Also("", bag("strKeyDepDate")) & _
      Also("", bag("strKeyFreeText"))
  Next
  ShowLast "ATX "
End Sub

Sub ShowMISElements
  Dim index, bag
  Title "Miscellaneous segments", pnr.MISElementsCount
  For index = 0 To pnr.MISElementsCount - 1
    Set bag = Element("MIS", index)
    Show bag("strKeySegmentNr"), WithoutNumber(bag("strKeySegment"), bag("strKeySegmentNr"))
  Next
End Sub

Sub ShowSurfaceSegments
  Dim index, bag
  Title "Surface segments", pnr.SURElementsCount
  For index = 1 To pnr.SURElementsCount - 1
    Set bag = Element("SUR", index)
    Show bag("strKeyElementNr"), "at " & bag("strKeyPUTime") & AlsoIf(bag("blnKeyArrival"), "arrival") & _
      AlsoIf(bag("blnKeyDeparture"), "departure") & Also("", bag("strKeyAddress")) & Belonging(bag)
  Next
  ShowLast "SUR/"
End Sub

' --- Contacts, services and remarks

Sub ShowContacts
  Dim index, bag
  Title "Contacts", pnr.ContactElementsCount
  For index = 0 To pnr.ContactElementsCount - 1
    Set bag = At(index)
    pnr.ContactElements bag
    ShowText bag
  Next
End Sub

Sub ShowTicketing
  Dim index, bag
  Title "Ticketing", pnr.TicketElementsCount
  For index = 0 To pnr.TicketElementsCount - 1
    Set bag = At(index)
    pnr.TicketElement bag
    Show bag("strKeyElementNr"), WithoutNumber(bag("strKeyElement"), bag("strKeyElementNr")) & _
      Also("", Joined(bag("strKeyAction"), bag("strKeyDate")))
  Next
End Sub

Sub ShowSpecialServices
  Dim index, bag
  Title "Special service requests", pnr.SpecialServiceElementsCount
  For index = 0 To pnr.SpecialServiceElementsCount - 1
    Set bag = Element("SSR", index)
    Show bag("strKeyElementNr"), bag("strKeyCode") & " " & Joined(bag("strKeyAirline"), bag("strKeyStatus")) & _
      AlsoIf(bag("blnKeyAsterix"), "flagged") & Also("", WithoutBelonging(bag("strKeyFreeText"))) & _
      Also("frequent flyer ", bag("strKeyFFNnumber")) & _
      AlsoIf(bag("blnKeySeat") = "True", Joined("seats", bag("strKeySeatNbr"))) & Belonging(bag)
  Next
End Sub

Sub ShowOtherServices
  Dim index, bag
  Title "Other service information", pnr.OtherServiceElementsCount
  For index = 0 To pnr.OtherServiceElementsCount - 1
    Set bag = Element("OSI", index)
    Show bag("strKeyElementNr"), Joined(bag("strKeyAirline"), WithoutBelonging(bag("strKeyText"))) & Belonging(bag)
  Next
End Sub

Sub ShowOptions
  Dim index, bag
  Title "Options", pnr.OptionElementsCount
  For index = 0 To pnr.OptionElementsCount - 1
    Set bag = At(index)
    pnr.OptionElements bag
    ShowText bag
  Next
End Sub

Sub ShowRemarks
  Dim index, bag
  Title "Remarks", pnr.RemarkElementsCount
  For index = 0 To pnr.RemarkElementsCount - 1
    Set bag = At(index)
    pnr.RemarkElement bag
    Show bag("strKeyElementNr"), bag("strKeyText") & Belonging(bag)
  Next
  Title "Confidential remarks", pnr.ConfidentialRemarkElementsCount
  For index = 0 To pnr.ConfidentialRemarkElementsCount - 1
    Set bag = At(index)
    pnr.ConfidentialRemarkElements bag
    ShowText bag
  Next
End Sub

Sub ShowInsurance
  Dim index, bag
  Title "Insurance", pnr.INSElementsCount
  For index = 0 To pnr.INSElementsCount - 1
    Set bag = Element("INS", index)
    Show bag("strKeyElementNr"), bag("strKeyElement")
  Next
End Sub

' --- Tickets and fares

Sub ShowTickets
  Dim index, bag
  Title "Automatic tickets", pnr.AutoTktElementsCount
  For index = 0 To pnr.AutoTktElementsCount - 1
    Set bag = Element("FA", index)
    Show bag("strKeyElementNr"), "ticket " & bag("strKeyTktNbr") & Belonging(bag) & _
      ": " & WithoutNumber(bag("strKeyElement"), bag("strKeyElementNr"))
  Next
  Title "Manual tickets", pnr.ManualTktElementsCount
  For index = 0 To pnr.ManualTktElementsCount - 1
    Set bag = Element("FH", index)
    Show bag("strKeyElementNr"), "ticket " & bag("strKeyTktNbr") & Also("airline ", bag("strKeyAirline")) & _
      AlsoIf(bag("blnKeyManual"), "manual") & AlsoIf(bag("blnKeyAutomated"), "automated") & _
      AlsoIf(bag("blnKeyElectronic"), "electronic") & Belonging(bag)
  Next
End Sub

Sub ShowFares
  Dim index, bag
  Title "Air sequence numbers", pnr.AirSequenceNrElementsCount
  For index = 0 To pnr.AirSequenceNrElementsCount - 1
    Set bag = At(index)
    pnr.AirSequenceNrElement bag
    ShowText bag
  Next
  Title "Endorsements", pnr.FEElementsCount
  For index = 0 To pnr.FEElementsCount - 1
    Set bag = Element("FE", index)
    Show bag("strKeyElementNr"), bag("strKeyText") & Belonging(bag)
  Next
  Title "Commissions", pnr.FareCommissionElementsCount
  For index = 0 To pnr.FareCommissionElementsCount - 1
    Set bag = At(index)
    pnr.FareCommissionElement bag
    Show bag("strKeyElementNr"), bag("strKeyValue") & " percent"
  Next
  Title "Original issues", pnr.OrigianlIssueElementsCount   ' the member is spelled so
  If pnr.OrigianlIssueElementsCount > 0 Then ShowFound "FO"
  Title "Forms of payment", pnr.FormOfPaymentElementsCount
  For index = 0 To pnr.FormOfPaymentElementsCount - 1
    Set bag = pnr.FormOfPaymentElement(At(index))   ' one of the two members that return the bag
    Show bag("strKeyElementNr"), bag("strKeyValue") & Also("expires ", bag("strKeyExpireDate")) & _
      Also("approval ", bag("strKeyManualApproval")) & Belonging(bag)
  Next
  Title "Miscellaneous ticketing", pnr.MiscTktInfoElementsCount
  For index = 0 To pnr.MiscTktInfoElementsCount - 1
    Set bag = Element("FS", index)
    Show bag("strKeyElementNr"), bag("strKeyText") & Also("tour ", bag("strKeyTourCode")) & _
      Also("net fare ", bag("strKeyNetFare")) & Also("selling fare ", bag("strKeySellFare")) & Belonging(bag)
  Next
  Title "Validating airlines", pnr.ValidatingAirlineElementsCount
  For index = 0 To pnr.ValidatingAirlineElementsCount - 1
    Set bag = At(index)
    pnr.ValidatingAirlineElement bag
    Show bag("strKeyElementNr"), "airline " & bag("strKeyAirline") & Belonging(bag)
  Next
End Sub

Sub ShowMCODocuments
  Dim index, bag
  Title "MCO documents", pnr.MCOElementsCount
  For index = 1 To pnr.MCOElementsCount - 1
    Set bag = Element("MCO", index)
    Show bag("strKeyElementNr"), "airline " & bag("strKeyAirline") & _
      Also("", Joined(bag("strKeyOrigin"), bag("strKeyDepDate"))) & Also("", bag("strKeyFare")) & _
      Also("", bag("strKeyServiceType")) & Also("ticket ", bag("strKeyMCOFATicketNbr")) & _
      Also("", bag("strKeyMCOFAElement")) & _
      Also("", bag("strKeyMCOFPElement")) & Also("", bag("strKeyMCOFMElement")) & Belonging(bag)
  Next
  ShowLast "MCO "
End Sub

' --- Addresses and security

Sub ShowAddresses
  Dim index, bag
  Title "Mailing addresses", pnr.MailingAddressElementsCount
  For index = 0 To pnr.MailingAddressElementsCount - 1
    Set bag = At(index)
    pnr.MailingAddressElements bag
    ShowText bag
  Next
  Title "Billing addresses", pnr.BillingAddressElementsCount
  For index = 0 To pnr.BillingAddressElementsCount - 1
    Set bag = At(index)
    pnr.BillingAddressElements bag
    ShowText bag
  Next
End Sub

Sub ShowSecurity
  Dim index, bag
  Title "Security", pnr.SecurityElementsCount
  For index = 0 To pnr.SecurityElementsCount - 1
    Set bag = Element("ES", index)
    Show "", "access " & bag("strKeyAccessMode") & Also("office ", bag("strKeyOfficeID")) & Also("item ", bag("strKeyItem"))
  Next
End Sub

' --- Elements that no member reads

' All display lines that begin with a keyword. The first prefix of a list is not looked at, and what is found counts
' from 1.
Sub ShowFound(keyword)
  Dim bag, found, texts, numbers, index
  Set bag = CreateObject("Scripting.Dictionary")
  bag("strKeyPNRElement") = "ALL"
  bag("strKeyFind()") = Array("", keyword)
  Set found = pnr.Elements(bag)
  texts = found("strKeyResult()")
  numbers = found("strKeyElementNbrs()")
  For index = 1 To UBound(texts)
    Show numbers(index), texts(index)
  Next
End Sub

' Split parties, ATX segments, surface segments and MCO documents count from 1, and the last one is counted but not
' handed out. So it is shown as it stands in the display, with the indented lines behind it.
Sub ShowLast(keyword)
  Dim rows, row, last
  rows = DisplayRows()
  last = -1
  For row = 0 To UBound(rows)
    If KeywordColumn(rows(row), keyword) > 0 Then last = row
  Next
  If last < 0 Then Exit Sub
  Show Trim(Left(rows(last), KeywordColumn(rows(last), keyword) - 1)), _
    Trim(Mid(rows(last), KeywordColumn(rows(last), keyword)))
  For row = last + 1 To UBound(rows)
    If Left(rows(row), 3) <> "   " Then Exit For
    Show "", Trim(rows(row))
  Next
End Sub

' Where an element's keyword stands, behind a number or without one; 0 when the row is none of its elements.
Function KeywordColumn(row, keyword)
  Dim column
  column = InStr(row, keyword)
  KeywordColumn = 0
  If column < 1 Or column > 5 Then Exit Function
  If column = 1 Or IsNumeric(Left(row, column - 1)) Then KeywordColumn = column
End Function

' The display is one text of rows of 80 or a text with line breaks.
Function DisplayRows()
  Dim text, broken, column
  text = pnr.Text
  If InStr(text, vbCrLf) = 0 Then
    For column = 1 To Len(text) Step 80
      broken = broken & Mid(text, column, 80) & vbCrLf
    Next
    text = broken
  End If
  DisplayRows = Split(text, vbCrLf)
End Function
