' A message box of the component, in an office that has windows: somebody has to press its button.
Sub BoxesRun
    Dim words, start As Long
    words = CreateUnoService("KADRELDLL.Cls_Conversion")
    start = GetSystemTicks()
    Same "refused number", words.Ctrl_SaiseNombre("12 euros"), ""
    Same "the box has waited", GetSystemTicks() - start >= 1000, True
    CreateUnoService("KADRELDLL.Cls_Windows").Wait(1)
    Tell checked & " checked, " & faults & " faults"
    StarDesktop.terminate
End Sub
