' The invoice of the examples: its cells and its dialog.
Sub InvoiceRun
End Sub
