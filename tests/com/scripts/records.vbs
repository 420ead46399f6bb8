
' --- Records: what a member makes of a bag, beside the records that are expected in a file.
'
' A file under tests/com/records/ holds, for the PNR of simulator/scenarios/rich_pnr.toml, records like this one:
'
'   [RemarkElement 0]
'   strKeyElement = "28 RM PAY AT AIRPORT/S5/P1"
'   strKeyPasAsso = "1"
'
' A member of IGet or a kind of IGetPNR.Elements, the index, and all keys in the order in which they are set. A last line
' "error 2229" stands for what the call raises. Lines that begin with "#" and empty lines say nothing.

' A file of the clone, whose root the test's first argument names.
Function InClone(path)
  InClone = Replace(WScript.Arguments(0) & "/" & path, "/", "\")
End Function

' The control of the simulator with the PNR RCH001 on display.
Function RichDesk()
  Set RichDesk = Simulator("")
  RichDesk.Load InClone("simulator/scenarios/rich_pnr.toml")
End Function

' The file system object opens a file for itself alone, and tests run side by side: it is tried for some seconds.
Function Opened(path)
  Dim attempt
  On Error Resume Next
  For attempt = 1 To 300
    Err.Clear
    Set Opened = CreateObject("Scripting.FileSystemObject").OpenTextFile(path)
    If Err.Number = 0 Then Exit Function
    WScript.Sleep 20
  Next
  Check False, path & " cannot be opened: " & Err.Description
End Function

' The expected records of a file: under "RemarkElement 0" the lines, each ended by a line feed.
Function RecordsIn(name)
  Dim records, file, line, heading
  Set records = CreateObject("Scripting.Dictionary")
  Set file = Opened(InClone("tests/com/records/" & name & ".records"))
  Do Until file.AtEndOfStream
    line = file.ReadLine
    If Left(line, 1) = "[" Then
      heading = Mid(line, 2, Len(line) - 2)
      Check Not records.Exists(heading), name & " has but one record " & heading
      records(heading) = ""
    ElseIf line <> "" And Left(line, 1) <> "#" Then
      records(heading) = records(heading) & line & vbLf
    End If
  Loop
  file.Close
  Check records.Count > 0, name & " has records"
  Set RecordsIn = records
End Function

' "RemarkElement" and 0 of "RemarkElement 0".
Function NameIn(heading)
  NameIn = Left(heading, InStrRev(heading, " ") - 1)
End Function

Function IndexIn(heading)
  IndexIn = CInt(Mid(heading, InStrRev(heading, " ") + 1))
End Function

' A new bag of a class, the position in it.
Function NewBag(className, index)
  Dim bag
  Set bag = CreateObject(className)
  bag("intKeyIndex") = index
  Set NewBag = bag
End Function

Function BagAt(index)
  Set BagAt = NewBag("Pellorin.ParamBag", index)
End Function

' All keys of a bag in their order, a line each: the form of the files.
Function BagText(bag)
  Dim key, text
  text = ""
  For Each key In bag.Keys
    text = text & key & " = " & Described(bag(key)) & vbLf
  Next
  BagText = text
End Function

Function Described(value)
  Select Case VarType(value)
    Case vbString: Described = """" & value & """"
    Case vbBoolean: Described = CStr(value)
    Case vbInteger: Described = "int16 " & value
    Case vbLong: Described = "int32 " & value
    Case Else: Described = "of type " & VarType(value)
  End Select
End Function

' The pending error in the form of the files, its source and its message being checked; nothing when there is none.
Function ErrorText(what)
  Dim number
  number = Err.Number
  ErrorText = ""
  If number = 0 Then Exit Function
  ErrorText = "error " & number & vbLf
  If number = 9 Then
    Raised 9, "Wendrill23", "Subscript out of range", what
  Else
    RaisedOwn number, what
  End If
End Function
