Set number = 5
