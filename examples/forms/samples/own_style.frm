version 5.00

begin VB.Form Serree
	Caption = "Serrée"
	ClientHeight = 100
	' une remarque

	Begin VB.Label Court
		Caption="Court"
		Top=5
	End
	Begin VB.Label Aere
		Caption = "Aéré"
		Top = 5
	End
END