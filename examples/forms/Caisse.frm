VERSION 5.00
Begin VB.Form Caisse 
   BorderStyle     =   1  'Fixed Single
   Caption         =   "Caisse du magasin"
   ClientHeight    =   3600
   ClientLeft      =   45
   ClientTop       =   615
   ClientWidth     =   5400
   LinkTopic       =   "Form1"
   MaxButton       =   0   'False
   ScaleHeight     =   3600
   ScaleWidth      =   5400
   StartUpPosition =   2  'CenterScreen
   Begin VB.Timer Horloge 
      Interval        =   1000
      Left            =   4800
      Top             =   120
   End
   Begin VB.Frame Reglement 
      Caption         =   "Règlement"
      Height          =   1095
      Left            =   240
      TabIndex        =   3
      Top             =   1320
      Width           =   3135
      Begin VB.OptionButton Mode 
         Caption         =   "Espèces"
         Height          =   255
         Index           =   0
         Left            =   240
         TabIndex        =   4
         Top             =   360
         Value           =   -1  'True
         Width           =   2535
      End
      Begin VB.OptionButton Mode 
         Caption         =   "Carte"
         Height          =   255
         Index           =   1
         Left            =   240
         TabIndex        =   5
         ToolTipText     =   "Carte ""bleue"" ou autre"
         Top             =   720
         Width           =   2535
      End
   End
   Begin VB.CommandButton Encaisser 
      Caption         =   "&Encaisser"
      Default         =   -1  'True
      BeginProperty Font 
         Name            =   "MS Sans Serif"
         Size            =   9.75
         Charset         =   0
         Weight          =   700
         Underline       =   0   'False
         Italic          =   0   'False
         Strikethrough   =   0   'False
      EndProperty
      Height          =   495
      Left            =   3600
      TabIndex        =   2
      Top             =   2880
      Width           =   1575
   End
   Begin VB.TextBox Montant 
      Height          =   375
      Left            =   1680
      TabIndex        =   1
      Text            =   "0,00"
      ToolTipText     =   "Montant à payer, en euros"
      Top             =   600
      Width           =   1695
   End
   Begin VB.Label Titre 
      AutoSize        =   -1  'True
      Caption         =   "À payer :"
      Height          =   195
      Left            =   240
      TabIndex        =   0
      Top             =   690
      Width           =   645
   End
   Begin VB.Menu mnuFichier 
      Caption         =   "&Fichier"
      Begin VB.Menu mnuImprimer 
         Caption         =   "&Imprimer le ticket"
         Shortcut        =   ^P
      End
      Begin VB.Menu mnuSeparateur 
         Caption         =   "-"
      End
      Begin VB.Menu mnuQuitter 
         Caption         =   "&Quitter"
      End
   End
End
Attribute VB_Name = "Caisse"
Attribute VB_GlobalNameSpace = False
Attribute VB_Creatable = False
Attribute VB_PredeclaredId = True
Attribute VB_Exposed = False
Option Explicit

Private Sub Encaisser_Click()
    MsgBox "Caption = " & Encaisser.Caption
End Sub

Private Sub mnuQuitter_Click()
    Unload Me
End Sub
