VERSION 5.00
Begin VB.Form Été 
   Caption         =   "Œ€… "
   ClientHeight    =   3195
   ClientLeft      =   60
   ClientTop       =   345
   ClientWidth     =   4680
   Begin VB.Label Étiquette 
      Caption         =   "naïve – “cité”"
      Height          =   255
      Left            =   120
      TabIndex        =   0
      Top             =   120
      Width           =   1215
   End
   Begin VB.TextBox Coréen 
      Text            =   "µ¸¿òÃ¼ÿ"
   End
End
Attribute VB_Name = "Été"
Attribute VB_GlobalNameSpace = False
Attribute VB_Creatable = False
Attribute VB_PredeclaredId = True
Attribute VB_Exposed = False
