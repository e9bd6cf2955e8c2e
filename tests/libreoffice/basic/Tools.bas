' What the checks have in common: each tells in a file what was not as it should be.
Global checked As Long, faults As Long

Sub Tell(text As String)
    Dim file As Integer
    file = FreeFile
    Open Environ("TOVERA_RESULTS") For Append As #file
    Print #file, text
    Close #file
End Sub

Sub Same(what As String, actual, expected)
    checked = checked + 1
    If VarType(actual) = VarType(expected) Then
        If actual = expected Then Exit Sub
    End If
    faults = faults + 1
    Tell what & ": " & actual & " (type " & VarType(actual) & ") instead of " & expected & " (type " & VarType(expected) & ")"
End Sub

Sub Has(what As String, actual As String, part As String)
    checked = checked + 1
    If InStr(actual, part) > 0 Then Exit Sub
    faults = faults + 1
    Tell what & ": no """ & part & """ in: " & actual
End Sub

Sub Begins(what As String, actual As String, part As String)
    checked = checked + 1
    If Left(actual, Len(part)) = part Then Exit Sub
    faults = faults + 1
    Tell what & ": no """ & part & """ in front of: " & actual
End Sub

Sub Main
    On Error Goto Failed
    ValuesRun
    ErrorsRun
    FormsRun
    HostsRun
    CellsRun
    InvoiceRun
    LeaksRun
    CompatibleRun ' last: its Err object hides the texts of later errors from plain modules
    Goto Done
Failed:
    faults = faults + 1
    Tell "stopped by error " & Err & " in line " & Erl & ": " & Error$
Done:
    Tell checked & " checked, " & faults & " faults"
    StarDesktop.terminate
End Sub
