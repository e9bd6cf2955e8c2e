VERSION 5.00
Begin {C62A69F0-16DC-11CE-9E98-00AA00574A4F} Saisie 
   Caption         =   "Saisie"
   ClientHeight    =   3180
   OleObjectBlob   =   "userform.frx":0000
   StartUpPosition =   1  'CenterOwner
End
Attribute VB_Name = "Saisie"
Attribute VB_GlobalNameSpace = False
Attribute VB_Creatable = False
Attribute VB_PredeclaredId = True
Attribute VB_Exposed = False
