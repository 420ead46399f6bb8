' Creating and releasing the classes, as a script does it.
Option Explicit


Sub TestNoSessionRefusesTheCreationWithTheActivePnrText
  Dim control, quillet
  Set control = Simulator("[terminal]")
  On Error Resume Next
  Set quillet = WScript.CreateObject("Wendrill23.CQuillet")
  RaisedOwn 2510, "creation"
  Check IsEmpty(quillet), "there must be no object"
End Sub

Sub TestSessionListJoinsTheNamesInOrder
  Dim control, quillet
  Set control = Simulator("[[session]]" & vbLf & "name = 'A'" & vbLf & "[[session]]" & vbLf & "name = 'B'")
  Set quillet = CreateObject("Wendrill23.CQuillet")
  Equal "A;B", quillet.GetSessionList, "session list"
  Equal "A;B", quillet.GetSessionList(), "session list, called like a method"
End Sub

Sub TestASecondObjectBuildsNoSessionList
  Dim first, second
  Set first = CreateObject("Wendrill23.CQuillet")
  Set second = CreateObject("Wendrill23.CQuillet")
  Equal "A;B", first.GetSessionList, "session list of the first"
  Equal "", second.GetSessionList, "session list of the second"
End Sub

Sub TestReleasingAllObjectsReleasesTheSharedSession
  Dim control, quillet
  Set control = Simulator("")
  Set quillet = CreateObject("Wendrill23.CQuillet")
  Check control.LiveObjects >= 3, "session list, session and PNR live"
  Set quillet = Nothing
  Equal 0, CInt(control.LiveObjects), "objects after the release"
  Set quillet = CreateObject("Wendrill23.CQuillet")
  Equal "A;B", quillet.GetSessionList, "the next creation sets everything up again"
End Sub

Sub TestEveryClassCanBeCreatedByName
  Dim quillet, other, name
  Set quillet = CreateObject("Wendrill23.CQuillet")
  For Each name In Array("CQuillet", "CPNR", "CQueue", "CBatch", "CEncodeUtils", "IGet", "IGetPNR")
    Set other = CreateObject("Wendrill23." & name)
    Check IsObject(other), name
  Next
End Sub

Sub TestAMemberThatIsNotThereIs438
  Dim quillet
  Set quillet = CreateObject("Wendrill23.CQuillet")
  On Error Resume Next
  quillet.Frobnicate
  Equal CLng(438), Err.Number, "number"
  Err.Clear
End Sub

Sub TestWrongArgumentsAreRefused
  Dim quillet, text
  Set quillet = CreateObject("Wendrill23.CQuillet")
  On Error Resume Next
  text = quillet.SendCommand()
  Equal CLng(450), Err.Number, "too few"
  Err.Clear
  text = quillet.SendCommand("A", "B")
  Equal CLng(450), Err.Number, "too many"
  Err.Clear
  text = quillet.GetLineFromLastBuffer("one")
  Equal CLng(13), Err.Number, "no number"
  Err.Clear
  text = quillet.GetLineFromLastBuffer(70000)
  Equal CLng(6), Err.Number, "more than 16 bits"
  Err.Clear
End Sub

Sub TestInterfaceClassesReturnNothing
  Dim get1, get2, bag
  Set get1 = CreateObject("Wendrill23.IGet")
  Set get2 = CreateObject("Wendrill23.IGetPNR")
  Set bag = CreateObject("Pellorin.ParamBag")
  Check get1.AirSegments(bag) Is Nothing, "IGet"
  Check get1.AirSequenceNrElement(bag) Is Nothing, "the last member of IGet"
  Check get2.Elements(bag) Is Nothing, "IGetPNR"
  Equal 0, CInt(bag.Count), "keys in the bag"
End Sub
