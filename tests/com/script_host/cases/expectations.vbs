' On Error Resume Next hides no failure.
Set expect = CreateObject("QuilletSimulator.Expect")
On Error Resume Next
Set quillet = CreateObject("Wendrill23.CQuillet")
quillet.SendCommandNoClear "JI"
quillet.SendCommandNoClear "JI"
expect.Equal "office", "PARXX0100", "NCEYY2100"
expect.Equal "longer", "PARXX01", "PARXX0100"
expect.Equal "two types of one number", CInt(27), CLng(27)
expect.Equal "number and text", 27, "27"
expect.Equal "nothing yet", Empty, ""
expect.Equal "array", Array("A", 1, True), Array("A", 2, True)
expect.Equal "same array", Array("A", 2, True), Array("A", 2, True)
expect.Holds "true", 2 > 1
expect.Holds "false", 1 > 2
expect.Holds "text", "yes"
expect.Sent "JI", 2
expect.Sent "JI"
expect.Sent "AN"
expect.NotSent "AN"
expect.NotSent "JI"
expect.InOrder Array("JI", "JI")
expect.InOrder Array("JI", "AN")
expect.InOrder Array("AN", "JI")
Err.Raise 2505
expect.Fails "raised", Err.Number, 2505
expect.Fails "not raised", 0, 2505
expect.Fails "raised all the same", 2505, 0
expect.Screen "SIGNED", 0
expect.Screen "AVAILABILITY", 0.1
failures = expect.Failures
WScript.Echo expect.Failed, UBound(failures), failures(0)
