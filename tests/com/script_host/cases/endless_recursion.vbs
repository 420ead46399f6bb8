Sub Again
  Again
End Sub
Again
