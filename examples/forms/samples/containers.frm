VERSION 5.00
Begin VB.Form Serre 
   Caption         =   "Serre"
   ClientHeight    =   3195
   ClientLeft      =   60
   ClientTop       =   345
   ClientWidth     =   4680
   Begin VB.PictureBox Fond 
      BackColor       =   &H00C0FFC0&
      Height          =   2415
      ScaleHeight     =   2355
      Begin VB.Frame Zone 
         Caption         =   "Zone nord"
         Height          =   1935
         Begin VB.PictureBox Interieur 
            Height          =   1215
            ToolTipText     =   "Intérieur"
            Begin VB.CheckBox Arroser 
               Caption         =   "Arroser"
               Value           =   1  'Checked
            End
            Begin VB.Line Trait 
               X1              =   0
               X2              =   1440
               Y1              =   60
               Y2              =   60
            End
         End
      End
      Begin VB.Shape Cadre 
         Height          =   495
         Shape           =   4  'Rounded Rectangle
      End
   End
End
Attribute VB_Name = "Serre"
Attribute VB_GlobalNameSpace = False
Attribute VB_Creatable = False
Attribute VB_PredeclaredId = True
Attribute VB_Exposed = False
