' Looks for a text in a response of several pages and stops at the page that has it: the pages after it are not fetched.
'
'   script/run samples/vbscript/find_in_pages.vbs [TEXT [ENTRY]]       beside the simulator
'   cscript //nologo find_in_pages.vbs [TEXT [ENTRY]]                  on a desktop with Quillet, the library registered
'
' Without arguments: a flight in an availability display of the simulator. The members that collect pages fetch all of
' them; here each page is an entry of its own, MD. An error goes to standard error, and the status is 1.
Option Explicit

Dim quillet
If Not Looked() Then WScript.Quit 1

' Whether the search came to its end. Whatever fails, at any depth, ends here.
Function Looked()
  On Error Resume Next
  Find Argument(0, "AF 123"), Argument(1, "AN20JUNNCEPAR")
  Looked = (Err.Number = 0)
  If Not Looked Then WScript.StdErr.WriteLine "Error " & Err.Number & ": " & Err.Description
End Function

Function Argument(position, otherwise)
  Argument = otherwise
  If position < WScript.Arguments.Count Then Argument = WScript.Arguments(position)
End Function

Sub Find(text, entry)
  Dim page, number, row
  Set quillet = WScript.CreateObject("Wendrill23.CQuillet")     ' connects to the running session
  WScript.Echo "> " & entry
  page = quillet.SendCommandNoClear(entry)                      ' waits for the host's answer
  number = 1
  row = RowWith(page, text)
  Do While row = "" And GoesOn(page)
    WScript.Echo "Page " & number & ": not there"
    page = quillet.SendCommandNoClear("MD")
    number = number + 1
    row = RowWith(page, text)
  Loop
  If row = "" Then
    WScript.Echo "Page " & number & ": not there, and this is the last one"
  ElseIf GoesOn(page) Then
    WScript.Echo "Page " & number & ": " & row
    WScript.Echo "The pages after it were not fetched."
  Else
    WScript.Echo "Page " & number & ", the last one: " & row
  End If
End Sub

' The first row of a page that holds the text, without the blanks around it; empty when there is none.
Function RowWith(page, text)
  Dim row
  For Each row In Rows(page)
    If InStr(row, text) > 0 Then
      RowWith = Trim(row)
      Exit Function
    End If
  Next
End Function

' Whether more pages follow: the last row with text begins with "MORE", or says ">   PAGE  1/ 3" or ")> 1/ 3".
Function GoesOn(page)
  Dim row, last, numbers
  For Each row In Rows(page)
    If Trim(row) <> "" Then last = row
  Next
  GoesOn = (Left(last, 4) = "MORE")
  If InStr(last, ">") = 0 Then Exit Function
  numbers = Split(Replace(Mid(last, InStr(last, ">") + 1), "PAGE", ""), "/")
  If UBound(numbers) <> 1 Then Exit Function
  If IsNumeric(numbers(0)) And IsNumeric(numbers(1)) Then GoesOn = (CLng(numbers(0)) < CLng(numbers(1)))
End Function

' A response is one text of rows of the screen's width, without line breaks.
Function Rows(page)
  Dim columns, column, broken
  columns = quillet.LastNumberOfColumns
  If columns < 1 Then columns = 80
  For column = 1 To Len(page) Step columns
    broken = broken & vbLf & Mid(page, column, columns)
  Next
  Rows = Split(Mid(broken, 2), vbLf)
End Function
