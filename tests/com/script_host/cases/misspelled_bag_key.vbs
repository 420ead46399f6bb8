Set quillet = CreateObject("Wendrill23.CQuillet")
Set pnr = CreateObject("Wendrill23.CPNR")
Set bag = CreateObject("Pellorin.ParamBag")
quillet.RetrieveRecLoc "ABC123"
bag("intKeyIndex") = 0
bag("intKeyIndx") = 1
pnr.NameElement bag
WScript.Echo bag("strKeyLastName")
