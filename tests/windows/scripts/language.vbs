' Wine's script objects can't be called by others, so that forms with texts are left to the clients in C++.
Dim translation, tools, disk, folder, file, messages, fixed(2), result
Set translation = CreateObject("KADRELDLL.Cls_Traduction")
Set tools = CreateObject("KADRELDLL.Cls_InitREG")
Set disk = CreateObject("Scripting.FileSystemObject")
folder = disk.GetSpecialFolder(2) & "\TOVERA langue"
file = folder & "\français.lng"
Check "no form to save", translation.Sauver_LangueFeuille(Nothing, file), ""
Check "its folder is made all the same", disk.FolderExists(folder), True
Check "no form to load", translation.Charger_LangueFeuille(Nothing, file), "Fichier inexistant."
tools.IniEcrire "MSG", "MSG1", "Bonjour à tous", file
Check "a message", translation.Charger_LeMessage(file, 1), "Bonjour à tous"
Check "a number without a message", translation.Charger_LeMessage(file, 2), ""
result = translation.Charger_LeMessage(file, 40000)
CheckError "a number out of range", 6, ""

' Arrays of scripts hold VARIANTs.
messages = Array("", "un", "été", "trois")
translation.Sauver_TousLesMessages messages, file
Check "messages saved", translation.Charger_LeMessage(file, 2), "été"
ReDim messages(9)
translation.Charger_TousLesMessages file, messages
Check "messages loaded", UBound(messages), CLng(4)
Check "from number 1 on", messages(3), "trois"
translation.Charger_TousLesMessages file, fixed
CheckError "an array of fixed size", 10, "Tableau fixe ou momentanément verrouillé"
disk.DeleteFolder folder
Finish 10
