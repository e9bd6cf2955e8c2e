' Failures as errors of Basic.
Function Failing(object, what As String, Optional argument) As String
    On Error Goto Failed
    Dim x
    Select Case what
        Case "9": x = object.ConvertirNombreEnLettre(0.996, False)
        Case "13": x = object.ConvertirNombreEnLettre("douze", False)
        Case "unknown": x = object.Inconnu()
        Case "450": x = object.ConvertirNombreEnLettre(1, False, 3)
        Case "many": x = object.ConvertirNombreEnLettre(1, 2, 3, 4, 5, 6, 7, 8, 9)
        Case "449": x = object.ConvertirNombreEnLettre()
        Case "date": x = object.Paques(CDbl(1e300))
        Case "array": object.Sauver_TousLesMessages(Array(1, 2), "C:\a.lng")
        Case "object": x = object.ConvertirNombreEnLettre(argument, False)
        Case "read only": object.Status = 3
        Case "hwnd": x = object.ParcourirDossier(argument, "Titre")
    End Select
    Failing = "no error"
    Exit Function
Failed:
    Failing = Err & " " & Error$
End Function

Sub ErrorsRun
    Dim words, probe
    words = CreateUnoService("KADRELDLL.Cls_Conversion")
    Begins "index", Failing(words, "9"), "9 "
    Begins "unknown member, which Basic itself finds lacking", Failing(words, "unknown"), "423 "
    Begins "property that is only read", Failing(CreateUnoService("KADRELDLL.Cls_Cryptage"), "read only"), "438 "
    Has "its own text", Failing(words, "9"), "Indice hors des limites"
    Begins "type", Failing(words, "13"), "13 "
    Begins "too many arguments", Failing(words, "450"), "450 "
    Begins "far too many arguments", Failing(words, "many"), "450 "
    Begins "too few arguments", Failing(words, "449"), "449 "
    Begins "overflow", Failing(CreateUnoService("KADRELDLL.Cls_Date"), "date"), "6 "
    Begins "array of numbers", Failing(CreateUnoService("KADRELDLL.Cls_Traduction"), "array"), "13 "
    Begins "object instead of a number", Failing(words, "object", words), "13 "
    Dim list As New Collection
    Begins "an object of Basic's own", Failing(words, "object", list), "13 "
    Same "usable afterwards", words.ConvertirNombreEnLettre(1, False), "un"
End Sub
