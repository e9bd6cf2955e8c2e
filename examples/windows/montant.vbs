' Amounts in words, working days and angles from a script: cscript //nologo montant.vbs [amount]
' Everything is late-bound: the classes are created by their ProgID, and the members found by name.
Option Explicit
Dim conversion, dates, math, amount, angle

amount = 1234.5
If WScript.Arguments.Count > 0 Then amount = CDbl(WScript.Arguments(0))

Set conversion = CreateObject("KADRELDLL.Cls_Conversion")
conversion.IntituleMonnaie = "euro"
conversion.IntitulePetiteMonnaie = "centime"
WScript.Echo conversion.ConvertirNombreEnLettre(amount, True)

Set dates = CreateObject("KADRELDLL.Cls_Date")
WScript.Echo dates.NBJoursOuvrablesParMois(2026, 11) & " jours ouvrables en novembre 2026"

' A variable goes by reference: the method reduces it.
Set math = CreateObject("KADRELDLL.Cls_Math")
angle = 10
math.MesurePrincipale angle
WScript.Echo "10 radians = " & FormatNumber(angle, 2) & " radian"

' A failing call raises a numbered error.
On Error Resume Next
WScript.Echo dates.Paques("demain")
WScript.Echo "erreur " & Err.Number & " : " & Err.Description
