Dim math, row, angle, x, y, cx, cy, result
Set math = CreateObject("KADRELDLL.Cls_Math")
For Each row In Array(Array(3.14, 3.14), Array(3.15, -3.13), Array(-3.15, 3.13), Array(10, -2.56), Array(6.28, 0))
    angle = row(0)
    Check "principal measure of " & row(0), math.MesurePrincipale(angle), CSng(row(1))
    CheckNear "the variable is reduced", angle, CDbl(row(1))
Next
angle = 1
Check "an angle in range", math.MesurePrincipale(angle), CSng(1)
Check "keeps its type", angle, 1
angle = "10"
Check "a text as angle", math.MesurePrincipale(angle), CSng(-2.56)
Check "becomes a number", VarType(angle), 5
Check "an angle by value", math.MesurePrincipale(10), CSng(-2.56)
angle = "abc"
result = math.MesurePrincipale(angle)
CheckError "not an angle", 13, "Type incompatible"
Check "stays as it was", angle, "abc"

Check "distance", math.Hypothenuse(0, 0, 3, 4), CDbl(5)
x = 1
Check "of equal points", math.Hypothenuse(x, x, x, x), CDbl(0)
Check "of texts", math.Hypothenuse("0", "0", "3", "4"), CDbl(5)
result = math.Hypothenuse(0, 0, 3, "quatre")
CheckError "of something else", 13, ""

For Each row In Array(Array(0, 1.57, 0), Array(0.5, 1.0362, 0.5338), Array(-0.5, 2.1038, 3.6738), Array(0.99, 0.157, 1.4444), _
                      Array(1, 0, 0), Array(-1, 0, 0))
    x = row(0)
    CheckNear "inverse cosine of " & x, math.InverseCosinus(x), CSng(row(1))
    CheckNear "inverse sine of " & x, math.InverseSinus(x), CSng(row(2))
Next
CheckNear "last value of the grid", math.InverseCosinus(0.9999), CSng(6.28)
Check "a text ranks above the grid", math.InverseCosinus("0"), CSng(0)

cx = 0
cy = 0
For Each row In Array(Array(1, 0, 0), Array(1, 1, 0.785), Array(3, 4, 0.942), Array(0, 1, -0.785), Array(-1, 1, 2.355), _
                      Array(-1, 0, 0), Array(-1, -1, -2.355), Array(0, -1, -0.785), Array(1, -1, -0.785))
    x = row(0)
    y = row(1)
    CheckNear "direction of " & x & " " & y, math.AngleTrigo(x, y, cx, cy), CSng(row(2))
Next
result = math.AngleTrigo(1, 1, 1, 1)
CheckError "direction of a point", 6, "Dépassement de capacité"
Finish 45
