Attribute VB_Name = "Tovera"
' For Excel, Word, Access and Visual Basic: import this module (File > Import File). With a reference to the library
' KADRELDLL (Tools > References) one may declare "As New Cls_Date" instead of creating by ProgID, and gets the help
' strings while typing.
Option Explicit

' As a formula in a cell: =MONTANT_EN_LETTRES(A1)
Public Function MONTANT_EN_LETTRES(ByVal Montant As Double, Optional ByVal Monnaie As String = "euro", _
                                   Optional ByVal PetiteMonnaie As String = "centime") As String
    With CreateObject("KADRELDLL.Cls_Conversion")
        .IntituleMonnaie = Monnaie
        .IntitulePetiteMonnaie = PetiteMonnaie
        MONTANT_EN_LETTRES = .ConvertirNombreEnLettre(Montant, True)
    End With
End Function

' =JOURS_OUVRABLES(A1;B1): Monday to Friday, both ends included.
Public Function JOURS_OUVRABLES(ByVal Debut As Date, ByVal Fin As Date) As Integer
    JOURS_OUVRABLES = CreateObject("KADRELDLL.Cls_Date").NBJoursOuvrables(Debut, Fin)
End Function

' Saves the visible texts of a form to a language file, to be translated and loaded again.
Public Sub SauverTextes(ByVal Feuille As Object, ByVal Fichier As String)
    Dim Message As String
    Message = CreateObject("KADRELDLL.Cls_Traduction").Sauver_LangueFeuille(Feuille, Fichier)
    If Message <> "" Then MsgBox Message
End Sub
