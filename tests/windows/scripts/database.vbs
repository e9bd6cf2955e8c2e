Dim sql, disk, file, text
Set sql = CreateObject("KADRELDLL.Cls_SQL")
Set disk = CreateObject("Scripting.FileSystemObject")
text = "l'été d'''"
Check "apostrophes", sql.RepAPOS(text), "l''été d''''''"
Check "the variable stays", text, "l'été d'''"
Check "none", sql.RepAPOS("rien"), "rien"
Check "no file", sql.Creer_ODBC_Access("C:\aucune.mdb", "Base"), "Fichier inexistant."
file = disk.GetSpecialFolder(2) & "\base.mdb"
disk.CreateTextFile(file).Close
Check "no driver", sql.Creer_ODBC_Access(file, "Base"), "MDAC non installé."
disk.DeleteFile file
Finish 5
