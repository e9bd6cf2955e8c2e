' Calls as only scripts make them: every variable goes as a VARIANT by reference, and arrays hold VARIANTs.
Dim conversion, dates, registry, translation, messages, fixed(2), file, value, result
Set conversion = CreateObject("KADRELDLL.Cls_Conversion")
Set dates = CreateObject("KADRELDLL.Cls_Date")
Set registry = CreateObject("KADRELDLL.Cls_InitREG")
Set translation = CreateObject("KADRELDLL.Cls_Traduction")

value = "euro"
conversion.IntituleMonnaie = value
Check "a label", conversion.IntituleMonnaie, "euro"
value = "12"
Check "a number in words", conversion.ConvertirNombreEnLettre(value, True), "douze euros"
Check "a text that stays one", value, "12"
Check "an angle", CreateObject("KADRELDLL.Cls_Math").MesurePrincipale(value), CSng(-0.56)
Check "a text that became a number", VarType(value), 5
Check "a text for SQL", CreateObject("KADRELDLL.Cls_SQL").RepAPOS("l'été"), "l''été"
Check "a time as a number", dates.HeureEnSeconde(TimeSerial(1, 1, 1)), CLng(3661)
value = "HKEY_CURRENT_USER\Software\TOVERA essais"
Check "no result", registry.CreerREG_Cle(value), Empty
Check "the path that it cut", value, "Software\TOVERA essais"
file = "C:\essais\français.lng"
Check "no form", translation.Sauver_LangueFeuille(Nothing, file), ""
messages = Array("", "un", "été", "trois")
translation.Sauver_TousLesMessages messages, file
ReDim messages(9)
translation.Charger_TousLesMessages file, messages
Check "an array", UBound(messages), CLng(4)
Check "a text in it", messages(2), "été"
messages = Empty
translation.Charger_TousLesMessages file, messages
Check "a variable that becomes an array", messages(2), "été"
translation.Charger_TousLesMessages file, fixed
CheckError "an array of fixed size", 10
result = dates.Paques("abc")
Check "the source of a failure", Err.Source, "KADRELDLL"
Check "its text", Err.Description, "Type incompatible"
CheckError "its number", 13
conversion.NoSuchMember 1
CheckError "an unknown member", 438
Finish 18
