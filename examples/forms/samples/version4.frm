VERSION 4.00
Begin VB.Form frmVieux 
   Caption         =   "Vieux"
   ClientHeight    =   2000
   BeginProperty Font 
      name            =   "Arial"
      weight          =   700
      underline       =   0   'False
   EndProperty
   Height          =   2405
   Begin VB.Frame Cadre 
      Caption         =   "Cadre"
      Height          =   855
   End
End
Attribute VB_Name = "frmVieux"
Attribute VB_GlobalNameSpace = False
Attribute VB_Creatable = False
Attribute VB_PredeclaredId = True
Attribute VB_Exposed = False
