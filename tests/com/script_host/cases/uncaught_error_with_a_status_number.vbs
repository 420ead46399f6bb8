Err.Raise &H80040456, "Wendrill23", "no encoder"
