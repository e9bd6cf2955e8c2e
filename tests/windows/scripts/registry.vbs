Const root = "HKEY_CURRENT_USER\Software\TOVERA essais"
Dim registry, shell, path, name, value, row, result
Set registry = CreateObject("KADRELDLL.Cls_InitREG")
Set shell = CreateObject("WScript.Shell")

path = root
Check "create", registry.CreerREG_Cle(path), Empty
Check "the path is cut", path, "Software\TOVERA essais"

path = root
name = "nombre"
value = CLng(-5)
Check "write a number", registry.EcrireREG_DWORD(path, name, value), Empty
Check "the path is cut", path, "Software\TOVERA essais"
Check "read it", registry.LireREG_DWORD(root, "nombre"), CLng(-5)
Check "read as the system sees it", shell.RegRead(root & "\nombre"), CLng(-5)
Check "a number out of range", registry.LireREG_DWORD(root, "aucun"), "Error"

Check "write a text", registry.EcrireREG_STRING(root, "texte", "été"), Empty
Check "read it", registry.LireREG_STRING(root, "texte"), "été"
Check "read as the system sees it", shell.RegRead(root & "\texte"), "été"
registry.EcrireREG_STRING root, "blancs", "  a  "
Check "blanks in front are lost", registry.LireREG_STRING(root, "blancs"), "a  "
registry.EcrireREG_STRING root, "long", String(254, "x")
Check "254 bytes", registry.LireREG_STRING(root, "long"), String(254, "x")
Check "an empty text", registry.EcrireREG_STRING(root, "vide", ""), Empty
result = registry.LireREG_STRING(root, "vide")
CheckError "a value of no bytes", 5, ""

value = Chr(1) & Chr(0) & "é"
Check "write bytes", registry.EcrireREG_BINARY(root, "octets", value), Empty
Check "read them", registry.LireREG_BINARY(root, "octets"), value
Check "bytes of a missing value", registry.LireREG_BINARY(root, "aucun"), "Error"
result = registry.EcrireREG_BINARY(root, "octets", "")
CheckError "no bytes to write", 9, ""
Check "too long for a number", registry.LireREG_DWORD(root, "long"), "Error"

Check "key missing", registry.LireREG_STRING(root & "\aucune", "x"), "Error"
Check "root unknown", registry.LireREG_STRING("HKEY_AUCUNE\Software", "x"), Empty
For Each row In Array(Array("HKEY_CLASSES_ROOT", &H80000000), Array("HKEY_CURRENT_USER", &H80000001), _
                      Array("HKEY_LOCAL_MACHINE", &H80000002), Array("HKEY_USERS", &H80000003), _
                      Array("HKEY_PERFORMANCE_DATA", &H80000004), Array("HKEY_CURRENT_CONFIG", &H80000005), _
                      Array("HKEY_DYN_DATA", &H80000006), Array("hkey_users", CLng(0)))
    Check row(0), registry.LireREG_ClePrincipale(row(0)), row(1)
Next

Check "report of an installation", registry.EcritureREG_Software_RepInstall("TOVERA essais\Installation", "C:\Appli"), _
    "Ecriture dans HKEY_CURRENT_USER\Software\TOVERA essais\Installation"
Check "its folder", registry.LireREG_STRING(root & "\Installation", "RepInstall"), "C:\Appli"
registry.EffaceREG_CLE root
Check "a key with a subkey stays", registry.LireREG_STRING(root, "texte"), "été"
Check "erase", registry.EffaceREG_CLE(root & "\Installation"), Empty
Check "it is gone", registry.LireREG_STRING(root & "\Installation", "RepInstall"), "Error"
registry.EffaceREG_CLE root
Check "then the rest goes too", registry.LireREG_STRING(root, "texte"), "Error"

For Each row In Array(Array(2, "Mauvais nom de cle"), Array(4, "Ne peut lire la cle"), _
                      Array(5, "L'access a cette cle ne peut se faire"), Array(14, "Pas assez de memoire"), _
                      Array(87, "Parametre Invalide"), _
                      Array(234, "Il y a plus de donnees que le buffer ne peut en supporter."), _
                      Array(1009, "La base de Registre est corrompu!"), Array(1011, "Ne peut ouvrir la cle"), _
                      Array(1013, "Ne peut ecrire la cle"), Array(1014, "Code d'Erreur indefini:   1014"), _
                      Array(-3, "Code d'Erreur indefini:  -3"))
    Check "message " & row(0), registry.ErrorMsg(row(0)), row(1)
Next
Finish 46
