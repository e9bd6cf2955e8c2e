VERSION 5.00
Begin VB.Form Bassin 
   Caption         =   "Relevé du bassin"
   ClientHeight    =   3195
   ClientLeft      =   60
   ClientTop       =   345
   ClientWidth     =   4680
   Begin VB.Timer Minuterie 
      Interval        =   500
      Left            =   4080
      Top             =   120
   End
   Begin VB.TextBox Niveau 
      Height          =   315
      Left            =   1440
      TabIndex        =   1
      Text            =   "12,5"
      ToolTipText     =   "Niveau de l'eau, en mètres"
      Top             =   120
      Width           =   1215
   End
   Begin VB.Label Libelle 
      Caption         =   "Niveau :"
      Height          =   255
      Left            =   120
      TabIndex        =   0
      Top             =   120
      Width           =   1215
   End
End
Attribute VB_Name = "Bassin"
Attribute VB_GlobalNameSpace = False
Attribute VB_Creatable = False
Attribute VB_PredeclaredId = True
Attribute VB_Exposed = False
Option Explicit
