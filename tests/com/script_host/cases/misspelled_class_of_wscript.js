var quillet = WScript.CreateObject("Wendrill23.CQuilet");
