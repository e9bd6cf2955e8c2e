' Put in front of each script. A script that ends at an unhandled error, which Wine's host does silently and with
' status 0, never prints the closing line that the runner wants to see.
Dim checksMade, faultsFound
checksMade = 0
faultsFound = 0

' In code of Wine's host, a failing statement of a procedure ends the procedure and is told to its caller.
On Error Resume Next

Sub Fault(what, found, expected)
    faultsFound = faultsFound + 1
    WScript.Echo "FAULT " & what & ": " & found & " instead of " & expected
End Sub

' The value and its type are as expected.
Sub Check(what, found, expected)
    checksMade = checksMade + 1
    If VarType(found) <> VarType(expected) Then
        Fault what, "type " & VarType(found), "type " & VarType(expected)
    ElseIf Not IsEmpty(expected) Then
        If found <> expected Then Fault what, found, expected
    End If
End Sub

' The statement before has failed in this way.
Sub CheckError(what, number, description)
    Dim foundNumber, foundDescription
    foundNumber = Err.Number
    foundDescription = Err.Description
    Err.Clear
    checksMade = checksMade + 1
    If foundNumber <> number Then Fault what, "error " & foundNumber, "error " & number
    If description <> "" And foundDescription <> description Then Fault what, foundDescription, description
End Sub

' The last line of a script, with the number of checks that it makes.
Sub Finish(checksPlanned)
    If Err.Number <> 0 Then Fault "an unexpected error", Err.Description, "none"
    If checksMade <> checksPlanned Then Fault "checks made", checksMade, checksPlanned
    If faultsFound = 0 Then WScript.Echo "OK " & checksMade & " checks"
End Sub

