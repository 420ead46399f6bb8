Sub ShowRows
End Sub
ShowRow 3
