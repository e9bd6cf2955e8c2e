' A form without controls: what doesn't enumerate has its own texts only. (Wine's objects give others the values of
' property procedures, not those of public variables.)
Class Feuille
    Private itsCaption
    Public Property Get name
        name = "Principal"
    End Property
    Public Property Get Caption
        Caption = itsCaption
    End Property
    Public Property Let Caption(text)
        itsCaption = text
    End Property
End Class

Dim translation, tools, disk, form, folder, file, messages, fixed(2), result
Set translation = CreateObject("KADRELDLL.Cls_Traduction")
Set tools = CreateObject("KADRELDLL.Cls_InitREG")
Set disk = CreateObject("Scripting.FileSystemObject")
folder = disk.GetSpecialFolder(2) & "\TOVERA langue"
file = folder & "\français.lng"
Set form = New Feuille
form.Caption = "Fenêtre"

Check "save", translation.Sauver_LangueFeuille(form, file), ""
Check "the entry", tools.IniLire("Principal", "Principal.Caption", "", file), "Fenêtre"
translation.Sauver_LangueFeuille form, folder & "\a\b\f.lng"
Check "two folders deep", disk.FolderExists(folder & "\a"), False
tools.IniEcrire "Principal", "Principal.Caption", "Window", file
Check "load", translation.Charger_LangueFeuille(form, file), ""
Check "the caption", form.Caption, "Window"
Check "load a missing file", translation.Charger_LangueFeuille(form, folder & "\aucun.lng"), "Fichier inexistant."
Check "keeps the caption", form.Caption, "Window"

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
Finish 14
