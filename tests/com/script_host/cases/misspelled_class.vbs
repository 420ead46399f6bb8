Set quillet = CreateObject("Wendrill23.CQuilet")
