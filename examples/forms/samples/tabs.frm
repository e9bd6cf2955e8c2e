VERSION 5.00
Begin VB.Form Fiche 
   Caption         =   "Fiche"
   ClientHeight    =   3195
   ClientLeft      =   60
   ClientTop       =   345
   ClientWidth     =   4680
   Begin TabDlg.SSTab Onglets 
      Height          =   2775
      Left            =   120
      _ExtentX        =   7858
      Tabs            =   2
      TabHeight       =   520
      TabCaption(0)   =   "Adresse"
      TabPicture(0)   =   "tabs.frx":0000
      Tab(0).ControlEnabled=   -1  'True
      Tab(0).Control(0)=   "Rue"
      Tab(0).Control(0).Enabled=   0   'False
      Tab(0).ControlCount=   1
      Caption         =   "Onglets"
      Begin VB.TextBox Rue 
         Height          =   285
         Left            =   -74880
         Text            =   ""
         Top             =   600
      End
   End
End
Attribute VB_Name = "Fiche"
Attribute VB_GlobalNameSpace = False
Attribute VB_Creatable = False
Attribute VB_PredeclaredId = True
Attribute VB_Exposed = False
