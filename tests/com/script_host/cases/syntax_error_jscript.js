var entry = ;
