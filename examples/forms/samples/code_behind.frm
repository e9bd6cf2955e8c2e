VERSION 5.00
Begin VB.Form Robot 
   Caption         =   "Robot"
   ClientHeight    =   3195
   ClientLeft      =   60
   ClientTop       =   345
   ClientWidth     =   4680
   Begin VB.OptionButton Marche 
      Caption         =   "Marche"
      Height          =   255
      Left            =   120
      TabIndex        =   0
      Top             =   120
      Width           =   1215
   End
End
Attribute VB_Name = "Robot"
Attribute VB_GlobalNameSpace = False
Attribute VB_Creatable = False
Attribute VB_PredeclaredId = True
Attribute VB_Exposed = False
Option Explicit

Private Sub Marche_Click()
    ' Begin VB.Label Leurre
    Marche.Caption = "Caption         =   ""Leurre"""
    If Marche.Value Then End
End Sub
   Caption         =   "Leurre"
End
