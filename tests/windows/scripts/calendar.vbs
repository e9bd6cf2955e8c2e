Dim dates, row, year, months, i, result, text
Set dates = CreateObject("KADRELDLL.Cls_Date")
For Each row In Array(Array(1900, 15, 4), Array(1954, 18, 4), Array(1981, 19, 4), Array(2000, 23, 4), Array(2002, 31, 3), _
                      Array(2008, 23, 3), Array(2038, 25, 4), Array(2049, 18, 4), Array(2076, 19, 4), Array(2099, 12, 4))
    year = row(0)
    Check "Easter of " & year, dates.Paques(year), DateSerial(row(0), row(2), row(1))
Next
Check "year as a text", dates.Paques("2002"), DateSerial(2002, 3, 31)
result = dates.Paques("abc")
CheckError "not a year", 13, "Type incompatible"
result = dates.Paques(40000)
CheckError "year out of range", 6, "Dépassement de capacité"
result = dates.Paques(-5)
CheckError "year before the first", 5, "Appel de procédure ou argument incorrect"

text = "25/12/2002"
Check "French to American", dates.DateFRtoUS(text), "12/25/2002"
Check "short year", dates.DateFRtoUS("25/12/02"), "12/25/02"
Check "the empty text", dates.DateFRtoUS(""), "//"
Check "a single digit", dates.DateFRtoUS("1/2/2002"), "/2/1//02"
Check "American to French", dates.DateUStoFR("12/25/2002"), "25/12/2002"

For Each row In Array(Array(0, "00:00:00"), Array(59, "00:00:59"), Array(3661, "01:01:01"), Array(86399, "23:59:59"), _
                      Array(90000, "25:00:00"), Array(360000, "100:00:00"), Array(-1, "0-1:59:59"))
    Check row(0) & " seconds", dates.SecondeEnHeure(row(0)), row(1)
Next
Check "time of day", dates.HeureEnSeconde(TimeSerial(1, 1, 1)), CLng(3661)
Check "last second", dates.HeureEnSeconde(DateSerial(2002, 5, 6) + TimeSerial(23, 59, 59)), CLng(86399)
Check "midnight", dates.HeureEnSeconde(DateSerial(2002, 5, 6)), CLng(0)

For Each row In Array(Array(100, 200, 100), Array(200, 200, 0), Array(86399, 1, 2), Array(82800, 3600, 7200))
    Check "from " & row(0) & " to " & row(1), dates.Chrono(row(0), row(1)), CLng(row(2))
Next
Check "texts as seconds", dates.Chrono("100", "200"), CLng(100)
result = dates.Chrono(CLng(-2147483647), CLng(2147483647))
CheckError "difference out of range", 6, "Dépassement de capacité"
result = dates.Chrono(1, 99999999999)
CheckError "argument out of range", 6, ""

months = Array(23, 20, 21, 22, 23, 20, 23, 22, 21, 23, 21, 22)
For i = 0 To 11
    Check "working days of month " & i + 1, dates.NBJoursOuvrablesParMois(2002, i + 1), CInt(months(i))
Next
Check "month 13", dates.NBJoursOuvrablesParMois(2001, 13), CInt(23)
result = dates.NBJoursOuvrablesParMois(2002, 32767)
CheckError "month out of range", 6, ""
For Each row In Array(Array(6, 10, 5), Array(6, 6, 1), Array(4, 5, 0), Array(4, 6, 1), Array(10, 6, 1), Array(11, 6, 0))
    Check "from the " & row(0) & "th to the " & row(1) & "th of May 2002", _
        dates.NBJoursOuvrables(DateSerial(2002, 5, row(0)), DateSerial(2002, 5, row(1))), CInt(row(2))
Next
Finish 56
