' Every member once, by its name, with variables and values as scripts have them. (Wine's script objects can't be
' called by others, so that forms are left to the clients in C++.)
Const key = "HKEY_CURRENT_USER\Software\TOVERA essais"
Const folder = "C:\essais"
Dim conversion, dates, math, registry, translation, sql, disk, file, messages, fixed(2), path, value, result
Set conversion = CreateObject("KADRELDLL.Cls_Conversion")
Set dates = CreateObject("KADRELDLL.Cls_Date")
Set math = CreateObject("KADRELDLL.Cls_Math")
Set registry = CreateObject("KADRELDLL.Cls_InitREG")
Set translation = CreateObject("KADRELDLL.Cls_Traduction")
Set sql = CreateObject("KADRELDLL.Cls_SQL")
Set disk = CreateObject("Scripting.FileSystemObject")
file = folder & "\français.lng"

conversion.IntituleMonnaie = "euro"
value = "centime"
conversion.IntitulePetiteMonnaie = value
Check "IntituleMonnaie", conversion.IntituleMonnaie, "euro"
Check "IntitulePetiteMonnaie", conversion.IntitulePetiteMonnaie, "centime"
Check "a label of another object", CreateObject("KADRELDLL.Cls_Conversion").IntituleMonnaie, ""
Check "Ctrl_SaiseNombre", conversion.Ctrl_SaiseNombre("1 234,50"), "1234,50"
value = "12"
Check "ConvertirNombreEnLettre", conversion.ConvertirNombreEnLettre(value, True), "douze euros"
Check "a text that stays one", value, "12"
value = Chr(130) & "t" & Chr(130)
path = "######"
Check "ConvertirOemAnsi", conversion.ConvertirOemAnsi(value, path), CInt(1)
Check "its target", path, "été" & Chr(0) & "##"

value = 2002
Check "Paques", dates.Paques(value), DateSerial(2002, 3, 31)
Check "DateFRtoUS", dates.DateFRtoUS("25/12/2002"), "12/25/2002"
Check "DateUStoFR", dates.DateUStoFR("12/25/2002"), "25/12/2002"
Check "SecondeEnHeure", dates.SecondeEnHeure(3661), "01:01:01"
Check "HeureEnSeconde", dates.HeureEnSeconde(TimeSerial(1, 1, 1)), CLng(3661)
Check "Chrono", dates.Chrono("100", 200), CLng(100)
Check "NBJoursOuvrablesParMois", dates.NBJoursOuvrablesParMois(2002, 2), CInt(20)
Check "NBJoursOuvrables", dates.NBJoursOuvrables(DateSerial(2002, 5, 6), DateSerial(2002, 5, 10)), CInt(5)

value = "10"
Check "MesurePrincipale", math.MesurePrincipale(value), CSng(-2.56)
Check "a text that became a number", VarType(value), 5
value = 1
Check "Hypothenuse", math.Hypothenuse(value, value, value, value), CDbl(0)
Check "InverseCosinus", math.InverseCosinus(value), CSng(0)
Check "InverseSinus", math.InverseSinus(0.5), CSng(0.5338)
Check "AngleTrigo", math.AngleTrigo(1, 0, 0, 0), CSng(0)

path = key
Check "CreerREG_Cle", registry.CreerREG_Cle(path), Empty
Check "the path that it cut", path, "Software\TOVERA essais"
Check "EcrireREG_DWORD", registry.EcrireREG_DWORD(key, "nombre", -5), Empty
Check "LireREG_DWORD", registry.LireREG_DWORD(key, "nombre"), CLng(-5)
Check "the same by the host", CreateObject("WScript.Shell").RegRead(key & "\nombre"), CLng(-5)
Check "EcrireREG_STRING", registry.EcrireREG_STRING(key, "texte", "été"), Empty
Check "LireREG_STRING", registry.LireREG_STRING(key, "texte"), "été"
value = Chr(1) & Chr(0) & "é"
Check "EcrireREG_BINARY", registry.EcrireREG_BINARY(key, "octets", value), Empty
Check "LireREG_BINARY", registry.LireREG_BINARY(key, "octets"), value
Check "EcritureREG_Software_RepInstall", registry.EcritureREG_Software_RepInstall("TOVERA essais", "C:\"), _
    "Ecriture dans HKEY_CURRENT_USER\Software\TOVERA essais"
Check "EffaceREG_CLE", registry.EffaceREG_CLE(key), Empty
Check "LireREG_ClePrincipale", registry.LireREG_ClePrincipale("HKEY_USERS"), &H80000003
Check "ErrorMsg", registry.ErrorMsg(14), "Pas assez de memoire"

Check "Sauver_LangueFeuille", translation.Sauver_LangueFeuille(Nothing, file), ""
Check "IniEcrire", registry.IniEcrire("MSG", "MSG1", "Bonjour à tous", file), CLng(1)
Check "IniLire", registry.IniLire("MSG", "MSG1", "", file), "Bonjour à tous"
Check "WinIniEcrire", registry.WinIniEcrire("TOVERA essais", "Clé", "été"), CLng(1)
Check "WinIniLire", registry.WinIniLire("TOVERA essais", "Clé", ""), "été"
Check "RetourneCheminWindows", LCase(registry.RetourneCheminWindows), LCase(disk.GetSpecialFolder(0))
Check "RetourneCheminSystem", LCase(registry.RetourneCheminSystem()), LCase(disk.GetSpecialFolder(1))
Check "FichierExiste", registry.FichierExiste(file), True
Check "DossierExiste", registry.DossierExiste(folder), True
Check "GET_NomCourt, GET_NomLong", LCase(registry.GET_NomLong(registry.GET_NomCourt(file))), LCase(file)
Check "Charger_LangueFeuille", translation.Charger_LangueFeuille(Nothing, file), ""
Check "Charger_LeMessage", translation.Charger_LeMessage(file, 1), "Bonjour à tous"
messages = Array("", "un", "été", "trois")  ' arrays of scripts hold VARIANTs
translation.Sauver_TousLesMessages messages, file
ReDim messages(9)
translation.Charger_TousLesMessages file, messages
Check "Charger_TousLesMessages", UBound(messages), CLng(4)
Check "what Sauver_TousLesMessages wrote", messages(2), "été"
messages = Empty
translation.Charger_TousLesMessages file, messages
Check "a variable that becomes an array", messages(2), "été"
Check "RenommerFichier", registry.RenommerFichier(file, folder & "\autre.lng"), True
disk.DeleteFolder folder

Check "RepAPOS", sql.RepAPOS("l'été"), "l''été"
disk.CreateTextFile("C:\essais.mdb").Close
Check "Creer_ODBC_Access", sql.Creer_ODBC_Access("C:\essais.mdb", "Base"), "MDAC non installé."

result = dates.Chrono(CLng(-2147483647), CLng(2147483647))
CheckError "a failure of a member", 6, "Dépassement de capacité"
result = dates.Paques("abc")
Check "its source", Err.Source, "KADRELDLL"
CheckError "a failure within it", 13, "Type incompatible"
result = dates.Chrono(1, 99999999999)
CheckError "an argument out of range", 6, ""
conversion.NoSuchMember 1
CheckError "an unknown member", 438, ""
result = dates.Chrono(1)
CheckError "an argument too few", 450, ""
translation.Charger_TousLesMessages file, fixed
CheckError "an array of fixed size", 10, "Tableau fixe ou momentanément verrouillé"
Finish 60
