Attribute VB_Name = "Classes"
' A call of each of the eleven classes. Import this module (File > Import File), and type ChaqueClasse in the Immediate
' window, where the results appear.
Option Explicit

Public Sub ChaqueClasse()
    Dim Traduction As Object
    Dim Cryptage As Object
    Dim Messages(2) As String
    Dim Fichier As String

    Montrer "Cls_InitREG", CreateObject("KADRELDLL.Cls_InitREG").ErrorMsg(2)
    Montrer "Cls_Windows", CreateObject("KADRELDLL.Cls_Windows").GET_ExtentionFichier("C:\Documents\lettre.doc")

    ' Messages of an application, in a file that can be translated.
    Messages(1) = "Valider"
    Messages(2) = "Annuler"
    Fichier = Environ("TEMP") & "\messages_tovera.lng"
    Set Traduction = CreateObject("KADRELDLL.Cls_Traduction")
    Traduction.Sauver_TousLesMessages Messages, Fichier
    Montrer "Cls_Traduction", Traduction.Charger_LeMessage(Fichier, 2)
    Kill Fichier

    Montrer "Cls_Internet", CreateObject("KADRELDLL.Cls_Internet").GetIPFromHostName("localhost")
    Montrer "Cls_Date", CreateObject("KADRELDLL.Cls_Date").NBJoursOuvrablesParMois(2026, 11)
    Montrer "Cls_SQL", CreateObject("KADRELDLL.Cls_SQL").RepAPOS("l'ami")

    ' The first object of a user makes the user's keys, and says so in message boxes.
    Set Cryptage = CreateObject("KADRELDLL.Cls_Cryptage")
    Cryptage.Password = "secret"
    Cryptage.InBuffer = "Bonjour"
    Cryptage.Encrypt
    Cryptage.InBuffer = Cryptage.OutBuffer
    Cryptage.Decrypt
    Montrer "Cls_Cryptage", Cryptage.OutBuffer

    Montrer "Cls_Conversion", CreateObject("KADRELDLL.Cls_Conversion").ConvertirNombreEnLettre(80, False)
    Montrer "Cls_Multimedia", CreateObject("KADRELDLL.Cls_Multimedia").TypePeripherique("C")
    Montrer "Cls_Math", CreateObject("KADRELDLL.Cls_Math").Hypothenuse(0, 0, 3, 4)
    Montrer "Cls_SourisClv", CreateObject("KADRELDLL.Cls_SourisClv").SourisDelaiDoubleClique
End Sub

Private Sub Montrer(ByVal Classe As String, ByVal Resultat As Variant)
    Debug.Print Classe & ": " & Resultat
End Sub
