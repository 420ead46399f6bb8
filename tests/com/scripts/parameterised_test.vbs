' Entries whose handling the caller chooses through the keys of a bag.
Option Explicit

' The classes that serve as a bag. Each test runs with both.
Function BagClasses()
  BagClasses = Array("Pellorin.ParamBag", "Scripting.Dictionary")
End Function

' A new bag with keys and values one after the other.
Function BagWith(className, pairs)
  Dim bag, place
  Set bag = CreateObject(className)
  For place = 0 To UBound(pairs) Step 2
    bag(pairs(place)) = pairs(place + 1)
  Next
  Set BagWith = bag
End Function

' Anything with a keyed default member is a bag. This one remembers what was asked of it.
Class RememberingBag
  Public Asked
  Private values

  Private Sub Class_Initialize
    Set values = CreateObject("Scripting.Dictionary")
  End Sub

  Public Sub Hold(key, value)
    values(key) = value
  End Sub

  Public Default Property Get Item(key)
    Asked = Asked & key & " "
    If values.Exists(key) Then Item = values(key)
  End Property
End Class

' --- SendCommandFI

Sub TestFIWithAllKeysFalseSendsOnceAndReturnsTheBuffer
  Dim control, quillet, className, bag
  For Each className In BagClasses()
    Set control = Simulator(SessionWith(Answer("TQ", 0, Array("ONE|)> 1/ 2", "TWO|)> 2/ 2"))))
    Set quillet = Nothing
    Set quillet = CreateObject("Wendrill23.CQuillet")
    Set bag = BagWith(className, _
      Array("blnKeyClear", False, "blnKeyGetAll", False, "blnKeyPNR", False, "blnKeyTST", False))
    Equal Rows("ONE|)> 1/ 2"), quillet.SendCommandFI("TQ", bag), className
    Equal "send TQ", Journal(), "what reached the terminal, " & className
  Next
End Sub

Sub TestFITakesMissingKeysForFalseAndLeavesTheBagAlone
  Dim control, quillet, className, bag
  Set control = Simulator(SessionWith(Answer("TQ", 0, Array("ONE|)> 1/ 2", "TWO|)> 2/ 2"))))
  Set quillet = CreateObject("Wendrill23.CQuillet")
  For Each className In BagClasses()
    Set bag = CreateObject(className)
    Equal Rows("ONE|)> 1/ 2"), quillet.SendCommandFI("TQ", bag), className
    Equal "send TQ", Journal(), "what reached the terminal, " & className
    Equal CLng(0), CLng(bag.Count), "keys in the bag afterwards, " & className
  Next
End Sub

Sub TestFIPressesTheClearKeyWhenAsked
  Dim control, quillet, className
  Set control = Simulator(SessionWith(Answer("HE", 0, Array("HELP"))))
  Set quillet = CreateObject("Wendrill23.CQuillet")
  For Each className In BagClasses()
    Equal Row("HELP"), quillet.SendCommandFI("HE", BagWith(className, Array("blnKeyClear", True))), className
    Equal "key 322 | send HE", Journal(), "what reached the terminal, " & className
  Next
End Sub

Sub TestFICollectsAllPagesWhenAsked
  Dim control, quillet, className
  Set control = Simulator(SessionWith(Answer("TQ", 0, Array("T|ONE|)> 1/ 3", "T|TWO|)> 2/ 3", "T|THREE|)> 3/ 3"))))
  Set quillet = CreateObject("Wendrill23.CQuillet")
  For Each className In BagClasses()
    Equal Rows("T|ONE|TWO|THREE|)> 3/ 3"), _
      quillet.SendCommandFI("TQ", BagWith(className, Array("blnKeyClear", True, "blnKeyGetAll", True))), className
    Equal "key 322 | send TQ | send MD | send MD", Journal(), "what reached the terminal, " & className
  Next
End Sub

Function DeskWithPnr()
  DeskWithPnr = SessionWith(Answer("RTABC123", 22, Array("SCREEN|  MORE TO COME  )", "SECOND PAGE"))) & _
    "[[pnr]]" & vbLf & "RecordLocator = 'ABC123'" & vbLf & "display = 'RP/PARXX0100'" & vbLf & _
    "[[pnr]]" & vbLf & "RecordLocator = 'OTHER1'" & vbLf & "display = 'RP/NCEXX0200'" & vbLf
End Function

Sub TestFIReadsTheDisplayOfAFreshPnrWhenAsked
  Dim control, quillet, className, pnr
  Set control = Simulator(DeskWithPnr())
  Set quillet = CreateObject("Wendrill23.CQuillet")
  Set pnr = CreateObject("Wendrill23.CPNR")
  quillet.RetrieveRecLoc "OTHER1"
  Journal
  For Each className In BagClasses()
    Equal Row("RP/PARXX0100"), _
      quillet.SendCommandFI("RTABC123", BagWith(className, Array("blnKeyGetAll", True, "blnKeyPNR", True))), className
    Equal "send RTABC123 | retrieve RTABC123", Journal(), "what reached the terminal, " & className
    Equal "OTHER1", pnr.RecordLocator, "the PNR that was retrieved last stays"
  Next
End Sub

Sub TestFIReadsATicketingDisplayWhenAsked
  Dim control, quillet, className
  Set control = Simulator(SessionWith(Answer("TQT", 0, Array("FARE 1 )|  )", "FARE 2  |  )", "FARE 3", "NEVER SHOWN"))))
  Set quillet = CreateObject("Wendrill23.CQuillet")
  For Each className In BagClasses()
    Equal Rows("FARE 1 )|  )|FARE 2|  )|FARE 3"), _
      quillet.SendCommandFI("TQT", BagWith(className, Array("blnKeyGetAll", True, "blnKeyTST", True))), className
    Equal "send TQT | send MD | send MD", Journal(), "what reached the terminal, " & className
  Next
End Sub

Sub TestFIReadsPnrAndTicketingOnlyTogetherWithGetAll
  Dim control, quillet, className
  Set control = Simulator(DeskWithPnr())
  Set quillet = CreateObject("Wendrill23.CQuillet")
  For Each className In BagClasses()
    Equal Rows("SCREEN|  MORE TO COME  )"), _
      quillet.SendCommandFI("RTABC123", BagWith(className, Array("blnKeyPNR", True, "blnKeyTST", True))), className
    Equal "send RTABC123", Journal(), "what reached the terminal, " & className
  Next
End Sub

Sub TestFIGivesTheTicketingReaderTheLastWord
  Dim control, quillet
  Set control = Simulator(DeskWithPnr())
  Set quillet = CreateObject("Wendrill23.CQuillet")
  Equal Rows("SCREEN|  MORE TO COME  )|SECOND PAGE"), quillet.SendCommandFI("RTABC123", _
    BagWith("Pellorin.ParamBag", Array("blnKeyGetAll", True, "blnKeyPNR", True, "blnKeyTST", True))), "response"
  Equal "send RTABC123 | retrieve RTABC123 | send MD", Journal(), "what reached the terminal"
End Sub

Sub TestFIReadsItsKeysInOrderOfAnyObjectWithAKeyedDefaultMember
  Dim control, quillet, bag
  Set control = Simulator(SessionWith(Answer("HE", 0, Array("HELP"))))
  Set quillet = CreateObject("Wendrill23.CQuillet")
  Set bag = New RememberingBag
  bag.Hold "blnKeyClear", True
  Equal Row("HELP"), quillet.SendCommandFI("HE", bag), "response"
  Equal "blnKeyClear blnKeyGetAll blnKeyPNR blnKeyTST ", bag.Asked, "keys in the order of reading"
  Equal "key 322 | send HE", Journal(), "what reached the terminal"
End Sub

Sub TestFITakesWhatConvertsToABoolean
  Dim control, quillet, value
  Set control = Simulator(SessionWith(Answer("HE", 0, Array("HELP"))))
  Set quillet = CreateObject("Wendrill23.CQuillet")
  For Each value In Array(True, -1, 1, CLng(5), "True", "TRUE", "-1", 0.5)
    quillet.SendCommandFI "HE", BagWith("Pellorin.ParamBag", Array("blnKeyClear", value))
    Equal "key 322 | send HE", Journal(), "cleared for " & Shown(value)
  Next
  For Each value In Array(False, 0, "False", "0", Empty)
    quillet.SendCommandFI "HE", BagWith("Pellorin.ParamBag", Array("blnKeyClear", value))
    Equal "send HE", Journal(), "not cleared for " & Shown(value)
  Next
End Sub

Sub TestFIWithAnEmptyEntrySendsNothing
  Dim control, quillet
  Set control = Simulator("")
  Set quillet = CreateObject("Wendrill23.CQuillet")
  Equal "", quillet.SendCommandFI("", BagWith("Pellorin.ParamBag", Array("blnKeyClear", True, "blnKeyGetAll", True))), _
    "response"
  Equal "", Journal(), "what reached the terminal"
End Sub

Sub TestFITakesTheAlarmLockAndGivesItBackOnEveryWayOut
  Dim control, quillet, className
  Set control = Simulator(SessionWith(Answer("QE1", 0, Array("ONE|)> 1/ 2", "TWO|)> 2/ 2"))))
  Set quillet = CreateObject("Wendrill23.CQuillet")
  For Each className In BagClasses()
    quillet.SendCommandFI "QE1", CreateObject(className)
    Equal "alarm lock | send QE1 | alarm unlock", Journal(), "one screen, " & className
    quillet.SendCommandFI "QE1", BagWith(className, Array("blnKeyGetAll", True))
    Equal "alarm lock | send QE1 | send MD | alarm unlock", Journal(), "all pages, " & className
  Next
End Sub

Sub TestFIWithARefusedClearKeyIs2506AndGivesTheLockBack
  Dim control, quillet, text
  Set control = Simulator("[terminal]" & vbLf & "refuses = [322]" & vbLf & SessionWith(""))
  Set quillet = CreateObject("Wendrill23.CQuillet")
  quillet.LockAlarm
  Journal
  On Error Resume Next
  text = quillet.SendCommandFI("HE", BagWith("Pellorin.ParamBag", Array("blnKeyClear", True)))
  RaisedOwn 2506, "SendCommandFI"
  Equal "key 322 | alarm unlock", Journal(), "what reached the terminal"
End Sub

Sub TestFIRaisesItsOwnNumberAndGivesTheLockBack
  Dim control, quillet, text, pnrDisplay, ticketing
  Set control = Simulator(SessionWith(Answer("QE1", 0, Array("ONE )", "TWO"))))
  Set quillet = CreateObject("Wendrill23.CQuillet")
  Set pnrDisplay = BagWith("Pellorin.ParamBag", Array("blnKeyGetAll", True, "blnKeyPNR", True))
  Set ticketing = BagWith("Pellorin.ParamBag", Array("blnKeyGetAll", True, "blnKeyTST", True))
  On Error Resume Next
  control.FailNext "Send", &H80004005, 1
  text = quillet.SendCommandFI("QE1", ticketing)
  RaisedOwn 2506, "the entry fails"
  Equal "alarm lock | send QE1 | alarm unlock", Journal(), "the entry fails"
  control.FailNext "Send", &H80004005, 2
  text = quillet.SendCommandFI("QE1", ticketing)
  RaisedOwn 2506, "the second page fails"
  Equal "alarm lock | send QE1 | send MD | alarm unlock", Journal(), "the second page fails"
  control.FailNext "Retrieve", &H80004005, 1
  text = quillet.SendCommandFI("QE1", pnrDisplay)
  RaisedOwn 2506, "the retrieval fails"
  Equal "alarm lock | send QE1 | retrieve QE1 | alarm unlock", Journal(), "the retrieval fails"
  text = quillet.SendCommandFI("QE1", CreateObject("Pellorin.ParamBag"))
  RaisedNothing "the next call"
End Sub

' --- SendCommandTicsPas

Sub TestTicsPasWithoutAnEntryReturnsEmptyAndSendsNothing
  Dim control, quillet, className
  Set control = Simulator("")
  Set quillet = CreateObject("Wendrill23.CQuillet")
  For Each className In BagClasses()
    Equal "", quillet.SendCommandTicsPas(CreateObject(className)), "an empty bag, " & className
    Equal "", quillet.SendCommandTicsPas(BagWith(className, Array("strKeyCommand", "", "blnKeyClear", True))), _
      "an empty entry, " & className
  Next
  Equal "", Journal(), "what reached the terminal"
End Sub

Sub TestTicsPasReturnsTheTextOfTheResponse
  Dim control, quillet, className
  Set control = Simulator(SessionWith("[[reply]]" & vbLf & "entry = 'QT'" & vbLf & "screen = 'SCREEN'" & vbLf & _
    "text = 'response text'" & vbLf))
  Set quillet = CreateObject("Wendrill23.CQuillet")
  For Each className In BagClasses()
    Equal "response text", quillet.SendCommandTicsPas(BagWith(className, Array("strKeyCommand", "QT"))), className
    Equal "send QT", Journal(), "what reached the terminal, " & className
    Equal "response text", _
      quillet.SendCommandTicsPas(BagWith(className, Array("strKeyCommand", "QT", "blnKeyClear", True))), className
    Equal "key 322 | send QT", Journal(), "with the clear key, " & className
  Next
End Sub

' A page that ends with a mark in its last three characters asks for the next one.
Function TailPages()
  TailPages = SessionWith(Answer("QT", 0, _
    Array("ONE" & Space(76) & "+", "TWO" & Space(75) & "MD", "THREE", "NEVER SHOWN")))
End Function

Sub TestTicsPasCollectsWhileTheTailAsksForMore
  Dim control, quillet, className, page
  Set control = Simulator(TailPages())
  Set quillet = CreateObject("Wendrill23.CQuillet")
  quillet.SendCommandCollectPages "", page    ' sets the loop going
  For Each className In BagClasses()
    Equal "ONE" & Space(76) & "+" & "TWO" & Space(75) & "MD" & Row("THREE"), _
      quillet.SendCommandTicsPas(BagWith(className, Array("strKeyCommand", "QT", "blnKeyGetAll", True))), className
    Equal "send QT | key 322 | send MD | key 322 | send MD", Journal(), "what reached the terminal, " & className
  Next
End Sub

Sub TestTicsPasOutsideALoopReturnsTheFirstText
  Dim control, quillet, bag
  Set control = Simulator(TailPages())
  Set quillet = CreateObject("Wendrill23.CQuillet")
  Set bag = BagWith("Pellorin.ParamBag", Array("strKeyCommand", "QT", "blnKeyGetAll", True))
  Equal "ONE" & Space(76) & "+", quillet.SendCommandTicsPas(bag), "no loop was ever begun"
  quillet.SendCommandGetAll ""
  quillet.StopLoop
  quillet.ConnectSession "A"
  Journal
  Equal "ONE" & Space(76) & "+", quillet.SendCommandTicsPas(bag), "the loop was ended"
  Equal "send QT", Journal(), "what reached the terminal"
End Sub

Sub TestTicsPasReadsItsKeysInOrder
  Dim control, quillet, bag
  Set control = Simulator(SessionWith(Answer("QT", 0, Array("ONE"))))
  Set quillet = CreateObject("Wendrill23.CQuillet")
  Set bag = New RememberingBag
  Equal "", quillet.SendCommandTicsPas(bag), "without an entry"
  Equal "strKeyCommand ", bag.Asked, "nothing else is read without an entry"
  bag.Asked = ""
  bag.Hold "strKeyCommand", "QT"
  Equal Row("ONE"), quillet.SendCommandTicsPas(bag), "response"
  Equal "strKeyCommand blnKeyGetAll blnKeyClear ", bag.Asked, "keys in the order of reading"
End Sub

Sub TestTicsPasWithARefusedClearKeyIs2540
  Dim control, quillet, text
  Set control = Simulator("[terminal]" & vbLf & "refuses = [322]" & vbLf & TailPages())
  Set quillet = CreateObject("Wendrill23.CQuillet")
  On Error Resume Next
  text = quillet.SendCommandTicsPas(BagWith("Pellorin.ParamBag", Array("strKeyCommand", "QT", "blnKeyClear", True)))
  RaisedOwn 2540, "before the entry"
  Equal "key 322", Journal(), "nothing was sent"
  quillet.SendCommandGetAll ""
  text = quillet.SendCommandTicsPas(BagWith("Pellorin.ParamBag", Array("strKeyCommand", "QT", "blnKeyGetAll", True)))
  RaisedOwn 2540, "before the second page"
  Equal "send QT | key 322", Journal(), "the second page was not asked for"
End Sub

Sub TestTicsPasRaisesItsOwnNumber
  Dim control, quillet, text, bag
  Set control = Simulator(TailPages())
  Set quillet = CreateObject("Wendrill23.CQuillet")
  Set bag = BagWith("Pellorin.ParamBag", Array("strKeyCommand", "QT", "blnKeyGetAll", True))
  quillet.SendCommandGetAll ""
  On Error Resume Next
  control.FailNext "Send", &H80004005, 1
  text = quillet.SendCommandTicsPas(bag)
  RaisedOwn 2540, "the entry fails"
  control.FailNext "Send", &H80004005, 2
  text = quillet.SendCommandTicsPas(bag)
  RaisedOwn 2540, "the second page fails"
  control.FailNext "LastResponse", &H80004005, 1
  text = quillet.SendCommandTicsPas(bag)
  RaisedOwn 2540, "the last response fails"
  control.FailNext "Get", &H80004005, 1
  text = quillet.SendCommandTicsPas(bag)
  RaisedOwn 2540, "the bag fails"
  text = quillet.SendCommandTicsPas(bag)
  RaisedNothing "the next call"
End Sub

' --- Bags that are none

Sub TestNothingInPlaceOfABagIsTheMembersError
  Dim quillet, text, bag
  Set quillet = CreateObject("Wendrill23.CQuillet")
  Simulator ""
  On Error Resume Next
  text = quillet.SendCommandFI("HE", Nothing)
  RaisedOwn 2506, "SendCommandFI of Nothing"
  text = quillet.SendCommandFI("HE", bag)
  RaisedOwn 2506, "SendCommandFI of Empty"
  text = quillet.SendCommandFI("", Nothing)
  RaisedOwn 2506, "the bag is read before the entry is looked at"
  text = quillet.SendCommandTicsPas(Nothing)
  RaisedOwn 2540, "SendCommandTicsPas of Nothing"
  text = quillet.SendCommandTicsPas(bag)
  RaisedOwn 2540, "SendCommandTicsPas of Empty"
  Equal "", Journal(), "nothing was sent"
End Sub

Sub TestAnObjectThatIsNoBagIsTheMembersError
  Dim quillet, queue, text
  Set quillet = CreateObject("Wendrill23.CQuillet")
  Set queue = CreateObject("Wendrill23.CQueue")
  Simulator ""
  On Error Resume Next
  text = quillet.SendCommandFI("HE", quillet)
  RaisedOwn 2506, "SendCommandFI of an object without a default member"
  text = quillet.SendCommandFI("HE", queue)
  RaisedOwn 2506, "SendCommandFI of an object whose default member knows no such key"
  text = quillet.SendCommandTicsPas(quillet)
  RaisedOwn 2540, "SendCommandTicsPas of an object without a default member"
  text = quillet.SendCommandTicsPas(queue)
  RaisedOwn 2540, "SendCommandTicsPas of an object whose default member knows no such key"
  Equal "", Journal(), "nothing was sent"
End Sub

Sub TestAValueThatDoesNotConvertIsTheMembersError
  Dim quillet, text, value
  Set quillet = CreateObject("Wendrill23.CQuillet")
  Simulator ""
  On Error Resume Next
  For Each value In Array("maybe", Null, Array(True))
    text = quillet.SendCommandFI("HE", BagWith("Pellorin.ParamBag", Array("blnKeyTST", value)))
    RaisedOwn 2506, "SendCommandFI, " & Shown(value)
    text = quillet.SendCommandTicsPas(BagWith("Pellorin.ParamBag", Array("strKeyCommand", "HE", "blnKeyClear", value)))
    RaisedOwn 2540, "SendCommandTicsPas, " & Shown(value)
  Next
  text = quillet.SendCommandTicsPas(BagWith("Pellorin.ParamBag", Array("strKeyCommand", Array("HE"))))
  RaisedOwn 2540, "SendCommandTicsPas, an array of entries"
  Equal "", Journal(), "nothing was sent"
End Sub

Sub TestWrongArgumentsAreRefused
  Dim quillet, text, value
  Set quillet = CreateObject("Wendrill23.CQuillet")
  Simulator ""
  On Error Resume Next
  text = quillet.SendCommandFI("HE")
  Equal CLng(450), Err.Number, "SendCommandFI without a bag"
  Err.Clear
  text = quillet.SendCommandTicsPas()
  Equal CLng(450), Err.Number, "SendCommandTicsPas without a bag"
  Err.Clear
  For Each value In Array("blnKeyClear", 1, Null, Array("blnKeyClear"))
    text = quillet.SendCommandFI("HE", value)
    Equal CLng(13), Err.Number, "SendCommandFI of " & Shown(value)
    Err.Clear
    text = quillet.SendCommandTicsPas(value)
    Equal CLng(13), Err.Number, "SendCommandTicsPas of " & Shown(value)
    Err.Clear
  Next
  Equal "", Journal(), "nothing was sent"
End Sub
