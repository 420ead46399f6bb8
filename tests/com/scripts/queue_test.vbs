' The queue of host entries, as a script fills and reads it.
Option Explicit

' A queue with these entries, without keys.
Function QueueOf(entries)
  Dim entry
  Set QueueOf = CreateObject("Wendrill23.CQueue")
  For Each entry In entries
    QueueOf.Add entry
  Next
End Function

' The commands in the queue, in order, joined with "|".
Function CommandsIn(queue)
  Dim entry, separator
  CommandsIn = ""
  For Each entry In queue
    CommandsIn = CommandsIn & separator & entry.Command
    separator = "|"
  Next
End Function

' Call it with On Error Resume Next in force, right behind the call that fails.
Sub RaisedInvalidCall(what)
  Raised 5, "Wendrill23", "Invalid procedure call or argument", what
End Sub

' --- Adding

Sub TestAnEntryIsHeldInAQuilletUnderItsPosition
  Dim queue, first, second
  Set queue = CreateObject("Wendrill23.CQueue")
  Equal CLng(0), queue.Count, "at first"
  Set first = queue.Add("AN15JUNPARLON")
  Set second = queue.Add("HE")
  Equal CLng(2), queue.Count, "Count"
  Equal "AN15JUNPARLON", first.Command, "the first, as Add returned it"
  Equal "AN15JUNPARLON", queue.Item(1).Command, "the first"
  Equal "HE", queue.Item(2).Command, "the second"
  Equal "", Journal(), "a queue sends nothing"
End Sub

Sub TestTheResultOfAddMayBeDropped
  Dim queue
  Set queue = CreateObject("Wendrill23.CQueue")
  queue.Add "HE"
  queue.Add "ET", "end"
  Equal "HE|ET", CommandsIn(queue), "commands"
End Sub

Sub TestPlainVariablesServeForEntryAndKey
  Dim queue, entry, key
  Set queue = CreateObject("Wendrill23.CQueue")
  entry = "HE"
  key = "help"
  queue.Add entry, key
  Equal "HE", queue("help").Command, "under the key"
  Equal "HE", entry, "the entry's variable afterwards"
  Equal "help", key, "the key's variable afterwards"
End Sub

Sub TestNumbersBecomeTextInEntryAndKey
  Dim queue
  Set queue = CreateObject("Wendrill23.CQueue")
  queue.Add 4505, 7
  Equal "4505", queue("7").Command, "the entry under its key"
  On Error Resume Next
  queue.Item 7
  RaisedInvalidCall "a number is a position, not a key"
End Sub

Sub TestAnEmptyEntryIsStored
  Dim queue
  Set queue = QueueOf(Array("", "HE"))
  Equal CLng(2), queue.Count, "Count"
  Equal "", queue(1).Command, "the empty one"
End Sub

Sub TestAnEmptyKeyIsNoKey
  Dim queue
  Set queue = CreateObject("Wendrill23.CQueue")
  queue.Add "ONE", ""
  queue.Add "TWO", ""
  Equal "ONE|TWO", CommandsIn(queue), "both are kept"
  On Error Resume Next
  queue.Item ""
  RaisedInvalidCall "and neither is found under it"
End Sub

Sub TestAKeyThatIsPresentIs2400WhateverItsCase
  Dim queue, key
  Set queue = CreateObject("Wendrill23.CQueue")
  queue.Add "ONE", "First"
  queue.Add "TWO", "été"
  On Error Resume Next
  For Each key In Array("First", "first", "FIRST", "ÉTÉ")
    queue.Add "MORE", key
    RaisedOwn 2400, key
  Next
  Equal "ONE|TWO", CommandsIn(queue), "the queue is as it was"
End Sub

Sub TestAddWithoutASessionIs2400
  Dim control, queue
  Set control = Simulator("[terminal]")
  Set queue = CreateObject("Wendrill23.CQueue")
  On Error Resume Next
  queue.Add "HE", "help"
  RaisedOwn 2400, "no session runs"
  Equal CLng(0), queue.Count, "Count"
  control.LoadText SessionWith("")
  queue.Add "HE", "help"
  RaisedNothing "the key of an entry that was not added is free"
  Equal CLng(1), queue.Count, "Count afterwards"
End Sub

Sub TestWrongArgumentsOfAddAreRefused
  Dim queue, value
  Set queue = CreateObject("Wendrill23.CQueue")
  On Error Resume Next
  queue.Add
  Equal CLng(450), Err.Number, "no entry"
  Err.Clear
  queue.Add "A", "B", "C"
  Equal CLng(450), Err.Number, "too many"
  Err.Clear
  For Each value In Array(Null, Array("HE"))
    queue.Add value
    Equal CLng(13), Err.Number, "entry " & Shown(value)
    Err.Clear
    queue.Add "HE", value
    Equal CLng(13), Err.Number, "key " & Shown(value)
    Err.Clear
  Next
  queue.Add Nothing
  Equal CLng(13), Err.Number, "entry Nothing"
  Err.Clear
  Equal CLng(0), queue.Count, "Count"
End Sub

' --- Reading

Sub TestItemIsTheDefaultMember
  Dim queue
  Set queue = CreateObject("Wendrill23.CQueue")
  queue.Add "ONE", "first"
  queue.Add "TWO"
  Equal "ONE", queue(1).Command, "by position"
  Equal "ONE", queue("first").Command, "by key"
  Equal "TWO", queue(queue.Count).Command, "the last"
End Sub

Sub TestKeysAreFoundWhateverTheirCase
  Dim queue, key
  Set queue = CreateObject("Wendrill23.CQueue")
  queue.Add "ONE", "First"
  queue.Add "TWO", "été"
  For Each key In Array("First", "first", "FIRST", "fIRST")
    Equal "ONE", queue(key).Command, key
  Next
  Equal "TWO", queue("ÉTÉ").Command, "letters with accents"
End Sub

Sub TestATextIsAKeyEvenWhenItLooksLikeANumber
  Dim queue
  Set queue = CreateObject("Wendrill23.CQueue")
  queue.Add "ONE"
  queue.Add "TWO", "1"
  Equal "TWO", queue("1").Command, "under the key"
  Equal "ONE", queue(1).Command, "at the position"
End Sub

Sub TestEveryKindOfNumberIsAPosition
  Dim queue, position
  Set queue = QueueOf(Array("ONE", "TWO", "THREE"))
  For Each position In Array(2, CLng(2), CByte(2), CSng(2), CDbl(2), CCur(2), 1.6, 1.5, 2.5)
    Equal "TWO", queue(position).Command, Shown(position)
  Next
  position = 2
  Equal "TWO", queue.Item(position).Command, "a plain variable"
End Sub

Sub TestAPositionOutsideTheQueueIs5
  Dim queue, position
  Set queue = QueueOf(Array("ONE", "TWO"))
  On Error Resume Next
  For Each position In Array(0, 3, -1, 32767, -32768, 2147483647, -2147483648, Empty, True, 0.4)
    queue.Item position
    RaisedInvalidCall "Item " & Shown(position)
    queue.Remove position
    RaisedInvalidCall "Remove " & Shown(position)
  Next
  Equal "ONE|TWO", CommandsIn(queue), "the queue is as it was"
End Sub

Sub TestAnUnknownKeyIs5
  Dim queue, key
  Set queue = CreateObject("Wendrill23.CQueue")
  queue.Add "ONE", "first"
  On Error Resume Next
  For Each key In Array("second", "firs", "first ", "1", "")
    queue.Item key
    RaisedInvalidCall "Item " & Shown(key)
    queue.Remove key
    RaisedInvalidCall "Remove " & Shown(key)
  Next
  Equal "ONE", CommandsIn(queue), "the queue is as it was"
End Sub

Sub TestAnIndexOfAnotherTypeIsRefused
  Dim queue
  Set queue = QueueOf(Array("ONE"))
  On Error Resume Next
  queue.Item 1E300
  Raised 6, "Wendrill23", "Overflow", "a number beyond 32 bits"
  queue.Item 2147483648
  Raised 6, "Wendrill23", "Overflow", "the first number beyond 32 bits"
  queue.Item Array(1)
  Raised 13, "Wendrill23", "Type mismatch", "an array"
  queue.Item Null
  Raised 94, "Wendrill23", "Invalid use of Null", "Null"
  queue.Remove queue
  Raised 13, "Wendrill23", "Type mismatch", "an object"
  queue.Remove Nothing
  Raised 91, "Wendrill23", "Object variable or With block variable not set", "Nothing"
  queue.Item
  Equal CLng(450), Err.Number, "Item of nothing"
  Err.Clear
  queue.Remove
  Equal CLng(450), Err.Number, "Remove of nothing"
  Err.Clear
  queue.Item 1, 2
  Equal CLng(450), Err.Number, "Item of two positions"
  Err.Clear
  Equal "ONE", CommandsIn(queue), "the queue is as it was"
End Sub

' --- Identity

Sub TestTheStoredObjectIsOneObject
  Dim queue, added, held
  Set queue = CreateObject("Wendrill23.CQueue")
  Set added = queue.Add("HE", "help")
  Check queue(1) Is added, "Item gives what Add gave"
  Check queue.Item(1) Is queue("HELP"), "position and key give one object"
  added.Command = "AN"
  Equal "AN", queue(1).Command, "a change is seen in the queue"
  Set added = Nothing
  queue(1).Command = "ET"
  Equal "ET", queue(1).Command, "the queue keeps it, whoever lets go of it"
  For Each held In queue
    Check held Is queue(1), "For Each gives it too"
  Next
End Sub

Sub TestTwoEntriesAreTwoObjects
  Dim queue
  Set queue = QueueOf(Array("HE", "HE"))
  Check Not queue(1) Is queue(2), "the same entry twice"
End Sub

Sub TestAStoredObjectOutlivesItsQueue
  Dim queue, held
  Set queue = CreateObject("Wendrill23.CQueue")
  Set held = queue.Add("ET")
  Set queue = Nothing
  Equal "ET", held.Command, "Command"
  Equal Row("END OF TRANSACTION COMPLETE - ABC123"), held.SendCommand(held.Command), "and the session is connected"
End Sub

' --- Removing

Sub TestRemovingMovesLaterPositionsUp
  Dim queue
  Set queue = QueueOf(Array("ONE", "TWO", "THREE", "FOUR"))
  queue.Remove 2
  Equal "ONE|THREE|FOUR", CommandsIn(queue), "from the middle"
  queue.Remove queue.Count
  Equal "ONE|THREE", CommandsIn(queue), "from the end"
  queue.Remove 1
  Equal "THREE", queue(1).Command, "from the beginning"
  Equal CLng(1), queue.Count, "Count"
End Sub

Sub TestRemovingByKeyFreesTheKey
  Dim queue
  Set queue = CreateObject("Wendrill23.CQueue")
  queue.Add "ONE", "first"
  queue.Add "TWO", "second"
  queue.Remove "FIRST"
  Equal "TWO", CommandsIn(queue), "commands"
  queue.Add "THREE", "First"
  Equal "THREE", queue("first").Command, "the key serves again"
  Equal "TWO", queue("second").Command, "the other key still finds its entry"
End Sub

Sub TestRemoveAllEmptiesTheQueueAndFreesItsKeys
  Dim queue
  Set queue = CreateObject("Wendrill23.CQueue")
  queue.RemoveAll
  Equal CLng(0), queue.Count, "an empty queue stays empty"
  queue.Add "ONE", "first"
  queue.Add "TWO"
  queue.RemoveAll
  Equal CLng(0), queue.Count, "Count"
  queue.Add "THREE", "first"
  Equal "THREE", CommandsIn(queue), "the key serves again"
End Sub

' --- Walking

Sub TestForEachWalksInOrder
  Dim queue
  Set queue = QueueOf(Array("ONE", "TWO", "THREE"))
  Equal "ONE|TWO|THREE", CommandsIn(queue), "the first walk"
  Equal "ONE|TWO|THREE", CommandsIn(queue), "the second walk"
  queue.RemoveAll
  Equal "", CommandsIn(queue), "an empty queue"
End Sub

Sub TestAWalkIsNotDisturbedByWhatItAddsAndRemoves
  Dim queue, entry, seen
  Set queue = QueueOf(Array("ONE", "TWO", "THREE"))
  For Each entry In queue
    seen = seen & entry.Command & " "
    queue.Remove 1
    queue.Add "MORE"
  Next
  Equal "ONE TWO THREE ", seen, "what was walked"
  Equal "MORE|MORE|MORE", CommandsIn(queue), "what is there now"
End Sub

Sub TestWalksMayBeNested
  Dim queue, outer, inner, seen
  Set queue = QueueOf(Array("A", "B"))
  For Each outer In queue
    For Each inner In queue
      seen = seen & outer.Command & inner.Command & " "
    Next
  Next
  Equal "AA AB BA BB ", seen, "what was walked"
End Sub

' --- The session

Sub TestTheFirstStoredObjectConnectsTheSession
  Dim control, queue
  Set control = Simulator("")
  Set queue = QueueOf(Array("HE", "ET"))
  Equal "A;B", queue(1).GetSessionList, "session list of the first object that lives"
  Equal "", queue(2).GetSessionList, "session list of the second"
  queue.RemoveAll
  Equal CLng(0), CLng(control.LiveObjects), "the session goes with the last"
  queue.Add "HE"
  Equal "A;B", queue(1).GetSessionList, "and the next one connects anew"
End Sub

Sub TestTheSessionStaysWhileOneStoredObjectLives
  Dim queue
  Set queue = QueueOf(Array("HE", "ET"))
  queue.Remove 1
  Equal Row("IGNORED"), queue(1).SendCommand("IG"), "response"
End Sub

Sub TestStoredObjectsCountAsLiving
  Dim quillet, queue
  Set queue = QueueOf(Array("HE"))
  Set quillet = CreateObject("Wendrill23.CQuillet")
  Equal "", quillet.GetSessionList, "an object made while the queue holds one"
End Sub
