' Batches of entries and long remarks.
Option Explicit

Function BagClasses()
  BagClasses = Array("Pellorin.ParamBag", "Scripting.Dictionary")
End Function

Function Accepting(entry)
  Accepting = Answer(entry, 0, Array("RP/PARXX0100"))
End Function

Function Refusing(entry)
  Refusing = Answer(entry, 0, Array("INVALID FORMAT"))
End Function

' A scenario whose host accepts every entry.
Function Patient()
  Patient = SessionWith("[[reply]]" & vbLf & "starts = ''" & vbLf & "screen = 'RP/PARXX0100'" & vbLf)
End Function

' A batch whose queue holds these commands.
Function BatchOf(commands)
  Dim command
  Set BatchOf = CreateObject("Wendrill23.CBatch")
  For Each command In commands
    BatchOf.Commands.Add command
  Next
End Function

' What reaches the terminal when these commands are submitted: the host entries alone, joined with " | ".
Function SentFor(commands)
  Dim batch, line, lines
  Set batch = BatchOf(commands)
  Journal
  batch.Submit
  For Each line In Split(Journal(), " | ")
    If Left(line, 2) <> "  " Then lines = lines & " | " & line   ' the parts of a packed entry are indented
  Next
  SentFor = Replace(Mid(lines, 4), "key 322 | send ", "")
End Function

' --- The report

Sub TestABatchWithARefusedEntry
  Dim control, className, batch, bag, responses
  Set control = Simulator(SessionWith(Accepting("RU1A") & Refusing("RU1B") & Accepting("RU1C") & Refusing("RU1D")))
  For Each className In BagClasses()
    Set batch = BatchOf(Array("RU1A", "RU1B", "RU1C", "RU1D"))
    Set bag = CreateObject(className)
    batch.SubmitWithResponse bag
    Equal "key 322 | send RU1A | key 322 | send RU1B | key 322 | send RU1C | key 322 | send RU1D", Journal(), _
      "what reached the terminal, " & className
    Equal "2,4", bag("strKeyErr"), "the refused ones, " & className
    Equal False, bag("blnKeyResponseOK"), "whether all went well, " & className
    responses = bag("strKeyResponseArray")
    Check IsArray(responses), "the responses are an array, " & className
    Equal CLng(0), CLng(LBound(responses)), "their first index, " & className
    Equal CLng(3), CLng(UBound(responses)), "their last index, " & className
    Equal Row("RP/PARXX0100"), responses(0), "the first response, " & className
    Equal Row("INVALID FORMAT"), responses(1), "the second response, " & className
    Equal CLng(3), CLng(bag.Count), "keys in the bag, " & className
  Next
End Sub

Sub TestABatchWithoutARefusedEntryIsWell
  Dim control, className, batch, bag
  Set control = Simulator(Patient())
  For Each className In BagClasses()
    Set batch = BatchOf(Array("RU1A", "RU1B"))
    Set bag = CreateObject(className)
    batch.SubmitWithResponse bag
    Equal "", bag("strKeyErr"), "no error, " & className
    Equal True, bag("blnKeyResponseOK"), "all went well, " & className
  Next
End Sub

Sub TestTheKeysAreSetInTheirOrder
  Dim control, batch, bag, names
  Set control = Simulator(Patient())
  Set batch = BatchOf(Array("RM A"))
  Set bag = CreateObject("Pellorin.ParamBag")
  batch.SubmitWithResponse bag
  names = bag.Keys
  Equal "strKeyResponseArray strKeyErr blnKeyResponseOK", names(0) & " " & names(1) & " " & names(2), "keys"
End Sub

Sub TestAReportReplacesTheOneBefore
  Dim control, batch, bag, responses
  Set control = Simulator(SessionWith(Refusing("RU1A") & Accepting("RU1B")))
  Set bag = CreateObject("Pellorin.ParamBag")
  Set batch = BatchOf(Array("RU1A", "RU1B"))
  batch.SubmitWithResponse bag
  Equal "1", bag("strKeyErr"), "the first report"
  batch.Commands.Remove 1
  batch.SubmitWithResponse bag
  Equal "", bag("strKeyErr"), "the second report"
  Equal True, bag("blnKeyResponseOK"), "the second report"
  responses = bag("strKeyResponseArray")
  Equal CLng(0), CLng(UBound(responses)), "one response"
End Sub

Sub TestAnyMarkOfAcceptanceIsEnough
  Dim control, batch, bag
  Set control = Simulator(SessionWith(Answer("RU1", 0, Array("X RP/PARXX0100")) & _
    Answer("RU2", 0, Array("LINE|*T*")) & Answer("RU3", 0, Array("  *C* ")) & Answer("RU4", 0, Array("rp/")) & _
    Answer("RU5", 0, Array("RP *T * C*"))))
  Set batch = BatchOf(Array("RU1", "RU2", "RU3", "RU4", "RU5"))
  Set bag = CreateObject("Pellorin.ParamBag")
  batch.SubmitWithResponse bag
  Equal "4,5", bag("strKeyErr"), "those without a mark"
End Sub

Sub TestAnEmptyResponseIsRefused
  Dim control, batch, bag, responses
  Set control = Simulator(SessionWith("[[reply]]" & vbLf & "entry = 'RU1'" & vbLf & "raw = true" & vbLf & _
    "screen = ''" & vbLf))
  Set batch = BatchOf(Array("RU1"))
  Set bag = CreateObject("Pellorin.ParamBag")
  batch.SubmitWithResponse bag
  Equal "1", bag("strKeyErr"), "refused"
  responses = bag("strKeyResponseArray")
  Equal "", responses(0), "its response"
End Sub

Sub TestABatchWithoutTextSendsNothingAndIsWell
  Dim control, commands, className, batch, bag, responses
  Set control = Simulator(Patient())
  For Each className In BagClasses()
    For Each commands In Array(Array(), Array("", ";;", "<XMIT>"))
      Set batch = BatchOf(commands)
      Set bag = CreateObject(className)
      batch.SubmitWithResponse bag
      Equal "", Journal(), "what reached the terminal, " & className
      responses = bag("strKeyResponseArray")
      Equal CLng(-1), CLng(UBound(responses)), "no response, " & className
      Equal "", bag("strKeyErr"), "no error, " & className
      Equal True, bag("blnKeyResponseOK"), "all went well, " & className
    Next
  Next
End Sub

Sub TestSubmitSendsWithoutAReport
  Dim control, batch
  Set control = Simulator(SessionWith(Refusing("RU1A") & Accepting("RU1B")))
  Set batch = BatchOf(Array("RU1A", "RU1B"))
  batch.Submit
  Equal "key 322 | send RU1A | key 322 | send RU1B", Journal(), "a refused entry stops nothing"
  Equal CLng(2), batch.Commands.Count, "the queue is kept"
End Sub

Sub TestAlarmEntriesOfABatchTakeTheLock
  Dim control, batch
  Set control = Simulator(Patient())
  Set batch = BatchOf(Array("ER"))
  batch.Submit
  Equal "key 322 | alarm lock | send ER | alarm unlock", Journal(), "what reached the terminal"
End Sub

' --- Packing

Sub TestShortEntriesArePackedIntoOneJoinedBySemicolons
  Dim control
  Set control = Simulator(Patient())
  Equal "RM A;RM B;RM C", SentFor(Array("RM A", "RM B;RM C")), "three entries of two commands"
  Equal "RM A;RM B", SentFor(Array("RM A", "", ";RM B;")), "empty entries vanish"
End Sub

Sub TestAPackedEntryHasAtMost239Characters
  Dim control, first
  Set control = Simulator(Patient())
  first = "RM " & String(197, "A")
  Equal first & ";" & String(38, "B"), SentFor(Array(first, String(38, "B"))), "239 characters"
  Equal first & " | " & String(39, "B"), SentFor(Array(first, String(39, "B"))), "one more"
  Equal "RM A | " & String(300, "B") & " | RM C", SentFor(Array("RM A", String(300, "B"), "RM C")), "a long one alone"
End Sub

Sub TestAnEntryWithRUAlwaysHeadsAPackedEntry
  Dim control
  Set control = Simulator(Patient())
  Equal "RM A | RU B;RM C | RU D", SentFor(Array("RM A", "RU B", "RM C;RU D")), "RU begins a packed entry"
  Equal "RM A; RU B", SentFor(Array("RM A", " RU B")), "a blank in front makes it another entry"
End Sub

Sub TestXmitEndsItsPackedEntryAndIsNotSent
  Dim control
  Set control = Simulator(Patient())
  Equal "RM A; | RM B", SentFor(Array("RM A<XMIT>", "RM B")), "behind an entry"
  Equal "RM A;RM B | RM C", SentFor(Array("RM A<XMIT>RM B", "RM C")), "in front of an entry"
  Equal "RM A | RM B", SentFor(Array("<XMIT>RM A", "RM B")), "at the very beginning"
End Sub

Sub TestTheErrorListCountsPackedEntries
  Dim control, batch, bag
  Set control = Simulator(SessionWith(Accepting("RM A;RM B") & Refusing("RU C;RM D") & Refusing("RU E")))
  Set batch = BatchOf(Array("RM A", "RM B", "RU C", "RM D", "RU E"))
  Set bag = CreateObject("Pellorin.ParamBag")
  batch.SubmitWithResponse bag
  Equal "2,3", bag("strKeyErr"), "the second and the third host entry"
End Sub

' --- Separator

Sub TestTheSeparatorCutsCommandsInPlaceOfTheSemicolon
  Dim control, batch
  Set control = Simulator(Patient())
  Set batch = BatchOf(Array("RM A+RU B;C"))
  Equal "", batch.Separator, "at first"
  batch.Submit
  Equal "key 322 | send RM A+RU B;C |   RM A+RU B |   C", Journal(), "without a separator of one's own"
  batch.Separator = "+"
  Equal "+", batch.Separator, "afterwards"
  batch.Submit
  Equal "key 322 | send RM A | key 322 | send RU B;C |   RU B |   C", Journal(), "with it"
  batch.Separator = ""
  batch.Submit
  Equal "key 322 | send RM A+RU B;C |   RM A+RU B |   C", Journal(), "taken back"
End Sub

Sub TestPackedEntriesAreJoinedBySemicolonsWhateverTheSeparator
  Dim control, batch
  Set control = Simulator(Patient())
  Set batch = BatchOf(Array("RM A+RM B", "RM C"))
  batch.Separator = "+"
  batch.Submit
  Equal "key 322 | send RM A;RM B;RM C |   RM A |   RM B |   RM C", Journal(), "what reached the terminal"
End Sub

' --- The queue

Sub TestTheQueueOfABatchIsOneObject
  Dim batch, queue
  Set batch = CreateObject("Wendrill23.CBatch")
  Set queue = batch.Commands
  Equal CLng(0), queue.Count, "a new queue is empty"
  Check batch.Commands Is queue, "the same object each time"
  batch.Commands.Add "RM A", "first"
  Equal CLng(1), queue.Count, "an entry added through the property is there"
  Equal "RM A", batch.Commands(1).Command, "and found through the property, by position"
  Equal "RM A", batch.Commands.Item("FIRST").Command, "and by key"
End Sub

Sub TestABatchTakesTheCallersQueue
  Dim control, batch, other, queue
  Set control = Simulator(Patient())
  Set queue = CreateObject("Wendrill23.CQueue")
  queue.Add "RM A"
  Set batch = BatchOf(Array("RM LOST"))
  Set batch.Commands = queue
  Check batch.Commands Is queue, "the queue is taken by reference"
  queue.Add "RM B"
  batch.Submit
  Equal "key 322 | send RM A;RM B |   RM A |   RM B", Journal(), "an entry added later counts"
  Set other = CreateObject("Wendrill23.CBatch")
  Set other.Commands = batch.Commands
  other.Submit
  Equal "key 322 | send RM A;RM B |   RM A |   RM B", Journal(), "two batches may share a queue"
  queue(1).Command = "RM C"
  batch.Submit
  Equal "key 322 | send RM C;RM B |   RM C |   RM B", Journal(), "the command as it is now"
End Sub

Sub TestABatchKeepsItsQueueAlive
  Dim control, batch, queue
  Set control = Simulator(Patient())
  Set batch = CreateObject("Wendrill23.CBatch")
  Set queue = CreateObject("Wendrill23.CQueue")
  queue.Add "RM A"
  Set batch.Commands = queue
  Set queue = Nothing
  batch.Submit
  Equal "key 322 | send RM A", Journal(), "what reached the terminal"
End Sub

Sub TestABatchWithoutAQueueFails
  Dim batch, queue
  Set batch = BatchOf(Array("RM A"))
  Set batch.Commands = Nothing
  Check batch.Commands Is Nothing, "there is none"
  On Error Resume Next
  batch.Submit
  RaisedOwn 2300, "Submit"
  batch.SubmitWithResponse CreateObject("Pellorin.ParamBag")
  RaisedOwn 2315, "SubmitWithResponse"
  Set batch.Commands = CreateObject("Wendrill23.CQueue")
  batch.Submit
  RaisedNothing "with a queue again"
End Sub

Sub TestAnotherObjectInPlaceOfTheQueueIsRefused
  Dim batch, queue
  Set batch = BatchOf(Array("RM A"))
  Set queue = batch.Commands
  On Error Resume Next
  Set batch.Commands = batch
  Equal CLng(13), Err.Number, "a batch"
  Err.Clear
  Set batch.Commands = CreateObject("Scripting.Dictionary")
  Equal CLng(13), Err.Number, "a dictionary"
  Err.Clear
  batch.Commands = "RM A"
  Equal CLng(13), Err.Number, "a text"
  Err.Clear
  Check batch.Commands Is queue, "the queue is as it was"
End Sub

' --- Failures

Sub TestAFailingSendIs2300And2315AndLeavesTheBagAlone
  Dim control, batch, bag
  Set control = Simulator(Patient())
  Set batch = BatchOf(Array("RU A", "RU B"))
  Set bag = CreateObject("Pellorin.ParamBag")
  On Error Resume Next
  control.FailNext "Send", &H80004005, 2
  batch.Submit
  RaisedOwn 2300, "Submit"
  control.FailNext "Send", &H80004005, 2
  batch.SubmitWithResponse bag
  RaisedOwn 2315, "SubmitWithResponse"
  Equal CLng(0), bag.Count, "keys in the bag"
  batch.SubmitWithResponse bag
  RaisedNothing "the next submission"
End Sub

Sub TestARefusedClearKeyIs2300And2315
  Dim control, batch
  Set control = Simulator("[terminal]" & vbLf & "refuses = [322]" & vbLf & Patient())
  Set batch = BatchOf(Array("RU A"))
  On Error Resume Next
  batch.Submit
  RaisedOwn 2300, "Submit"
  batch.SubmitWithResponse CreateObject("Pellorin.ParamBag")
  RaisedOwn 2315, "SubmitWithResponse"
  Equal "key 322 | key 322", Journal(), "nothing was sent"
End Sub

Sub TestABagThatFailsIs2315
  Dim control, batch, bag
  Set control = Simulator(Patient())
  Set batch = BatchOf(Array("RU A"))
  Set bag = CreateObject("Pellorin.ParamBag")
  On Error Resume Next
  control.FailNext "Set", &H80004005, 2
  batch.SubmitWithResponse bag
  RaisedOwn 2315, "SubmitWithResponse"
End Sub

Sub TestADroppedSessionIs2300And2315
  Dim quillet, batch
  Simulator Patient()
  Set quillet = CreateObject("Wendrill23.CQuillet")
  Set batch = BatchOf(Array("RU A"))
  quillet.StopLoop
  On Error Resume Next
  batch.Submit
  RaisedOwn 2300, "Submit"
  batch.SubmitWithResponse CreateObject("Pellorin.ParamBag")
  RaisedOwn 2315, "SubmitWithResponse"
  quillet.ConnectSession "A"
  batch.Submit
  RaisedNothing "after connecting again"
End Sub

Sub TestNothingInPlaceOfABagIs2315AndSendsNothing
  Dim batch, bag
  Set batch = BatchOf(Array("RU A"))
  Simulator Patient()
  On Error Resume Next
  batch.SubmitWithResponse Nothing
  RaisedOwn 2315, "Nothing"
  batch.SubmitWithResponse bag
  RaisedOwn 2315, "Empty"
  Equal "", Journal(), "nothing was sent"
End Sub

Sub TestAnObjectThatIsNoBagIs2315
  Dim batch
  Set batch = BatchOf(Array("RU A"))
  On Error Resume Next
  batch.SubmitWithResponse batch
  RaisedOwn 2315, "an object without a default member"
  batch.SubmitWithResponse batch.Commands
  RaisedOwn 2315, "an object whose default member cannot be put"
End Sub

Sub TestWrongArgumentsAreRefused
  Dim batch, value
  Set batch = BatchOf(Array("RU A"))
  Simulator ""
  On Error Resume Next
  batch.SubmitWithResponse
  Equal CLng(450), Err.Number, "SubmitWithResponse without a bag"
  Err.Clear
  batch.Submit CreateObject("Pellorin.ParamBag")
  Equal CLng(450), Err.Number, "Submit with a bag"
  Err.Clear
  For Each value In Array("bag", 5, Null, Array("bag"))
    batch.SubmitWithResponse value
    Equal CLng(13), Err.Number, "SubmitWithResponse of " & Shown(value)
    Err.Clear
  Next
  batch.Separator = Null
  Equal CLng(13), Err.Number, "Separator of Null"
  Err.Clear
  Equal "", Journal(), "nothing was sent"
End Sub

' --- Remarks

' The elements of a remark, joined with "|".
Function ElementsOf(text)
  Dim batch, elements, element, separator
  Set batch = CreateObject("Wendrill23.CBatch")
  batch.RMBatch text, elements
  ElementsOf = ""
  For Each element In elements
    ElementsOf = ElementsOf & separator & element
    separator = "|"
  Next
End Function

Sub TestARemarkOf123CharactersIsOneElement
  Equal "RM" & String(123, "A"), ElementsOf(String(123, "A")), "without a blank"
  Equal "RM" & String(60, "A") & " " & String(62, "B"), ElementsOf(String(60, "A") & " " & String(62, "B")), "with one"
End Sub

Sub TestARemarkOf124CharactersIsTwoElements
  Equal "RM" & String(123, "A") & "|RMA", ElementsOf(String(124, "A")), "without a blank: cut at the limit"
  Equal "RM" & String(60, "A") & "|RM" & String(63, "B"), ElementsOf(String(60, "A") & " " & String(63, "B")), _
    "with one: cut there"
End Sub

Sub TestARemarkIsCutAtTheLastBlankThatFits
  Equal "RM" & String(123, "A") & "|RMB", ElementsOf(String(123, "A") & " B"), "right behind the limit"
  Equal "RMA B|RM" & String(122, "C"), ElementsOf("A B " & String(122, "C")), "the last of two"
  Equal "RM" & String(123, "A") & "|RMAA|RM" & String(121, "B"), _
    ElementsOf(String(125, "A") & " " & String(121, "B")), "a word beyond the limit is cut hard"
End Sub

Sub TestALeadingRMIsTakenOff
  Equal "RMTEXT", ElementsOf("RM TEXT"), "with a blank"
  Equal "RMTEXT", ElementsOf("RMTEXT"), "without one"
  Equal "RMTEXT", ElementsOf("TEXT"), "no RM"
  Equal "RM" & String(123, "A"), ElementsOf("RM " & String(123, "A")), "it does not count"
End Sub

Sub TestAConfidentialRemarkStaysOneInEveryElement
  Equal "RM*" & String(123, "A") & "|RM*A", ElementsOf("RM*" & String(124, "A")), "RM*"
  Equal "RM*SECRET", ElementsOf("*SECRET"), "* alone"
  Equal "RM*SECRET", ElementsOf("RM *SECRET"), "RM and a blank"
End Sub

Sub TestAssociationsStandOnEveryElement
  Equal "RM" & String(60, "A") & "/P1|RM" & String(63, "B") & "/P1", _
    ElementsOf("RM " & String(60, "A") & " " & String(63, "B") & "/P1"), "a passenger"
  Equal "RM" & String(123, "A") & "/S2/P1|RMA/S2/P1", ElementsOf(String(124, "A") & "/S2/P1"), "segment and passenger"
  Equal "RM*" & String(123, "A") & "/P12|RM*A/P12", ElementsOf("RM*" & String(124, "A") & "/P12"), "confidential"
  Equal "RMTEXT/PX", ElementsOf("RM TEXT/PX"), "no number: part of the text"
  Equal "RM" & String(121, "A") & "/P|RMX", ElementsOf(String(121, "A") & "/PX"), "and cut as such"
End Sub

Sub TestAnEmptyRemarkIsOneElement
  Equal "RM", ElementsOf(""), "nothing"
  Equal "RM", ElementsOf("RM "), "RM alone"
End Sub

Sub TestTheElementsComeBackInAPlainVariableCountedFrom0
  Dim batch, elements, text
  Set batch = CreateObject("Wendrill23.CBatch")
  text = String(124, "A")
  batch.RMBatch text, elements
  Check IsArray(elements), "an array came back"
  Equal CLng(0), CLng(LBound(elements)), "the first index"
  Equal CLng(1), CLng(UBound(elements)), "the last index"
  Equal "RM" & String(123, "A"), elements(0), "the first element"
  Equal "RMA", elements(1), "the second element"
  Equal String(124, "A"), text, "the text's variable afterwards"
  batch.RMBatch "SHORT", elements
  Equal CLng(0), CLng(UBound(elements)), "the variable serves again"
  Equal "RMSHORT", elements(0), "with the new element alone"
End Sub

' A procedure's own by-reference parameter is a reference to a reference.
Sub CutInto(batch, text, elements)
  batch.RMBatch text, elements
End Sub

Sub TestTheElementsReachAVariableThroughAProcedure
  Dim batch, elements
  Set batch = CreateObject("Wendrill23.CBatch")
  CutInto batch, String(124, "A"), elements
  Equal CLng(1), CLng(UBound(elements)), "the last index"
  CutInto batch, "TEXT", elements
  Equal "RMTEXT", elements(0), "and once more"
End Sub

Sub TestArraysOfEveryKindMakeRoomForTheElements
  Dim batch, elements, growing()
  Set batch = CreateObject("Wendrill23.CBatch")
  elements = Array("one", 2, True)
  batch.RMBatch "TEXT", elements
  Equal "RMTEXT", elements(0), "an array in a variable"
  Equal CLng(0), CLng(UBound(elements)), "and its last index"
  elements = Array()
  batch.RMBatch "TEXT", elements
  Equal "RMTEXT", elements(0), "an array without elements"
  batch.RMBatch "TEXT", growing
  Equal "RMTEXT", growing(0), "a declared array without bounds"
End Sub

Sub TestAnArrayDeclaredWithBoundsCannotTakeTheElements
  Dim batch, fixed(3)
  Set batch = CreateObject("Wendrill23.CBatch")
  fixed(0) = "kept"
  On Error Resume Next
  batch.RMBatch "TEXT", fixed
  Equal CLng(10), Err.Number, "fixed or locked"
  Err.Clear
  Equal "kept", fixed(0), "the array is as it was"
End Sub

Sub TestAValueThatCannotTakeTheElementsIsRefused
  Dim batch, held, value
  Set batch = CreateObject("Wendrill23.CBatch")
  On Error Resume Next
  For Each held In Array("text", 5, Null, True)
    value = held
    batch.RMBatch "TEXT", value
    Equal CLng(13), Err.Number, "a variable that holds " & Shown(held)
    Err.Clear
    Equal VarType(held), VarType(value), "the variable is as it was"
  Next
  Set value = batch
  batch.RMBatch "TEXT", value
  Equal CLng(13), Err.Number, "a variable that holds an object"
  Err.Clear
  value = Array(batch)
  batch.RMBatch "TEXT", value
  Equal CLng(13), Err.Number, "a variable that holds an array of objects"
  Err.Clear
  batch.RMBatch "TEXT"
  Equal CLng(450), Err.Number, "no variable at all"
  Err.Clear
  batch.RMBatch Null, value
  Equal CLng(13), Err.Number, "a remark of Null"
  Err.Clear
End Sub

Sub TestARemarkOfMoreThan32767ElementsIs2310
  Dim batch, elements
  Set batch = CreateObject("Wendrill23.CBatch")
  On Error Resume Next
  batch.RMBatch String(32768 * 123, "A"), elements
  RaisedOwn 2310, "RMBatch"
  Check IsEmpty(elements), "the variable is as it was"
  batch.RMBatch String(CLng(32767) * 123, "A"), elements
  RaisedNothing "one element less"
  Equal CLng(32766), CLng(UBound(elements)), "its last index"
End Sub

Sub TestALongRemarkGoesToTheHostAsABatch
  Dim control, batch, bag, elements, element
  Set control = Simulator(Patient())
  Set batch = CreateObject("Wendrill23.CBatch")
  batch.RMBatch "RM " & String(100, "A") & " " & String(100, "B") & " " & String(100, "C") & "/P1", elements
  For Each element In elements
    batch.Commands.Add element
  Next
  Set bag = CreateObject("Pellorin.ParamBag")
  batch.SubmitWithResponse bag
  Equal True, bag("blnKeyResponseOK"), "all went well"
  Equal "key 322 | send RM" & String(100, "A") & "/P1;RM" & String(100, "B") & "/P1 |   RM" & String(100, "A") & _
    "/P1 |   RM" & String(100, "B") & "/P1 | key 322 | send RM" & String(100, "C") & "/P1", Journal(), _
    "two elements fit into a host entry"
End Sub
