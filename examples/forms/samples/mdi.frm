VERSION 5.00
Begin VB.MDIForm Principale 
   Caption         =   "Comptoir"
   ClientHeight    =   3195
   ClientLeft      =   60
   ClientTop       =   345
   ClientWidth     =   4680
   Begin VB.PictureBox Bande 
      Align           =   1  'Align Top
      Height          =   375
      Begin VB.CommandButton Neuf 
         Caption         =   "Neuf"
      End
   End
End
Attribute VB_Name = "Principale"
Attribute VB_GlobalNameSpace = False
Attribute VB_Creatable = False
Attribute VB_PredeclaredId = True
Attribute VB_Exposed = False
