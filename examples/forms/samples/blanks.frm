VERSION 5.00
Begin VB.Form Marges 
   Caption         =   " Marges "
   ClientHeight    =   3195
   ClientLeft      =   60
   ClientTop       =   345
   ClientWidth     =   4680
   Begin VB.Frame Vide 
      Caption         =   ""
      Height          =   255
      Left            =   120
      TabIndex        =   0
      Top             =   120
      Width           =   1215
   End
   Begin VB.Frame Blanc 
      Caption         =   "   "
      Height          =   255
      Left            =   120
      TabIndex        =   0
      Top             =   120
      Width           =   1215
   End
   Begin VB.Label Devant 
      Caption         =   "  devant"
      Height          =   255
      Left            =   120
      TabIndex        =   0
      Top             =   120
      Width           =   1215
   End
   Begin VB.Label Derriere 
      Caption         =   "derrière	 "
      Height          =   255
      Left            =   120
      TabIndex        =   0
      Top             =   120
      Width           =   1215
   End
   Begin VB.Label Long 
      Caption         =   "Une phrase qui ne finit pas. Une phrase qui ne finit pas. Une phrase qui ne finit pas. Une phrase qui ne finit pas. Une phrase qui ne finit pas. Une phrase qui ne finit pas. Une phrase qui ne finit pas. Une phrase qui ne finit pas. Une phrase qui ne finit pas. Une phrase qui ne finit pas. Une phrase qui ne finit pas. Une phrase qui ne finit pas. "
      Height          =   255
      Left            =   120
      TabIndex        =   0
      Top             =   120
      Width           =   1215
   End
End
Attribute VB_Name = "Marges"
Attribute VB_GlobalNameSpace = False
Attribute VB_Creatable = False
Attribute VB_PredeclaredId = True
Attribute VB_Exposed = False
