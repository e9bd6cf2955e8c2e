VERSION 2.00
Begin Form Form1 
   BackColor       =   &H8000000F&
   Caption         =   "Ancienne"
   Height          =   4425
   Icon            =   VERSION2.FRX:0000
   Left            =   1035
   Begin CommandButton Command1 
      Caption         =   "&Valider"
      Height          =   495
      Left            =   120
   End
   Begin SSPanel Panneau 
      Caption         =   "Panneau"
      Height          =   495
      Begin TextBox Text1 
         Text            =   "Texte"
      End
   End
   Begin Menu mnuJeu 
      Caption         =   "&Jeu"
   End
End
Option Explicit

Sub Command1_Click ()
    End
End Sub
