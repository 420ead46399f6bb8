' A list of record locators becomes one CSV: the names, flights, tickets and special services of each PNR.
'
'   script/run samples/vbscript/queue_to_csv.vbs ABC123 locators.txt            beside the simulator
'   cscript //nologo queue_to_csv.vbs ABC123 locators.txt >pnrs.csv             on a desktop with Quillet, the library
'                                                                               registered
'
' An argument that is the name of a file means the locators in it, one a line. The CSV (RFC 4180) goes to standard
' output, everything else to standard error. A PNR that is not found is skipped; the status is 1 when an error ends the
' list, 2 without locators.
Option Explicit

Dim quillet, locators, current
locators = AllLocators()                                      ' with a blank between them
If locators = "" Then
  WScript.StdErr.WriteLine "Name record locators, or a file with one on each line."
  WScript.Quit 2
End If
If Not Written() Then WScript.Quit 1

Function AllLocators()
  Dim files, word, list, line, found
  Set files = CreateObject("Scripting.FileSystemObject")
  For Each word In WScript.Arguments
    If files.FileExists(word) Then list = list & vbLf & TextOfFile(files, word) Else list = list & vbLf & word
  Next
  For Each line In Split(Replace(list, vbCr, vbLf), vbLf)
    If Trim(line) <> "" Then found = found & " " & Trim(line)
  Next
  AllLocators = Trim(found)
End Function

Function TextOfFile(files, path)
  Dim file
  Set file = files.OpenTextFile(path)
  If Not file.AtEndOfStream Then TextOfFile = file.ReadAll   ' reading an empty file would be an error
  file.Close
End Function

' Whether the whole list was written. Whatever fails, at any depth, ends here.
Function Written()
  On Error Resume Next
  WriteAll
  Written = (Err.Number = 0)
  If Not Written Then WScript.StdErr.WriteLine "Error " & Err.Number & InPnr() & ": " & Err.Description
End Function

Function InPnr()
  If current <> "" Then InPnr = " in PNR " & current
End Function

Sub WriteAll
  Dim locator
  Set quillet = WScript.CreateObject("Wendrill23.CQuillet")   ' connects to the running session
  WScript.Echo Row(Array("locator", "kind", "number", "what", "from", "to", "date", "departs", "arrives", "detail"))
  For Each locator In Split(locators, " ")
    current = locator
    If quillet.RetrieveRecLoc(locator) Then
      WritePnr locator
    Else
      WScript.StdErr.WriteLine "There is no PNR " & locator & "."
    End If
  Next
End Sub

' All rows of a PNR at once: one that cannot be read to its end leaves no half of it.
Sub WritePnr(locator)
  Dim pnr, rows
  Set pnr = WScript.CreateObject("Wendrill23.CPNR")           ' a new one for each PNR: it keeps the creation line
  rows = Names(pnr, locator) & Segments(pnr, locator) & Tickets(pnr, locator) & Services(pnr, locator)
  If rows <> "" Then WScript.Echo Left(rows, Len(rows) - Len(vbCrLf))
End Sub

Function Names(pnr, locator)
  Dim index, bag
  For index = 0 To pnr.NameElementsCount - 1
    Set bag = At(index)
    pnr.NameElement bag
    Names = Names & Row(Array(locator, "name", bag("strKeyElementNr"), bag("strKeyLastName") & "/" & _
      bag("strKeyInitial"), "", "", "", "", "", bag("strKeyPapType"))) & vbCrLf
  Next
End Function

' Flights have times when they are neither open nor flown.
Function Segments(pnr, locator)
  Dim index, bag
  For index = 0 To pnr.AllAirSegmentsCount - 1
    Set bag = At(index)
    pnr.AllAirSegments bag
    Segments = Segments & Row(Array(locator, "segment", bag("strKeySegmentNr"), _
      bag("strKeyAirline") & " " & bag("strKeyNumber"), bag("strKeyDepCity"), bag("strKeyArrCity"), _
      bag("strKeyDepDate"), bag("strKeyDepTime"), bag("strKeyArrTime"), "class " & bag("strKeyClass"))) & vbCrLf
  Next
End Function

Function Tickets(pnr, locator)
  Dim index, bag
  For index = 0 To pnr.AutoTktElementsCount - 1
    Set bag = Element(pnr, "FA", index)
    Tickets = Tickets & Row(Array(locator, "ticket", bag("strKeyElementNr"), bag("strKeyTktNbr"), "", "", "", "", "", _
      Belonging(bag))) & vbCrLf
  Next
End Function

Function Services(pnr, locator)
  Dim index, bag
  For index = 0 To pnr.SpecialServiceElementsCount - 1
    Set bag = Element(pnr, "SSR", index)
    Services = Services & Row(Array(locator, "service", bag("strKeyElementNr"), bag("strKeyCode"), "", "", "", "", "", _
      Trim(bag("strKeyAirline") & " " & bag("strKeyStatus") & " " & Belonging(bag)))) & vbCrLf
  Next
End Function

Function Belonging(bag)
  If bag("strKeySegAsso") <> "" Then Belonging = "segment " & bag("strKeySegAsso")
  If bag("strKeyPasAsso") <> "" Then Belonging = Trim(Belonging & " passenger " & bag("strKeyPasAsso"))
End Function

' A new bag for each call: a member leaves there what an earlier call has put.
Function At(index)
  Dim bag
  Set bag = CreateObject("Scripting.Dictionary")
  bag("intKeyIndex") = index
  Set At = bag
End Function

Function Element(pnr, kind, index)
  Dim bag
  Set bag = At(index)
  bag("strKeyPNRElement") = kind
  pnr.Elements bag
  Set Element = bag
End Function

' A row of the CSV. A value with a comma, a quotation mark or a line break is quoted, its own marks doubled.
Function Row(values)
  Dim value
  For Each value In values
    Row = Row & "," & Quoted(CStr(value))
  Next
  Row = Mid(Row, 2)
End Function

Function Quoted(text)
  Quoted = text
  If InStr(text, ",") + InStr(text, """") + InStr(text, vbCr) + InStr(text, vbLf) > 0 Then
    Quoted = """" & Replace(text, """", """""") & """"
  End If
End Function
