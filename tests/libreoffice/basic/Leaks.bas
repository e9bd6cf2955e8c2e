' What is made and dropped leaves nothing behind.
Function ResidentPages() As Long
    Dim file As Integer, line As String
    file = FreeFile
    Open "/proc/self/statm" For Input As #file
    Line Input #file, line
    Close #file
    ResidentPages = CLng(Split(line, " ")(1))
End Function

Sub Use(rounds As Long)
    Dim i As Long, words, dates, traduction, internet, dialog, x, texts() As String
    dialog = NewDialog()
    For i = 1 To rounds
        words = CreateUnoService("KADRELDLL.Cls_Conversion")
        words.IntituleMonnaie = "euro"
        x = words.ConvertirNombreEnLettre(12.5, True)
        x = 10
        CreateUnoService("KADRELDLL.Cls_Math").MesurePrincipale(x)
        If i Mod 20 = 0 Then
            x = Failing(words, "9")
            internet = CreateUnoService("KADRELDLL.Cls_Internet")
            internet.NSession = words
            traduction = CreateUnoService("KADRELDLL.Cls_Traduction")
            traduction.Charger_TousLesMessages("C:\messages.lng", texts)
            traduction.Charger_LangueFeuille(dialog, "C:\caisse.lng")
        End If
    Next
    dialog.dispose()
End Sub

Sub MakeAndDrop(count As Long)
    Dim i As Long, maths
    For i = 1 To count
        maths = CreateUnoService("KADRELDLL.Cls_Math")
    Next
End Sub

Sub LeaksRun
    Dim before As Long, grown As Long
    Use(4000)
    before = ResidentPages()
    Use(40000)
    MakeAndDrop(1000000)
    grown = ResidentPages() - before
    Same "pages that a million objects left behind (" & grown & ") are few", grown < 1000, True
End Sub
