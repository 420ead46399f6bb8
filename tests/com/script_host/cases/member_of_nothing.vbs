Dim gone
Set gone = Nothing
gone.Clear
