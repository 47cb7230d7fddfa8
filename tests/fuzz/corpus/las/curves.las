~Version
VERS. 2.0 : CWLS
WRAP. NO :
~Well
NULL. -999.25 :
WELL. A : WELL
~Curve
DEPT.M : depth
GR.GAPI : gamma
~A
0 1
1 -999.25
