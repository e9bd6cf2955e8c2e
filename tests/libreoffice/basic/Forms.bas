' Dialogs as forms of Cls_Traduction.
Function NewDialog()
    Dim model, dialog
    model = CreateUnoService("com.sun.star.awt.UnoControlDialogModel")
    model.Name = "Caisse"
    model.Title = "Caisse du magasin"
    Insert(model, "FixedText", "Titre", "Label", "Règlement", "Comment payer")
    Insert(model, "Edit", "Montant", "Text", "12,50", "")
    Insert(model, "Button", "Valider", "Label", "Valider", "Fin")
    Insert(model, "ListBox", "Liste", "", "", "")
    dialog = CreateUnoService("com.sun.star.awt.UnoControlDialog")
    dialog.setModel(model)
    NewDialog = dialog
End Function

Sub Insert(model, kind As String, name As String, property As String, text As String, help As String)
    Dim control
    control = model.createInstance("com.sun.star.awt.UnoControl" & kind & "Model")
    control.Name = name
    If property <> "" Then control.setPropertyValue(property, text)
    control.HelpText = help
    model.insertByName(name, control)
End Sub

Function Entry(key As String) As String
    Entry = CreateUnoService("KADRELDLL.Cls_InitREG").IniLire("Caisse", key, "absent", "C:\caisse.lng")
End Function

Sub FormsRun
    Dim traduction, dialog, model, profile, i
    traduction = CreateUnoService("KADRELDLL.Cls_Traduction")
    profile = CreateUnoService("KADRELDLL.Cls_InitREG")
    dialog = NewDialog()
    model = dialog.getModel()
    Same "saved", traduction.Sauver_LangueFeuille(dialog, "C:\caisse.lng"), ""
    Same "caption of the form", Entry("Caisse.Caption"), "Caisse du magasin"
    Same "label", Entry("Titre.Caption"), "Règlement"
    Same "help", Entry("Titre.ToolTipText"), "Comment payer"
    Same "text", Entry("Montant.Text"), "12,50"
    Same "button", Entry("Valider.Caption"), "Valider"
    Same "no text", Entry("Titre.Text"), "absent"
    Same "empty help", Entry("Montant.ToolTipText"), "absent"
    Same "list", Entry("Liste.Caption"), "absent"

    profile.IniEcrire("Caisse", "Caisse.Caption", "Shop till", "C:\caisse.lng")
    profile.IniEcrire("Caisse", "Titre.Caption", "Payment", "C:\caisse.lng")
    profile.IniEcrire("Caisse", "Titre.ToolTipText", "How to pay", "C:\caisse.lng")
    profile.IniEcrire("Caisse", "Montant.Text", "", "C:\caisse.lng")
    Same "loaded", traduction.Charger_LangueFeuille(dialog, "C:\caisse.lng"), ""
    Same "title", model.Title, "Shop till"
    Same "translated label", model.getByName("Titre").Label, "Payment"
    Same "translated help", model.getByName("Titre").HelpText, "How to pay"
    Same "emptied text", model.getByName("Montant").Text, ""
    Same "untouched button", model.getByName("Valider").Label, "Valider"
    Same "missing file", traduction.Charger_LangueFeuille(model, "C:\absent.lng"), "Fichier inexistant."
    Same "nothing", traduction.Charger_LangueFeuille(Nothing, "C:\caisse.lng"), ""
    dialog.dispose()
    Same "a form that has gone", traduction.Charger_LangueFeuille(dialog, "C:\caisse.lng"), ""
    DocumentFormRun
End Sub

Sub DocumentFormRun
    Dim document, form, button, traduction, profile
    document = NewSheet()
    form = CreateUnoService("com.sun.star.form.component.Form")
    document.Sheets(0).DrawPage.Forms.insertByName("Caisse", form)
    button = CreateUnoService("com.sun.star.form.component.CommandButton")
    button.Label = "Encaisser"
    form.insertByName("Encaisser", button)
    traduction = CreateUnoService("KADRELDLL.Cls_Traduction")
    traduction.Sauver_LangueFeuille(form, "C:\caisse.lng")
    Same "button of a document", Entry("Encaisser.Caption"), "Encaisser"
    CreateUnoService("KADRELDLL.Cls_InitREG").IniEcrire("Caisse", "Encaisser.Caption", "Cash", "C:\caisse.lng")
    traduction.Charger_LangueFeuille(form, "C:\caisse.lng")
    Same "its translation", button.Label, "Cash"
    document.close(True)
End Sub
