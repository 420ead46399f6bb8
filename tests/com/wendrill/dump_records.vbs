' Prints every record that the library's accessors give, one key in each line:
'
'   LOCATOR|MEMBER|INDEX|KEY|VALUE
'
' The arguments are the locators of the PNRs. An index whose accessor stores nothing has no line.
Option Explicit

Dim quillet, pnr, locator
Set quillet = CreateObject("Wendrill23.CQuillet")
For Each locator In WScript.Arguments
  Set pnr = CreateObject("Wendrill23.CPNR")
  If Not quillet.RetrieveRecLoc(locator) Then
    WScript.Echo locator & " was not found"
    WScript.Quit 1
  End If
  DumpPnr
Next

Sub DumpPnr
  Line "", "", "RecordLocator", pnr.RecordLocator
  Line "", "", "CreationOfficeID", pnr.CreationOfficeID
  Line "", "", "CreationAgentSign", pnr.CreationAgentSign
  Line "", "", "CreationDate", pnr.CreationDate
  Dump "PNRHeader", 1
  Dump "NameElement", pnr.NameElementsCount
  Dump "ActiveAirSegments", pnr.ActiveAirSegmentsCount
  Dump "AirSegments", pnr.AirSegmentsCount
  Dump "AllAirSegments", pnr.AllAirSegmentsCount
  Dump "FlownAirSegments", pnr.FlownAirSegmentsCount
  Dump "OpenAirSegments", pnr.OpenAirSegmentsCount
  Dump "CarSegment", pnr.CarSegmentsCount
  Dump "HotelSegment", pnr.HotelSegmentsCount
  Dump "ContactElements", pnr.ContactElementsCount
  Dump "TicketElement", pnr.TicketElementsCount
  Dump "OptionElements", pnr.OptionElementsCount
  Dump "RemarkElement", pnr.RemarkElementsCount
  Dump "ConfidentialRemarkElements", pnr.ConfidentialRemarkElementsCount
  Dump "MailingAddressElements", pnr.MailingAddressElementsCount
  Dump "BillingAddressElements", pnr.BillingAddressElementsCount
  Dump "FareCommissionElement", pnr.FareCommissionElementsCount
  Dump "FormOfPaymentElement", pnr.FormOfPaymentElementsCount
  Dump "ValidatingAirlineElement", pnr.ValidatingAirlineElementsCount
  Dump "AirSequenceNrElement", pnr.AirSequenceNrElementsCount
  Dump "HTL", pnr.HTLElementsCount
  Dump "MIS", pnr.MISElementsCount
  Dump "INS", pnr.INSElementsCount
  Dump "ATX", pnr.ATXSegmentsCount
  Dump "SUR", pnr.SURElementsCount
  Dump "SSR", pnr.SpecialServiceElementsCount
  Dump "OSI", pnr.OtherServiceElementsCount
  Dump "MCO", pnr.MCOElementsCount
  Dump "* SP", pnr.SPElementsCount
  Dump "ES", pnr.SecurityElementsCount
  Dump "FA", pnr.AutoTktElementsCount
  Dump "FH", pnr.ManualTktElementsCount
  Dump "FE", pnr.FEElementsCount
  Dump "FS", pnr.MiscTktInfoElementsCount
End Sub

Sub Dump(member, count)
  Dim index, bag, key
  Line member, "", "count", count
  For index = 0 To count - 1
    Set bag = CreateObject("Scripting.Dictionary")
    bag("intKeyIndex") = index
    Read member, bag
    For Each key In bag.Keys
      If key <> "intKeyIndex" And key <> "strKeyPNRElement" Then Line member, index, key, bag(key)
    Next
  Next
End Sub

Sub Read(member, bag)
  Select Case member
    Case "PNRHeader" pnr.PNRHeader bag
    Case "NameElement" pnr.NameElement bag
    Case "ActiveAirSegments" pnr.ActiveAirSegments bag
    Case "AirSegments" pnr.AirSegments bag
    Case "AllAirSegments" pnr.AllAirSegments bag
    Case "FlownAirSegments" pnr.FlownAirSegments bag
    Case "OpenAirSegments" pnr.OpenAirSegments bag
    Case "CarSegment" pnr.CarSegment bag
    Case "HotelSegment" pnr.HotelSegment bag
    Case "ContactElements" pnr.ContactElements bag
    Case "TicketElement" pnr.TicketElement bag
    Case "OptionElements" pnr.OptionElements bag
    Case "RemarkElement" pnr.RemarkElement bag
    Case "ConfidentialRemarkElements" pnr.ConfidentialRemarkElements bag
    Case "MailingAddressElements" pnr.MailingAddressElements bag
    Case "BillingAddressElements" pnr.BillingAddressElements bag
    Case "FareCommissionElement" pnr.FareCommissionElement bag
    Case "FormOfPaymentElement" pnr.FormOfPaymentElement bag
    Case "ValidatingAirlineElement" pnr.ValidatingAirlineElement bag
    Case "AirSequenceNrElement" pnr.AirSequenceNrElement bag
    Case Else
      bag("strKeyPNRElement") = member
      pnr.Elements bag
  End Select
End Sub

Sub Line(member, index, key, value)
  WScript.Echo locator & "|" & member & "|" & index & "|" & key & "|" & value
End Sub
