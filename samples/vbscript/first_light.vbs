' First light: one entry to the host, one PNR, and how much it holds.
'
'   script/run samples/vbscript/first_light.vbs        beside the simulator
'   cscript first_light.vbs                            on a desktop with Quillet, the library registered
'
' Entry and locator are those of the simulator's built-in scenario; put your own in their place.
Option Explicit
Const entry = "AN15JUNPARLON"
Const locator = "ABC123"

Dim quillet, pnr
Set quillet = CreateObject("Wendrill23.CQuillet")   ' connects to the running session
Set pnr = CreateObject("Wendrill23.CPNR")           ' reads the PNR that was retrieved last

WScript.Echo "Running sessions: " & quillet.GetSessionList
WScript.Echo "> " & entry
ShowRows quillet.SendCommand(entry)

If quillet.RetrieveRecLoc(locator) Then
  ShowPnr
Else
  WScript.Echo "There is no PNR " & locator & "."
End If
ShowJournal

' A response is one text of rows of the screen's width, without line breaks.
Sub ShowRows(response)
  Dim column, row
  For column = 1 To Len(response) Step quillet.LastNumberOfColumns
    row = RTrim(Mid(response, column, quillet.LastNumberOfColumns))
    If row <> "" Then WScript.Echo row
  Next
End Sub

Sub ShowPnr
  WScript.Echo ""
  WScript.Echo "PNR " & pnr.RecordLocator & ", made by " & pnr.CreationOfficeID & " " & pnr.CreationAgentSign & _
    " on " & pnr.CreationDate
  Show pnr.NameElementsCount, "names"
  Show pnr.ContactElementsCount, "contacts"
  Show pnr.AllAirSegmentsCount, "air segments in all"
  Show pnr.AirSegmentsCount, "air segments neither open nor flown"
  Show pnr.ActiveAirSegmentsCount, "air segments not yet flown"
  Show pnr.OpenAirSegmentsCount, "open air segments"
  Show pnr.FlownAirSegmentsCount, "flown air segments"
  Show pnr.CarSegmentsCount, "car segments"
  Show pnr.HotelSegmentsCount, "hotel segments"
  Show pnr.HTLElementsCount, "HTL elements"
  Show pnr.INSElementsCount, "INS elements"
  Show pnr.MISElementsCount, "MIS elements"
  Show pnr.OptionElementsCount, "option elements"
  Show pnr.TicketElementsCount, "ticket elements"
  Show pnr.AutoTktElementsCount, "automatic ticket elements"
  Show pnr.OrigianlIssueElementsCount, "original issue elements"   ' the member is spelled so
  Show pnr.FareCommissionElementsCount, "fare commission elements"
  Show pnr.FormOfPaymentElementsCount, "form of payment elements"
  Show pnr.FEElementsCount, "FE elements"
  Show pnr.BillingAddressElementsCount, "billing addresses"
  Show pnr.MailingAddressElementsCount, "mailing addresses"
  Show pnr.RemarkElementsCount, "remarks"
  Show pnr.ConfidentialRemarkElementsCount, "confidential remarks"
End Sub

Sub Show(count, what)
  WScript.Echo Right("   " & count, 4) & " " & what
End Sub

' Only the simulator keeps a journal of what reached the terminal; elsewhere there is nothing to show.
Sub ShowJournal
  Dim simulator
  On Error Resume Next
  Set simulator = CreateObject("QuilletSimulator.Control")
  If Err.Number <> 0 Then Exit Sub
  On Error GoTo 0
  WScript.Echo ""
  WScript.Echo "What reached the terminal:"
  WScript.StdOut.Write simulator.Journal
End Sub
