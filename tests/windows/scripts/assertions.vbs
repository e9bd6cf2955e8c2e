' Put in front of each script. A script that ends at an unhandled error, which Wine's host does silently and with
' status 0, never prints the closing line that the runner wants to see.
Dim checksMade, faultsFound
' In code of Wine's host, a failing statement of a procedure ends the procedure and is told to its caller.
On Error Resume Next

' The value and its type are as expected.
Sub Check(what, found, expected)
    checksMade = checksMade + 1
    If VarType(found) = VarType(expected) Then
        If IsEmpty(expected) Then Exit Sub
        If found = expected Then Exit Sub
    End If
    faultsFound = faultsFound + 1
    WScript.Echo "FAULT " & what & ": " & found & " of type " & VarType(found)
End Sub

' The statement before has failed with this number.
Sub CheckError(what, number)
    Check what, Err.Number, CLng(number)
    Err.Clear
End Sub

' The last line of a script, with the number of checks that it makes.
Sub Finish(checksPlanned)
    CheckError "an unexpected error", 0
    If faultsFound = 0 And checksMade = checksPlanned + 1 Then WScript.Echo "OK " & checksPlanned & " checks"
End Sub

