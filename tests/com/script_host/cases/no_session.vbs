Set quillet = CreateObject("Wendrill23.CQuillet")
