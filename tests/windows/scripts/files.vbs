Dim tools, disk, folder, file, section, key, value
Set tools = CreateObject("KADRELDLL.Cls_InitREG")
Set disk = CreateObject("Scripting.FileSystemObject")
folder = disk.GetSpecialFolder(2) & "\TOVERA essais"
disk.CreateFolder folder
Err.Clear
file = folder & "\profil.ini"
section = "Général"
key = "Clé"
value = "été"

Check "write", tools.IniEcrire(section, key, value, file), CLng(1)
Check "read", tools.IniLire(section, key, "défaut", file), "été"
Check "default", tools.IniLire(section, "aucune", "défaut", file), "défaut"
Check "an empty entry", tools.IniEcrire(section, "vide", "", file), CLng(1)
Check "isn't missing", tools.IniLire(section, "vide", "défaut", file), ""
tools.IniEcrire section, "longue", String(300, "x"), file
Check "a long entry is cut", Len(tools.IniLire(section, "longue", "", file)), CLng(254)
Check "into a folder that isn't there", tools.IniEcrire(section, key, value, folder & "\aucun\profil.ini"), CLng(0)
Check "write to WIN.INI", tools.WinIniEcrire("TOVERA essais", key, value), CLng(1)
Check "read from WIN.INI", tools.WinIniLire("TOVERA essais", key, ""), "été"
Check "its default", tools.WinIniLire("TOVERA essais", "aucune", "défaut"), "défaut"
Check "Windows folder", LCase(tools.RetourneCheminWindows), LCase(disk.GetSpecialFolder(0))
Check "system folder", LCase(tools.RetourneCheminSystem()), LCase(disk.GetSpecialFolder(1))

Check "a file", tools.FichierExiste(file), True
Check "isn't a folder", tools.DossierExiste(file), False
Check "a folder", tools.DossierExiste(folder), True
Check "isn't a file", tools.FichierExiste(folder), False
Check "long form", LCase(tools.GET_NomLong(file)), LCase(file)
Check "by way of the short form", LCase(tools.GET_NomLong(tools.GET_NomCourt(file))), LCase(file)
Check "no blank in the short form", InStr(tools.GET_NomCourt(file), " "), CLng(0)
Check "long form of nothing", tools.GET_NomLong(folder & "\aucun"), ""
Check "rename", tools.RenommerFichier(file, folder & "\autre.ini"), True
Check "is there", disk.FileExists(folder & "\autre.ini"), True
Check "rename what is missing", tools.RenommerFichier(file, folder & "\tiers.ini"), False
disk.CreateTextFile(file).Close
Check "rename onto another", tools.RenommerFichier(file, folder & "\autre.ini"), False
Check "both are still there", disk.FileExists(file) And disk.FileExists(folder & "\autre.ini"), True
Check "rename onto itself", tools.RenommerFichier(file, file), False
disk.DeleteFolder folder
Finish 26
