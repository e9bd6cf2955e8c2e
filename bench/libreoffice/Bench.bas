' What a call from Basic costs, against the same call of an object that does nothing: medians of interleaved rounds.
Const rounds = 15
Const calls = 40000

Function TimeOf(object) As Double
    Dim i As Long, start As Long, x
    start = GetSystemTicks()
    For i = 1 To calls
        x = object.Chrono(10, 20)
    Next
    TimeOf = (GetSystemTicks() - start) * 1000000.0 / calls
End Function

Function TimeOfWords(object) As Double
    Dim i As Long, start As Long, x
    start = GetSystemTicks()
    For i = 1 To calls
        x = object.ConvertirNombreEnLettre(1234567.89, True)
    Next
    TimeOfWords = (GetSystemTicks() - start) * 1000000.0 / calls
End Function

Function TimeOfObjects(service As String) As Double
    Dim i As Long, start As Long, x
    start = GetSystemTicks()
    For i = 1 To calls / 4
        x = CreateUnoService(service)
    Next
    TimeOfObjects = (GetSystemTicks() - start) * 1000000.0 / (calls / 4)
End Function

Function Median(values) As Double
    Dim i, j, kept
    For i = 1 To UBound(values)
        kept = values(i)
        j = i - 1
        Do While j >= 0
            If values(j) <= kept Then Exit Do
            values(j + 1) = values(j)
            j = j - 1
        Loop
        values(j + 1) = kept
    Next
    Median = values(UBound(values) / 2)
End Function

Sub Row(what As String, ours, peer)
    Dim file As Integer
    file = FreeFile
    Open Environ("TOVERA_RESULTS") For Append As #file
    Print #file, what & ": " & Format(Median(ours), "0") & " ns, of an empty object " & Format(Median(peer), "0") & _
        " ns, ratio " & Format(Median(ours) / Median(peer), "0.00")
    Close #file
End Sub

Sub Main
    Dim dates, words, probe, i
    Dim call1(rounds - 1), call2(rounds - 1), words1(rounds - 1), words2(rounds - 1), made1(rounds - 1), made2(rounds - 1)
    dates = CreateUnoService("KADRELDLL.Cls_Date")
    words = CreateUnoService("KADRELDLL.Cls_Conversion")
    probe = CreateUnoService("tovera.tests.Probe")
    For i = 0 To rounds - 1
        call1(i) = TimeOf(dates)
        call2(i) = TimeOf(probe)
        words1(i) = TimeOfWords(words)
        words2(i) = TimeOfWords(probe)
        made1(i) = TimeOfObjects("KADRELDLL.Cls_Date")
        made2(i) = TimeOfObjects("tovera.tests.Probe")
    Next
    Row("a call from Basic, Chrono(10, 20)", call1, call2)
    Row("a call from Basic, an amount in words", words1, words2)
    Row("an object made and dropped", made1, made2)
    StarDesktop.terminate
End Sub
