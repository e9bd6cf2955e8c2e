' Runs modules that are handed over one by one, each as soon as it is there: the file "request" in the folder that
' TOVERA_REQUESTS names. The file "done" there tells that one has ended, with its status. Ends after a while without.
Const farewell = 15000 ' milliseconds

Sub Main
    Dim files, folder As String, waited As Long, runs As Long
    files = CreateUnoService("com.sun.star.ucb.SimpleFileAccess")
    folder = ConvertToURL(Environ("TOVERA_REQUESTS")) & "/"
    Do While waited < farewell
        If files.exists(folder & "request") Then
            runs = runs + 1
            RunModule("Steps" & runs, TextOf(files, folder & "request"))
            files.kill(folder & "request")
            files.move(folder & "status", folder & "done")
            waited = 0
        Else
            Wait 4
            waited = waited + 4
        End If
    Loop
    StarDesktop.terminate
End Sub

Function TextOf(files, url As String) As String
    Dim reader, lines As String
    reader = CreateUnoService("com.sun.star.io.TextInputStream")
    reader.setInputStream(files.openFileRead(url))
    reader.setEncoding("UTF-8")
    Do While Not reader.isEOF()
        lines = lines & reader.readLine() & Chr(10)
    Loop
    reader.closeInput()
    TextOf = lines
End Function

Sub RunModule(name As String, text As String)
    Dim library, script
    On Error Goto Failed
    WriteStatus(0)
    library = BasicLibraries.getByName("Standard")
    library.insertByName(name, text)
    script = CreateUnoService("com.sun.star.script.provider.MasterScriptProviderFactory").createScriptProvider("") _
        .getScript("vnd.sun.star.script:Standard." & name & ".Main?language=Basic&location=application")
    script.invoke(Array(), Array(), Array())
    library.removeByName(name)
    Exit Sub
Failed:
    PrintLine("error of Basic " & Err & ": " & Error$)
    WriteStatus(1)
End Sub

Sub WriteStatus(status As Integer)
    Dim file As Integer
    file = FreeFile
    Open Environ("TOVERA_REQUESTS") & "/status" For Output As #file
    Print #file, CStr(status)
    Close #file
End Sub

Sub PrintLine(text As String)
    Dim file As Integer
    file = FreeFile
    Open Environ("TOVERA_REQUESTS") & "/answers" For Append As #file
    Print #file, text
    Close #file
End Sub

' What stands behind a failed step: Basic puts a sentence of its own in front of the component's.
Sub Told(number, text As String, place As String)
    Const behind = "Additional information: "
    Dim at As Long
    at = InStr(text, behind)
    If at > 0 Then text = Mid(text, at + Len(behind))
    PrintLine("error " & number & ": " & text)
    PrintLine("tovera: in " & place)
    WriteStatus(1)
End Sub

Sub Show(value)
    PrintLine(Shown(value))
End Sub

Sub ShowDate(days)
    If days = Int(days) Then PrintLine(Format(days, "YYYY-MM-DD")) Else PrintLine(Format(days, "YYYY-MM-DD HH:MM:SS"))
End Sub

' Basic has one value for Nothing and Null.
Sub ShowObject(object)
    PrintLine(IIf(IsNull(object), "Nothing", "Object"))
End Sub

' With the seven digits that a single has.
Sub ShowSingle(number)
    PrintLine(LTrim(Str(CDbl(Format(number, "0.000000E+00")))))
End Sub

Function Shown(value) As String
    If IsArray(value) Then
        Shown = ShownArray(value)
    ElseIf IsNull(value) Then
        Shown = "Null"
    ElseIf IsEmpty(value) Then
        Shown = "Empty"
    ElseIf VarType(value) = 11 Then
        Shown = IIf(value, "True", "False")
    ElseIf VarType(value) = 8 Then
        Shown = value
    ElseIf VarType(value) = 4 Then
        Shown = LTrim(Str(CDbl(Format(value, "0.000000E+00"))))
    Else
        Shown = LTrim(Str(value))
    End If
End Function

' Basic has no null text: an empty element is shown as one, since messages that are there are never empty.
Function ShownArray(texts) As String
    Dim i As Long, result As String
    If UBound(texts) < LBound(texts) Then
        ShownArray = "[]"
        Exit Function
    End If
    result = "[" & LBound(texts) & ".." & UBound(texts) & "]"
    For i = LBound(texts) To UBound(texts)
        result = result & IIf(i = LBound(texts), " ", ", ")
        If texts(i) = "" Then
            result = result & "Null"
        Else
            result = result & """" & texts(i) & """"
        End If
    Next
    ShownArray = result
End Function

Function NoTexts()
    Dim none() As String
    NoTexts = none()
End Function

' Elements 1 to the last: Basic hands arrays over as if they began at 0, so that there is an element in front.
Function Texts(lower, first, Optional second, Optional third, Optional fourth)
    Dim result(lower) As String
    result(lower) = first
    If Not IsMissing(second) Then
        ReDim Preserve result(lower + 1) As String
        result(lower + 1) = second
    End If
    If Not IsMissing(third) Then
        ReDim Preserve result(lower + 2) As String
        result(lower + 2) = third
    End If
    If Not IsMissing(fourth) Then
        ReDim Preserve result(lower + 3) As String
        result(lower + 3) = fourth
    End If
    Texts = result()
End Function
