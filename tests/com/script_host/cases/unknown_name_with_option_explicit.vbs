Option Explicit
Dim number
number = 1
nubmer = 2
