Set pnr = CreateObject("Wendrill23.CPNR")
pnr.SendCommand "JI"
