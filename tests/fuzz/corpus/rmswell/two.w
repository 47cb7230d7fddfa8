1.0
Undefined
W 1 100 200 25
3
MD UNK lin
Facies DISC 0 shale 1 sand
Poro param CONT
100 200 -25 0 0 0.25
101 200 75 100.5 -999 -999
