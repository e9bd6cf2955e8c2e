# Working days of each month of a year: powershell -File jours_ouvrables.ps1 -Year 2027
param([int16] $Year = (Get-Date).Year)

$dates = New-Object -ComObject KADRELDLL.Cls_Date
foreach ($month in 1..12) {
    [pscustomobject]@{
        Mois           = (Get-Culture).DateTimeFormat.GetMonthName($month)
        JoursOuvrables = $dates.NBJoursOuvrablesParMois($Year, $month)
    }
}
'{0:d}' -f $dates.Paques($Year)
