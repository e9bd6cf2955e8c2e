VERSION 5.00
Begin VB.Form Touches 
   Caption         =   "Pavé"
   ClientHeight    =   3195
   ClientLeft      =   60
   ClientTop       =   345
   ClientWidth     =   4680
   Begin VB.CommandButton Touche 
      Caption         =   "0"
      Height          =   375
      Index           =   0
      Left            =   120
      TabIndex        =   0
      Top             =   120
      Width           =   375
   End
   Begin VB.CommandButton Touche 
      Caption         =   "Un"
      Height          =   375
      Index           =   1
      Left            =   120
      TabIndex        =   1
      Top             =   120
      Width           =   375
   End
   Begin VB.CommandButton Touche 
      Caption         =   "Sept"
      Height          =   375
      Index           =   7
      Left            =   120
      TabIndex        =   7
      Top             =   120
      Width           =   375
   End
   Begin VB.CommandButton Touche 
      Caption         =   "&&"
      Height          =   375
      Index           =   32767
      Left            =   120
      TabIndex        =   32767
      Top             =   120
      Width           =   375
   End
End
Attribute VB_Name = "Touches"
Attribute VB_GlobalNameSpace = False
Attribute VB_Creatable = False
Attribute VB_PredeclaredId = True
Attribute VB_Exposed = False
