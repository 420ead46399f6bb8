Set pnr = CreateObject("Wendrill23.CPNR")
pnr.NameElement "0"
