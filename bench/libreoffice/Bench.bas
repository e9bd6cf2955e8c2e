' What a call from Basic costs, against the same call of an object that does nothing: medians of interleaved rounds, in
' time of the processor, so that other programs count little.
Const rounds = 11
Const calls = 120000

' The nanoseconds that this thread has run.
Function RunTime() As Double
    Dim file As Integer, line As String
    file = FreeFile
    Open "/proc/self/schedstat" For Input As #file
    Line Input #file, line
    Close #file
    RunTime = CDbl(Split(line, " ")(0))
End Function

Function TimeOf(object) As Double
    Dim i As Long, start As Double, x
    start = RunTime()
    For i = 1 To calls
        x = object.Chrono(10, 20)
    Next
    TimeOf = (RunTime() - start) / calls
End Function

Function TimeOfWords(object) As Double
    Dim i As Long, start As Double, x
    start = RunTime()
    For i = 1 To calls
        x = object.ConvertirNombreEnLettre(1234567.89, True)
    Next
    TimeOfWords = (RunTime() - start) / calls
End Function

Function TimeOfObjects(service As String) As Double
    Dim i As Long, start As Double, x
    start = RunTime()
    For i = 1 To calls / 4
        x = CreateUnoService(service)
    Next
    TimeOfObjects = (RunTime() - start) / (calls / 4)
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
