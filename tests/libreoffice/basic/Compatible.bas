Option VBASupport 1
' The same in the mode of macros that come from Visual Basic: dates, and the Err object.
Sub CompatibleRun
    Dim dates, words, days As Date, amount As Currency, number As Long, text As String
    Set dates = CreateUnoService("KADRELDLL.Cls_Date")
    days = DateSerial(2002, 5, 6)
    Same "dates", dates.NBJoursOuvrables(days, DateSerial(2002, 5, 12)), 5
    Same "time", dates.HeureEnSeconde(TimeSerial(12, 0, 1)), CLng(43201)
    days = dates.Paques(2002)
    Same "a date variable", Year(days) & "-" & Month(days) & "-" & Day(days), "2002-3-31"

    Set words = CreateUnoService("KADRELDLL.Cls_Conversion")
    amount = 12.34
    On Error Resume Next
    text = words.ConvertirNombreEnLettre(amount, True)
    Same "currency that would lose its decimals", Err.Number, CLng(13)
    Has "its text", Err.Description, "CDbl"
    Err.Clear
    text = words.ConvertirNombreEnLettre(0.996, False)
    Same "error object", Err.Number, CLng(9)
    Err.Clear
    words.ConvertirNombreEnLettre 0.996, False
    Same "error of a statement", Err.Number, CLng(9)
End Sub
