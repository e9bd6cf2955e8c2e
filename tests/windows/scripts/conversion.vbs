Dim conversion, other, row, amount, isAmount, label, source, target, result
Set conversion = CreateObject("KADRELDLL.Cls_Conversion")
Check "no label yet", conversion.IntituleMonnaie, ""
conversion.IntituleMonnaie = "euro"
conversion.IntitulePetiteMonnaie = "centime"
Check "label", conversion.IntituleMonnaie, "euro"
Check "small label", conversion.IntitulePetiteMonnaie, "centime"
Set other = CreateObject("KADRELDLL.Cls_Conversion")
label = "livre"
other.IntituleMonnaie = label
Check "each object has its labels", conversion.IntituleMonnaie & other.IntituleMonnaie & label, "eurolivrelivre"

For Each row In Array( _
    Array(0, "zéro", "zéro euro"), Array(1, "un", "un euro"), Array(21, "vingt et un", "vingt et un euros"), _
    Array(71, "soixante et onze", "soixante et onze euros"), _
    Array(80, "quatre-vingts", "quatre-vingts euros"), Array(200000, "deux cents mille", "deux cents mille euros"), _
    Array(1001000, "un million  mille", "un million  mille euros"), _
    Array(1.01, "un et un ", "un euro et un centime"), _
    Array(12.34, "douze et trente-quatre ", "douze euros et trente-quatre centimes"), _
    Array(0.5, "zéro et cinquante ", "zéro euro et cinquante centimes"), _
    Array(1234567.89, "un million deux cent trente-quatre mille cinq cent soixante-sept et quatre-vingt-neuf ", _
        "un million deux cent trente-quatre mille cinq cent soixante-sept euros et quatre-vingt-neuf centimes"))
    amount = row(0)
    isAmount = False
    Check row(0) & " in words", conversion.ConvertirNombreEnLettre(amount, isAmount), row(1)
    isAmount = True
    Check row(0) & " as an amount", conversion.ConvertirNombreEnLettre(amount, isAmount), row(2)
    Check row(0) & " by value", conversion.ConvertirNombreEnLettre(CDbl(row(0)), True), row(2)
Next
Check "a text as number", conversion.ConvertirNombreEnLettre("71", False), "soixante et onze"
amount = "12"
Check "a variable with a text", conversion.ConvertirNombreEnLettre(amount, False), "douze"
Check "stays a text", amount, "12"

result = conversion.ConvertirNombreEnLettre(0.996, False)
CheckError "hundredths that round to 100", 9, "Indice hors des limites"
result = conversion.ConvertirNombreEnLettre(0.996, False)
Check "source", Err.Source, "KADRELDLL"
Err.Clear
Check "usable after a failure", conversion.ConvertirNombreEnLettre(2, False), "deux"
result = conversion.ConvertirNombreEnLettre("douze", False)
CheckError "not a number", 13, ""

For Each row In Array(Array("1 234,50", "1234,50"), Array("-12.5", "-12.5"), Array(" - 12", "-12"), _
                      Array(",,,", ",,,"), Array("", ""), Array("   ", ""))
    source = row(0)
    Check "typed " & source, conversion.Ctrl_SaiseNombre(source), row(1)
    Check "not changed", source, row(0)
Next

source = Chr(130) & "t" & Chr(130)
target = "######"
Check "from OEM", conversion.ConvertirOemAnsi(source, target), CInt(1)
Check "target", target, "été" & Chr(0) & "##"
conversion.NoSuchMember 1
CheckError "unknown member", 438, ""
result = conversion.ConvertirNombreEnLettre(1)
Check "an argument too few", Err.Number <> 0, True
Err.Clear
result = conversion.ConvertirNombreEnLettre(1, True, 2)
Check "an argument too many", Err.Number <> 0, True
Err.Clear
Finish 61
