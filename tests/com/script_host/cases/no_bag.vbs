Set quillet = CreateObject("Wendrill23.CQuillet")
quillet.SendCommandFI "FI", quillet
