# A call of each of the eleven classes: powershell -File classes.ps1
function Tell($class, $result) { "${class}: $result" }

Tell Cls_InitREG (New-Object -ComObject KADRELDLL.Cls_InitREG).ErrorMsg(2)
Tell Cls_Windows (New-Object -ComObject KADRELDLL.Cls_Windows).GET_ExtentionFichier('C:\Documents\lettre.doc')

# Messages of an application, in a file that can be translated.
$file = [IO.Path]::GetTempFileName()
$translation = New-Object -ComObject KADRELDLL.Cls_Traduction
$translation.Sauver_TousLesMessages([string[]]('', 'Valider', 'Annuler'), $file)
Tell Cls_Traduction $translation.Charger_LeMessage($file, 2)
Remove-Item $file

Tell Cls_Internet (New-Object -ComObject KADRELDLL.Cls_Internet).GetIPFromHostName('localhost')
Tell Cls_Date (New-Object -ComObject KADRELDLL.Cls_Date).NBJoursOuvrablesParMois(2026, 11)
Tell Cls_SQL (New-Object -ComObject KADRELDLL.Cls_SQL).RepAPOS("l'ami")

# The first object of a user makes the user's keys, and says so in message boxes.
$cryptage = New-Object -ComObject KADRELDLL.Cls_Cryptage
$cryptage.Password = 'secret'
$cryptage.InBuffer = 'Bonjour'
$cryptage.Encrypt()
$cryptage.InBuffer = $cryptage.OutBuffer
$cryptage.Decrypt()
Tell Cls_Cryptage $cryptage.OutBuffer

Tell Cls_Conversion (New-Object -ComObject KADRELDLL.Cls_Conversion).ConvertirNombreEnLettre(80, $false)
Tell Cls_Multimedia (New-Object -ComObject KADRELDLL.Cls_Multimedia).TypePeripherique('C')
Tell Cls_Math (New-Object -ComObject KADRELDLL.Cls_Math).Hypothenuse(0, 0, 3, 4)
Tell Cls_SourisClv (New-Object -ComObject KADRELDLL.Cls_SourisClv).SourisDelaiDoubleClique()
