' What comes out on a desktop that writes 31/12/2008 and 1.234,5.

Sub TestAll
  Dim standIn, quillet, pnr, bag
  Equal "12/06/2008", CStr(CDate(39611)), "the desktop's date"
  Equal "1234,5", CStr(1234.5), "the desktop's number"

  Set standIn = CreateObject("PnrStandIn.Control")
  Set quillet = CreateObject("Wendrill23.CQuillet")
  Set pnr = CreateObject("Wendrill23.CPNR")
  Set bag = CreateObject("Pellorin.ParamBag")
  bag("intKeyIndex") = 0

  standIn.Answer "14[0].1", "6 CCR ZE HK1 NCE 12JUN-06DEC ECMN/DO-CDG/RG-EUR 45.00 UNL DY/CF-1.5"
  standIn.Answer "14[0].2", 6
  standIn.Answer "14[0].8", CSng(4.1)
  standIn.Answer "14[0].9", CDate(39611)
  standIn.Answer "14[0].10", CDate(39788)
  standIn.Answer "14[0].11", 1234.5
  standIn.Answer "14[0].18", CCur(0.5)
  standIn.Answer "14[0].44.Passengers[0].ElementNo", 1
  pnr.CarSegment bag
  Equal "12JUN08", bag("strKeyPuDate"), "the pick-up date"
  Equal "06DEC08", bag("strKeyDoDate"), "the drop-off date"
  Equal "4,1", bag("strKeyCity"), "a single as text"
  Equal "1234,5", bag("strKeyCarCode"), "a double as text"
  Equal "0,5", bag("strKeyConfNo"), "a currency as text"
  Equal "EUR 45.00", bag("strKeyPrice"), "the price, which is the host's text"

  standIn.Answer "63[0].Text", "10 TK TL12JUN"
  standIn.Answer "63[0].ElementNo", 10
  standIn.Answer "63[0].Action", "TL"
  standIn.Answer "63[0].Date", CDate(39611)
  pnr.TicketElement bag
  Equal "12JUN08", bag("strKeyDate"), "the ticket's date"
  standIn.Answer "63[0].Date", "12/06/2008"
  pnr.TicketElement bag
  Equal "12JUN08", bag("strKeyDate"), "a ticket's date that is a text in the desktop's form"
  standIn.Answer "63[0].Date", "12JUN"
  pnr.TicketElement bag
  Equal "12JUN", bag("strKeyDate"), "a ticket's date that is the host's text"

  ' From text to number nothing follows the desktop: an association is a number with a point or none, a fraction as an
  ' index is the same element everywhere, 2.3P300 is release 2.3.
  standIn.Answer "62[0].Text", "3 AP NCE/P1.5"
  standIn.Answer "62[0].ElementNo", 3
  pnr.ContactElements bag
  Equal "1.5", bag("strKeyPasAsso"), "a number with a point in the host's text"
  standIn.Answer "75", Rows("RP/PARXX0100/PARXX0100|PARXX0100/0001AA/12JUN08| 10 SSR VGML AF HK1/P1| 11 SSR WCHR AF HK1/P1")
  bag("strKeyPNRElement") = "SSR"
  bag("intKeyIndex") = 0.5
  pnr.Elements bag
  Equal "VGML", bag("strKeyCode"), "the element of the index 0.5"
  bag("intKeyIndex") = "0.5"
  pnr.Elements bag
  Equal "VGML", bag("strKeyCode"), "the element of the index as text"

  Set quillet = Nothing
  TestTerminalVersion "2.3P300", "alarm lock | alarm unlock"
  TestTerminalVersion "2.3P299", "key 322 | send LOCK | key 322 | send UNLOCK"
  TestNumberInAnArgument
End Sub

Sub TestTerminalVersion(version, journalled)
  Dim control, quillet
  Set control = Simulator("[terminal]" & vbLf & "version = '" & version & "'" & vbLf & SessionWith("[[reply]]" & vbLf & "starts = ''" & vbLf & "screen = 'DONE'" & vbLf))
  Set quillet = CreateObject("Wendrill23.CQuillet")
  quillet.ConnectSession "A"
  Journal
  quillet.LockAlarm
  quillet.UnLockAlarm
  Equal journalled, Journal(), "the lock of terminal " & version
End Sub

Sub TestNumberInAnArgument
  Dim control, quillet, sent
  Set control = Simulator(SessionWith(Answer("AN", 0, Array("ONE|TWO"))))
  Set quillet = CreateObject("Wendrill23.CQuillet")
  sent = quillet.SendCommand("AN")
  Equal "TWO", RTrim(quillet.GetLineFromLastBuffer("2.0")), "the line of the number 2.0"
End Sub
