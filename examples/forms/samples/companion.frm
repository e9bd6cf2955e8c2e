VERSION 5.00
Begin VB.Form Notice 
   Caption         =   "Notice"
   ClientHeight    =   3195
   ClientLeft      =   60
   ClientTop       =   345
   ClientWidth     =   4680
   Icon            =   "companion.frx":0000
   MouseIcon       =   "companion.frx":0200
   Begin VB.TextBox Corps 
      Height          =   1935
      MultiLine       =   -1  'True
      Text            =   "companion.frx":0442
      ToolTipText     =   $"companion.frx":0512
   End
   Begin VB.Label Long 
      Caption         =   $"companion.frx":05B1
      Height          =   255
      Left            =   120
      TabIndex        =   0
      Top             =   120
      Width           =   1215
   End
   Begin VB.ComboBox Choix 
      Height          =   315
      ItemData        =   "companion.frx":0700
      List            =   "companion.frx":070A
      Text            =   "Un"
   End
End
Attribute VB_Name = "Notice"
Attribute VB_GlobalNameSpace = False
Attribute VB_Creatable = False
Attribute VB_PredeclaredId = True
Attribute VB_Exposed = False
