VERSION 5.00
Begin VB.Form Citation 
   Caption         =   "Dit ""oui"" et 'non' = ?"
   ClientHeight    =   3195
   ClientLeft      =   60
   ClientTop       =   345
   ClientWidth     =   4680
   Begin VB.Label Guillemets 
      Caption         =   """"""
      Height          =   255
      Left            =   120
      TabIndex        =   0
      Top             =   120
      Width           =   1215
   End
   Begin VB.Label Un 
      Caption         =   """cité"""
      Height          =   255
      Left            =   120
      TabIndex        =   0
      Top             =   120
      Width           =   1215
   End
   Begin VB.Label Apostrophe 
      Caption         =   "'l'eau'"
      Tag             =   "a=b; c:\d"
      Height          =   255
      Left            =   120
      TabIndex        =   0
      Top             =   120
      Width           =   1215
   End
   Begin VB.Label Remarque 
      Caption         =   "vu"   'à traduire
      Height          =   255
      Left            =   120
      TabIndex        =   0
      Top             =   120
      Width           =   1215
   End
   Begin VB.TextBox Crochets 
      Text            =   "[Section]"
      ToolTipText     =   "; pas une remarque"
   End
End
Attribute VB_Name = "Citation"
Attribute VB_GlobalNameSpace = False
Attribute VB_Creatable = False
Attribute VB_PredeclaredId = True
Attribute VB_Exposed = False
