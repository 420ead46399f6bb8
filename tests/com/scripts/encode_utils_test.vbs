' The host connection for other components, and the classes that need no session.
Option Explicit

' Call it with On Error Resume Next in force, right behind the creation that fails.
Sub RaisedConnectFailed
  Raised -2147220394, "CEncodeUtils.Class_Initialize", "Failed to connect to Selvarin Quillet Session." & vbCr & _
    vbCr & "Verify that an Selvarin Quillet session is started.", "creation"
End Sub

Sub TestCreationWithoutASessionFailsWithTheTwoPartMessage
  Dim control, utils
  Set control = Simulator("[terminal]")
  On Error Resume Next
  Set utils = WScript.CreateObject("Wendrill23.CEncodeUtils")
  RaisedConnectFailed
  Check IsEmpty(utils), "there must be no object"
End Sub

Sub TestWhateverFailsInTheCreationIsTheSameError
  Dim control, utils, operation
  Set control = Simulator("")
  On Error Resume Next
  control.FailNext "Count", 438, 1
  Set utils = WScript.CreateObject("Wendrill23.CEncodeUtils")
  RaisedConnectFailed
  Set utils = WScript.CreateObject("Wendrill23.CEncodeUtils")
  RaisedNothing "the next creation"
End Sub

Sub TestEncodeSessionIsOneObject
  Dim utils, connection
  Set utils = CreateObject("Wendrill23.CEncodeUtils")
  Set connection = utils.EncodeSession
  Check connection Is utils.EncodeSession, "read twice"
  Check connection Is utils.EncodeSession(), "called like a method"
End Sub

Sub TestThePnrToolkitTakesTheConnection
  Dim control, utils, pnr
  Set control = Simulator("")
  Set utils = CreateObject("Wendrill23.CEncodeUtils")
  Set pnr = CreateObject("szuPNR.PNR")
  pnr.Retrieve utils.EncodeSession, "RTABC123"
  Equal "retrieve RTABC123", Journal(), "what reached the terminal"
  Equal "PARXX0100", pnr.Header.OfficeID, "the PNR's office"
End Sub

Sub TestAFailingConnectionArrivesUnchanged
  Dim control, utils, connection
  Set control = Simulator("")
  Set utils = CreateObject("Wendrill23.CEncodeUtils")
  On Error Resume Next
  control.FailNext "HostConnection", &H80004005, 1
  Set connection = utils.EncodeSession
  Equal CLng(&H80004005), Err.Number, "number"
  Equal "QuilletSimulator", Err.Source, "source"
  Check InStr(Err.Description, "HostConnection") > 0, "description names the operation: " & Err.Description
End Sub

Sub TestItSharesNothingWithTheSession
  Dim control, utils, quillet
  Set control = Simulator("")
  Set utils = CreateObject("Wendrill23.CEncodeUtils")
  Set quillet = CreateObject("Wendrill23.CQuillet")
  Equal "A;B", quillet.GetSessionList, "it does not count as a living session object"
  quillet.StopLoop
  Check Not utils.EncodeSession Is Nothing, "and keeps its connection when the shared session is dropped"
End Sub

Sub TestItsPropertyCannotBeAssigned
  Dim utils
  Set utils = CreateObject("Wendrill23.CEncodeUtils")
  On Error Resume Next
  Set utils.EncodeSession = utils
  Equal CLng(438), Err.Number, "number"
  Err.Clear
End Sub

Sub TestTheOtherClassesNeedNoSession
  Dim control, name, created
  Set control = Simulator("[terminal]")
  For Each name In Array("CPNR", "CQueue", "CBatch", "IGet", "IGetPNR")
    Set created = WScript.CreateObject("Wendrill23." & name)
    Check IsObject(created), name
  Next
  Equal CLng(0), CLng(control.LiveObjects), "objects of the desktop that they need"
End Sub
