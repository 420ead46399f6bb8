Set quillet = CreateObject("CQuillet")
