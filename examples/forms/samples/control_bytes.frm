VERSION 5.00
Begin VB.Form Octets 
   Caption         =   "fin"
   ClientHeight    =   3195
   Begin VB.Label Debut 
      Caption         =   "debut"
      Height          =   255
   End
   Begin VB.Label Milieu 
      Caption         =   "milieu"
      Height          =   255
   End
   Begin VB.Label Seul 
      Caption         =   ""
      Height          =   255
   End
   Begin VB.Label Tabulation 
      Caption         =   "tab	 "
      Height          =   255
   End
End
