VERSION 5.00
Begin VB.Form Atelier 
   Caption         =   "Atelier"
   ClientHeight    =   3195
   ClientLeft      =   60
   ClientTop       =   345
   ClientWidth     =   4680
   Begin VB.Menu mnuFichier 
      Caption         =   "&Fichier"
      Begin VB.Menu mnuOuvrir 
         Caption         =   "&Ouvrir..."
         Shortcut        =   ^O
      End
      Begin VB.Menu mnuRecents 
         Caption         =   "&Récents"
         Begin VB.Menu mnuRecent 
            Caption         =   "1"
            Index           =   0
            Visible         =   0   'False
         End
         Begin VB.Menu mnuRecent 
            Caption         =   "2"
            Index           =   1
         End
      End
      Begin VB.Menu mnuTrait 
         Caption         =   "-"
      End
      Begin VB.Menu mnuFin 
         Caption         =   "&Quitter"
         Shortcut        =   ^{F4}
      End
   End
   Begin VB.Menu mnuAide 
      Caption         =   "&?"
      NegotiatePosition=   3  'Right
   End
End
Attribute VB_Name = "Atelier"
Attribute VB_GlobalNameSpace = False
Attribute VB_Creatable = False
Attribute VB_PredeclaredId = True
Attribute VB_Exposed = False
