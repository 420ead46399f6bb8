Attribute VB_Name = "PnrCsv"
' A list of record locators becomes one CSV: the names, flights, tickets and special services of each PNR.
'
' For 32-bit Office on a desktop with Quillet, the library registered: in the editor File, Import File, then run
' WritePnrs, which asks for both files. From a macro of your own:
'
'   QueueToCsv "C:\work\locators.txt", "C:\work\pnrs.csv"
'
' The list has one locator on each line. The CSV (RFC 4180) is replaced when it is there; everything else goes to the editor's
' Immediate window. A PNR that is not found is skipped; an error ends the list and is raised again for the caller.
Option Explicit

Private mCurrent As String   ' the locator that an error belongs to

Public Sub WritePnrs()
    Dim list As String
    Dim csv As String
    list = InputBox("File with one record locator on each line:")
    If list = "" Then Exit Sub
    csv = InputBox("CSV file to write:", , list & ".csv")
    If csv = "" Then Exit Sub
    On Error GoTo Failed
    QueueToCsv list, csv
    MsgBox "Written: " & csv
    Exit Sub
Failed:
    MsgBox "Error " & Err.Number & InPnr() & ": " & Err.Description, vbExclamation
End Sub

Public Sub QueueToCsv(ByVal listPath As String, ByVal csvPath As String)
    Dim quillet As Object
    Dim locators As Collection
    Dim locator As Variant
    Dim file As Integer
    Dim number As Long
    Dim source As String
    Dim description As String

    mCurrent = ""
    Set locators = LocatorsOf(listPath)
    Set quillet = CreateObject("Wendrill23.CQuillet")   ' connects to the running session
    file = FreeFile
    Open csvPath For Output As #file
    On Error GoTo Failed
    Print #file, CsvRow("locator", "kind", "number", "what", "from", "to", "date", "departs", "arrives", "detail")
    For Each locator In locators
        mCurrent = locator
        If quillet.RetrieveRecLoc(mCurrent) Then
            Print #file, RowsOf(mCurrent);
        Else
            Debug.Print "There is no PNR " & mCurrent & "."
        End If
    Next locator
    Close #file
    Exit Sub

Failed:
    number = Err.Number
    source = Err.Source
    description = Err.Description
    Close #file
    Err.Raise number, source, description
End Sub

Private Function InPnr() As String
    If mCurrent <> "" Then InPnr = " in PNR " & mCurrent
End Function

Private Function LocatorsOf(ByVal path As String) As Collection
    Dim found As New Collection
    Dim file As Integer
    Dim text As String
    Dim lines() As String
    Dim index As Long
    file = FreeFile
    Open path For Binary Access Read As #file
    text = Space$(LOF(file))
    Get #file, , text
    Close #file
    lines = Split(Replace(text, vbCr, vbLf), vbLf)
    For index = LBound(lines) To UBound(lines)
        If Trim$(lines(index)) <> "" Then found.Add Trim$(lines(index))
    Next index
    Set LocatorsOf = found
End Function

' All rows of a PNR at once: one that cannot be read to its end leaves no half of it.
Private Function RowsOf(ByVal locator As String) As String
    Dim pnr As Object
    Set pnr = CreateObject("Wendrill23.CPNR")   ' a new one for each PNR: it keeps the creation line
    RowsOf = Names(pnr, locator) & Segments(pnr, locator) & Tickets(pnr, locator) & Services(pnr, locator)
End Function

Private Function Names(ByVal pnr As Object, ByVal locator As String) As String
    Dim index As Long
    Dim bag As Object
    For index = 0 To pnr.NameElementsCount - 1
        Set bag = BagAt(index)
        pnr.NameElement bag
        Names = Names & CsvRow(locator, "name", bag("strKeyElementNr"), _
            bag("strKeyLastName") & "/" & bag("strKeyInitial"), "", "", "", "", "", bag("strKeyPapType")) & vbCrLf
    Next index
End Function

' Flights have times when they are neither open nor flown.
Private Function Segments(ByVal pnr As Object, ByVal locator As String) As String
    Dim index As Long
    Dim bag As Object
    For index = 0 To pnr.AllAirSegmentsCount - 1
        Set bag = BagAt(index)
        pnr.AllAirSegments bag
        Segments = Segments & CsvRow(locator, "segment", bag("strKeySegmentNr"), _
            bag("strKeyAirline") & " " & bag("strKeyNumber"), bag("strKeyDepCity"), bag("strKeyArrCity"), _
            bag("strKeyDepDate"), bag("strKeyDepTime"), bag("strKeyArrTime"), "class " & bag("strKeyClass")) & vbCrLf
    Next index
End Function

Private Function Tickets(ByVal pnr As Object, ByVal locator As String) As String
    Dim index As Long
    Dim bag As Object
    For index = 0 To pnr.AutoTktElementsCount - 1
        Set bag = Element(pnr, "FA", index)
        Tickets = Tickets & CsvRow(locator, "ticket", bag("strKeyElementNr"), bag("strKeyTktNbr"), "", "", "", "", "", _
            Belonging(bag)) & vbCrLf
    Next index
End Function

Private Function Services(ByVal pnr As Object, ByVal locator As String) As String
    Dim index As Long
    Dim bag As Object
    For index = 0 To pnr.SpecialServiceElementsCount - 1
        Set bag = Element(pnr, "SSR", index)
        Services = Services & CsvRow(locator, "service", bag("strKeyElementNr"), bag("strKeyCode"), "", "", "", "", "", _
            Trim$(bag("strKeyAirline") & " " & bag("strKeyStatus") & " " & Belonging(bag))) & vbCrLf
    Next index
End Function

Private Function Belonging(ByVal bag As Object) As String
    If bag("strKeySegAsso") <> "" Then Belonging = "segment " & bag("strKeySegAsso")
    If bag("strKeyPasAsso") <> "" Then Belonging = Trim$(Belonging & " passenger " & bag("strKeyPasAsso"))
End Function

' A new bag for each call: a member leaves there what an earlier call has put.
Private Function BagAt(ByVal index As Long) As Object
    Dim bag As Object
    Set bag = CreateObject("Scripting.Dictionary")
    bag("intKeyIndex") = index
    Set BagAt = bag
End Function

Private Function Element(ByVal pnr As Object, ByVal kind As String, ByVal index As Long) As Object
    Dim bag As Object
    Set bag = BagAt(index)
    bag("strKeyPNRElement") = kind
    pnr.Elements bag
    Set Element = bag
End Function

' A row of the CSV. A value with a comma, a quotation mark or a line break is quoted, its own marks doubled.
Private Function CsvRow(ParamArray values() As Variant) As String
    Dim index As Long
    For index = LBound(values) To UBound(values)
        CsvRow = CsvRow & "," & Quoted(CStr(values(index)))
    Next index
    CsvRow = Mid$(CsvRow, 2)
End Function

Private Function Quoted(ByVal text As String) As String
    Quoted = text
    If InStr(text, ",") + InStr(text, """") + InStr(text, vbCr) + InStr(text, vbLf) > 0 Then
        Quoted = """" & Replace(text, """", """""") & """"
    End If
End Function
