' The invoice of the examples: its cells, its macro and its dialog, read back.
Function Called(document, macro As String, Optional argument)
    Dim given, indexes(), values()
    given = Array()
    If Not IsMissing(argument) Then given = Array(argument)
    Called = document.getScriptProvider() _
        .getScript("vnd.sun.star.script:Standard.Facture." & macro & "?language=Basic&location=document") _
        .invoke(given, indexes, values)
End Function

Sub InvoiceRun
    Dim options(1) As New com.sun.star.beans.PropertyValue, document, sheet, dialog, model
    Const amount = "mille cinq cent quarante-huit euros et quatre-vingt-seize centimes"
    options(0).Name = "Hidden" : options(0).Value = True
    options(1).Name = "MacroExecutionMode" : options(1).Value = 4
    document = StarDesktop.loadComponentFromURL(ConvertToURL(Environ("HOME") & "/invoice/facture.ods"), "_blank", 0, options())
    sheet = document.Sheets.getByIndex(0)
    document.calculateAll()
    Same "total", sheet.getCellRangeByName("D10").String, "1548.96"
    Same "its words", sheet.getCellRangeByName("A12").String, amount
    Same "Easter in the invoice", sheet.getCellRangeByName("B15").String, "28/03/2027"
    Same "working days in the invoice", sheet.getCellRangeByName("D15").String, "20"
    Call Called(document, "EcrireMontant")
    Same "words by macro", sheet.getCellRangeByName("A14").String, amount

    dialog = Called(document, "NouveauReglement", "en.lng")
    model = dialog.getModel()
    Same "dialog's title", model.Title, "Payment of the invoice"
    Same "dialog's label", model.getByName("Somme").Label, "Amount due"
    Same "dialog's help", model.getByName("Somme").HelpText, "The total with all taxes"
    Same "dialog's button", model.getByName("Payer").Label, "Pay"
    Same "dialog's text", model.getByName("Montant").Text, amount
    dialog = Called(document, "NouveauReglement", "absent.lng")
    model = dialog.getModel()
    Same "untranslated title", model.Title, "Règlement de la facture"
    document.close(True)
End Sub
