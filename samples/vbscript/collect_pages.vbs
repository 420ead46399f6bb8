' A response that is longer than a screen: all of it as one text, and page by page.
'
'   script/run samples/vbscript/collect_pages.vbs     beside the simulator
'   cscript collect_pages.vbs                         on a desktop with Quillet, the library registered
'
' The entries are those of the simulator's built-in scenario; put your own in their place.
Option Explicit

Dim quillet, text, pages, number
Set quillet = CreateObject("Wendrill23.CQuillet")

' One text: pages joined, without the marks that say that more follows.
WScript.Echo "> HE"
ShowRows quillet.SendCommandGetAll("HE")

' Page by page: an array, counted from 1, in a plain variable. The result is the whole text all the same.
WScript.Echo "> AN20JUNNCEPAR"
text = quillet.SendCommandCollectPages("AN20JUNNCEPAR", pages)
For number = 1 To UBound(pages)
  WScript.Echo "Page " & number & " of " & UBound(pages)
  ShowRows pages(number)
Next
WScript.Echo "All pages have " & Len(text) \ 80 & " rows together."

' From its third line on, and not more than one page of it.
WScript.Echo "> AN20JUNNCEPAR, one page from line 3 on"
ShowRows quillet.SendCommandLines("AN20JUNNCEPAR", 3, 1)

Sub ShowRows(response)
  Dim column
  For column = 1 To Len(response) Step 80
    WScript.Echo "  " & RTrim(Mid(response, column, 80))
  Next
End Sub
