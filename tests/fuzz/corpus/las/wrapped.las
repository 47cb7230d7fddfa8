~V
VERS. 1.2:
WRAP. YES:
~C
DEPT.F:
A.:
B.:
~A
1
2 3
2
4 5
