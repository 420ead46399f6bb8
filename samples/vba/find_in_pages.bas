Attribute VB_Name = "FindInPages"
' Looks for a text in a response of several pages and stops at the page that has it: the pages after it are not fetched.
'
' For 32-bit Office on a desktop with Quillet, the library registered: in the editor File, Import File, then run
' FindSampleFlight, or call FindText from a macro of your own. What it says goes to the editor's Immediate window.
'
' The members that collect pages fetch all of them; here each page is an entry of its own, MD.
Option Explicit

Public Sub FindSampleFlight()
    On Error GoTo Failed
    FindText "AF 123", "AN20JUNNCEPAR"
    Exit Sub
Failed:
    Debug.Print "Error " & Err.Number & ": " & Err.Description
End Sub

Public Sub FindText(ByVal text As String, ByVal entry As String)
    Dim quillet As Object
    Dim page() As String
    Dim number As Long
    Dim row As String

    Set quillet = CreateObject("Wendrill23.CQuillet")   ' connects to the running session
    Debug.Print "> " & entry
    page = PageOf(quillet, entry)
    number = 1
    row = RowWith(page, text)
    Do While row = "" And GoesOn(page)
        Debug.Print "Page " & number & ": not there"
        page = PageOf(quillet, "MD")
        number = number + 1
        row = RowWith(page, text)
    Loop
    If row = "" Then
        Debug.Print "Page " & number & ": not there, and this is the last one"
    ElseIf GoesOn(page) Then
        Debug.Print "Page " & number & ": " & row
        Debug.Print "The pages after it were not fetched."
    Else
        Debug.Print "Page " & number & ", the last one: " & row
    End If
End Sub

' Sends an entry, waits for the host's answer and cuts it into rows: it is one text of rows of the screen's width,
' without line breaks.
Private Function PageOf(ByVal quillet As Object, ByVal entry As String) As String()
    Dim response As String
    Dim columns As Long
    Dim column As Long
    Dim broken As String
    response = quillet.SendCommandNoClear(entry)
    columns = quillet.LastNumberOfColumns
    If columns < 1 Then columns = 80
    For column = 1 To Len(response) Step columns
        broken = broken & vbLf & Mid$(response, column, columns)
    Next column
    PageOf = Split(Mid$(broken, 2), vbLf)
End Function

' The first row that holds the text, without the blanks around it; empty when there is none.
Private Function RowWith(ByRef page() As String, ByVal text As String) As String
    Dim index As Long
    For index = LBound(page) To UBound(page)
        If InStr(page(index), text) > 0 Then
            RowWith = Trim$(page(index))
            Exit Function
        End If
    Next index
End Function

' Whether more pages follow: the last row with text begins with "MORE", or says ">   PAGE  1/ 3" or ")> 1/ 3".
Private Function GoesOn(ByRef page() As String) As Boolean
    Dim index As Long
    Dim last As String
    Dim numbers() As String
    For index = LBound(page) To UBound(page)
        If Trim$(page(index)) <> "" Then last = page(index)
    Next index
    GoesOn = (Left$(last, 4) = "MORE")
    If InStr(last, ">") = 0 Then Exit Function
    numbers = Split(Replace(Mid$(last, InStr(last, ">") + 1), "PAGE", ""), "/")
    If UBound(numbers) <> 1 Then Exit Function
    If IsNumeric(numbers(0)) And IsNumeric(numbers(1)) Then GoesOn = (CLng(numbers(0)) < CLng(numbers(1)))
End Function
