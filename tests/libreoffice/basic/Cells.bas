' The functions of cells, read back from a sheet.
Function NewSheet()
    Dim hidden(0) As New com.sun.star.beans.PropertyValue
    hidden(0).Name = "Hidden"
    hidden(0).Value = True
    NewSheet = StarDesktop.loadComponentFromURL("private:factory/scalc", "_blank", 0, hidden())
End Function

Function Shown(document, formula As String) As String
    Dim cell
    cell = document.Sheets(0).getCellRangeByName("C1")
    cell.FormulaLocal = formula
    Shown = cell.String
End Function

Sub CellsRun
    Dim document, sheet, i, first As New com.sun.star.util.Date
    document = NewSheet()
    sheet = document.Sheets(0)
    sheet.getCellRangeByName("A1").Value = 71
    sheet.getCellRangeByName("A2").Value = 1234567.89
    sheet.getCellRangeByName("A3").String = "abc"
    Same "number", Shown(document, "=NOMBREENLETTRES(A1)"), "soixante et onze"
    Same "amount", Shown(document, "=MONTANTENLETTRES(A2)"), _
        "un million deux cent trente-quatre mille cinq cent soixante-sept euros et quatre-vingt-neuf centimes"
    Same "another currency", Shown(document, "=MONTANTENLETTRES(2.5;""franc"";""sou"")"), "deux francs et cinquante sous"
    Same "Easter", Shown(document, "=TEXT(PAQUES(2027);""YYYY-MM-DD"")"), "2027-03-28"
    Same "working days", Shown(document, "=JOURSOUVRABLES(DATE(2002;5;6);DATE(2002;5;12))"), "5"
    Same "working days of a month", Shown(document, "=JOURSOUVRABLESDUMOIS(2026;11)"), "21"
    Same "time", Shown(document, "=SECONDESENHEURE(3661)"), "01:01:01"
    Same "seconds", Shown(document, "=HEUREENSECONDES(TIME(12;0;1))"), "43201"
    Same "time between", Shown(document, "=CHRONO(82800;3600)"), "7200"

    Same "a text", Shown(document, "=NOMBREENLETTRES(A3)"), "#VALUE!"
    Same "out of bounds", Shown(document, "=NOMBREENLETTRES(0.996)"), "Err:502"
    Same "an impossible year", Shown(document, "=PAQUES(12345678)"), "Err:502"
    Same "nothing given", Shown(document, "=NOMBREENLETTRES()"), "Err:502"
    Same "one date", Shown(document, "=JOURSOUVRABLES(DATE(2002;5;6))"), "Err:502"
    Same "an error given", Shown(document, "=NOMBREENLETTRES(1/0)"), "#DIV/0!"

    sheet.getCellRangeByName("E1:E3").setArrayFormula("=KADRELDLL.FONCTIONS.MONTANTENLETTRES(A1:A3;""euro"")")
    Same "first of a range", sheet.getCellRangeByName("E1").String, "soixante et onze euros"
    Same "error inside a range", sheet.getCellRangeByName("E3").String, "#VALUE!"
    sheet.getCellRangeByName("F1:F4").setArrayFormula("=KADRELDLL.FONCTIONS.CHRONO(A1:A2;A1:A2)")
    Same "a range with itself", sheet.getCellRangeByName("F1").String, "0"
    Same "behind a range", sheet.getCellRangeByName("F4").String, "#N/A"

    first.Year = 1904 : first.Month = 1 : first.Day = 1
    document.NullDate = first
    Same "Easter counted from 1904", Shown(document, "=TEXT(PAQUES(2027);""YYYY-MM-DD"")"), "2027-03-28"
    Same "working days counted from 1904", Shown(document, "=JOURSOUVRABLES(DATE(2002;5;6);DATE(2002;5;12))"), "5"
    document.close(True)
    DescriptionsRun
End Sub

Sub DescriptionsRun
    Dim functions, i, found
    CompatibilityMode True
    functions = CreateUnoService("com.sun.star.sheet.FunctionDescriptions")
    For i = 0 To functions.Count - 1
        If Field(functions.getByIndex(i), "Name") = "MONTANTENLETTRES" Then found = functions.getByIndex(i)
    Next
    Same "description", Field(found, "Description"), _
        "Écrit un montant en lettres, avec le nom de la monnaie et de son centième."
    Same "first argument", Field(found, "Arguments")(0).Name, "montant"
    Same "its description", Field(found, "Arguments")(0).Description, "Le montant à écrire, ou une plage de montants."
    Same "last argument", Field(found, "Arguments")(2).Name, "petite monnaie"
    CompatibilityMode False
End Sub

Function Field(description, name As String)
    Dim i
    For i = 0 To UBound(description)
        If description(i).Name = name Then Field = description(i).Value
    Next
End Function
