Set quillet = CreateObject("Wendrill23.CQuillet")
quillet.SendComand "JI"
