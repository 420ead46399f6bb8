Set nothingThere = CreateObject("Completely.Different")
