' Values of types that scripts seldom see pass through the library unchanged, and become text by their own type.

Sub TestAll
  Dim standIn, quillet, pnr, bag
  Set standIn = CreateObject("PnrStandIn.Control")
  Set quillet = CreateObject("Wendrill23.CQuillet")
  Set pnr = CreateObject("Wendrill23.CPNR")
  Set bag = CreateObject("Pellorin.ParamBag")
  bag("intKeyIndex") = 0
  standIn.Answer "24[0].Text", "8 FM 4.1"
  standIn.Answer "24[0].ElementNo", CByte(8)

  standIn.Answer "24[0].Percent", CSng(4.1)
  pnr.FareCommissionElement bag
  Equal CSng(4.1), bag("strKeyValue"), "a single"
  Equal CByte(8), bag("strKeyElementNr"), "a byte"
  standIn.Answer "24[0].Percent", CCur(4.1)
  pnr.FareCommissionElement bag
  Equal CCur(4.1), bag("strKeyValue"), "a currency"

  standIn.Answer "15[0].Text", "5 HHL RT HK1 PAR IN15JUN OUT17JUN 1A1KCOR EUR120.00 DLY CD GRAND HOTEL/CF-AB12"
  standIn.Answer "15[0].ElementNo", 5
  standIn.Answer "15[0].City", CSng(4.1)
  standIn.Answer "15[0].CheckinDate", CDate(39614)
  standIn.Answer "15[0].CheckoutDate", CDate(39616)
  standIn.Answer "15[0].ConfirmationNo", CCur(4.1)
  standIn.Answer "15[0].RoomRateCode", CSng(4.1)
  pnr.HotelSegment bag
  Equal "4.1", bag("strKeyCity"), "a single as text"
  Equal "4.1", bag("strKeyConfNo"), "a currency as text"
  Equal "15JUN08", bag("strKeyInDate"), "the check-in date"

  On Error Resume Next
  standIn.Fail "24[0].Percent", &H80070005
  pnr.FareCommissionElement bag
  Equal 70, CInt(Err.Number), "access denied, number"
  Equal "Permission denied", Err.Description, "access denied, description"
  Err.Clear
  standIn.Fail "24[0].Percent", &H80070005, "The vault is closed."
  pnr.FareCommissionElement bag
  Equal &H80070005, CLng(Err.Number), "access denied with a description, number"
  Equal "The vault is closed.", Err.Description, "access denied with a description, description"
  Err.Clear
End Sub
