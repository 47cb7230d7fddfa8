~V
VERS. 2.0:
WRAP. NO:
~W
NULL. -999.25:
WELL. W:
~C
DEPT.M : measured depth
X.M:
Y.M:
Z.M:
GR.API:
~A
1 2 3 4 -999.25
2 2 3 3 5
