' Values there and back, in the plain mode of Basic.
Sub ValuesRun
    Dim maths, dates, words, x, t As String, u() As String, n As Integer, traduction, i
    maths = CreateUnoService("KADRELDLL.Cls_Math")
    x = 10
    Same "result of a by-reference call", CStr(maths.mesureprincipale(x)), CStr(CSng(-2.56))
    Same "variable by reference", Format(x, "0.000"), "-2.560"
    n = 4
    Same "declared variable", maths.Hypothenuse(0, 0, 3, n), 5.0
    Same "its value stays", n, 4

    dates = CreateUnoService("KADRELDLL.Cls_Date")
    Same "date", Format(dates.Paques(2002), "YYYY-MM-DD"), "2002-03-31"
    Same "date of a text", Format(dates.PAQUES("2027"), "YYYY-MM-DD"), "2027-03-28"
    Same "dates as numbers", dates.NBJoursOuvrables(CDbl(DateSerial(2002, 5, 6)), CDbl(DateSerial(2002, 5, 12))), 5
    Same "whole number", dates.Chrono(82800, 3600), CLng(7200)

    words = CreateUnoService("KADRELDLL.Cls_Conversion")
    Same "unset property", words.IntituleMonnaie, ""
    words.intitulemonnaie = "euro"
    words.INTITULEPETITEMONNAIE = "centime"
    Same "property", words.IntituleMonnaie, "euro"
    Same "words", words.ConvertirNombreEnLettre(1234567.89, True), _
        "un million deux cent trente-quatre mille cinq cent soixante-sept euros et quatre-vingt-neuf centimes"
    t = "1234"
    Same "short result", words.ConvertirOemAnsi("caf‚", t), 1
    Same "text by reference", t, "café"

    traduction = CreateUnoService("KADRELDLL.Cls_Traduction")
    Const messagesFile = "C:\messages.lng"
    Dim m(2) As String
    m(1) = "Bonjour" : m(2) = "Été"
    traduction.Sauver_TousLesMessages(m(), "C:\messages.lng")
    Same "message", traduction.Charger_LeMessage("C:\messages.lng", 2), "Été"
    traduction.Charger_TousLesMessages(messagesFile, u)
    Same "lower bound", LBound(u), CLng(1)
    Same "upper bound", UBound(u), CLng(3)
    Same "element", u(2), "Été"
    Same "element without message", u(3), ""

    For i = 1 To 200
        maths = CreateUnoService("KADRELDLL.Cls_Math")
    Next
    Same "objects made and dropped", maths.Hypothenuse(0, 0, 3, 4), 5.0
    Same "services", maths.supportsService("KADRELDLL.Cls_Math"), True
End Sub
