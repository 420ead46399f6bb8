Attribute VB_Name = "BatchSample"
' Entries that wait in a queue, sent as one batch; the host refuses one of them.
'
' For 32-bit Office on a desktop with Quillet, the library registered: in the editor File, Import File, then run
' SendSampleBatch. What it says goes to the editor's Immediate window.
'
' A batch joins the entries with ";" and sends them in as few host entries as they need, at most 239 characters at a
' time. Its report numbers these host entries from 1 and says which of them the host refused. A remark that is too long
' for one entry is cut by RMBatch, whose array is declared with Dim elements() As String.
Option Explicit

Private Const NotQueued As Long = 2400   ' whatever keeps an entry out of the queue

Public Sub SendSampleBatch()
    On Error GoTo Failed
    SendBatch FilledQueue()
    Exit Sub
Failed:
    Debug.Print "Error " & Err.Number & ": " & Err.Description
End Sub

Private Function FilledQueue() As Object
    Dim queue As Object
    Set queue = CreateObject("Wendrill23.CQueue")
    queue.Add "RM PAID BY CARD AT THE DESK"
    queue.Add "RM WINDOW SEATS WANTED", "seats"   ' an entry may have a key
    queue.Add "ER", "end"
    queue.Add "RUBBISH"   ' "RU" begins a host entry; the host does not understand this one
    AddOnce queue, "ET", "END"
    Set FilledQueue = queue
End Function

' A key that is there already, whatever its case, is an error.
Private Sub AddOnce(ByVal queue As Object, ByVal command As String, ByVal key As String)
    On Error GoTo Failed
    queue.Add command, key
    Exit Sub
Failed:
    If Err.Number <> NotQueued Then Err.Raise Err.Number, Err.Source, Err.Description
    Debug.Print command & " is not queued: there is an entry under its key, " & queue(key).Command
End Sub

Private Sub SendBatch(ByVal queue As Object)
    Dim entry As Object
    Dim batch As Object
    Dim report As Object
    Dim responses As Variant
    Dim index As Long

    For Each entry In queue
        Debug.Print "> " & entry.Command
    Next entry

    Set batch = CreateObject("Wendrill23.CBatch")
    Set report = CreateObject("Scripting.Dictionary")   ' a bag, filled by the call
    Set batch.Commands = queue
    batch.SubmitWithResponse report

    responses = report("strKeyResponseArray")
    For index = LBound(responses) To UBound(responses)
        Debug.Print index + 1 & ": " & RTrim$(Left$(responses(index), 80))
    Next index
    If report("blnKeyResponseOK") Then
        Debug.Print "The host accepted everything."
    Else
        Debug.Print "Refused: host entry " & report("strKeyErr")
    End If
End Sub
