' A call of each of the eleven classes from a script: cscript //nologo classes.vbs
Option Explicit
Dim files, messageFile, translation, cryptage

Sub Tell(className, result)
    WScript.Echo className & ": " & result
End Sub

Function Create(className)
    Set Create = CreateObject("KADRELDLL." & className)
End Function

Tell "Cls_InitREG", Create("Cls_InitREG").ErrorMsg(2)
Tell "Cls_Windows", Create("Cls_Windows").GET_ExtentionFichier("C:\Documents\lettre.doc")

' Messages of an application, in a file that can be translated.
Set files = CreateObject("Scripting.FileSystemObject")
messageFile = files.BuildPath(files.GetSpecialFolder(2), files.GetTempName)
Set translation = Create("Cls_Traduction")
translation.Sauver_TousLesMessages Array("", "Valider", "Annuler"), messageFile
Tell "Cls_Traduction", translation.Charger_LeMessage(messageFile, 2)
files.DeleteFile messageFile

Tell "Cls_Internet", Create("Cls_Internet").GetIPFromHostName("localhost")
Tell "Cls_Date", Create("Cls_Date").NBJoursOuvrablesParMois(2026, 11)
Tell "Cls_SQL", Create("Cls_SQL").RepAPOS("l'ami")

' The first object of a user makes the user's keys, and says so in message boxes.
Set cryptage = Create("Cls_Cryptage")
cryptage.Password = "secret"
cryptage.InBuffer = "Bonjour"
cryptage.Encrypt
cryptage.InBuffer = cryptage.OutBuffer
cryptage.Decrypt
Tell "Cls_Cryptage", cryptage.OutBuffer

Tell "Cls_Conversion", Create("Cls_Conversion").ConvertirNombreEnLettre(80, False)
Tell "Cls_Multimedia", Create("Cls_Multimedia").TypePeripherique("C")
Tell "Cls_Math", Create("Cls_Math").Hypothenuse(0, 0, 3, 4)
Tell "Cls_SourisClv", Create("Cls_SourisClv").SourisDelaiDoubleClique
