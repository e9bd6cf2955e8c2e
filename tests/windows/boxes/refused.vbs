' A number that can't be converted: the user is told, and the result is empty.
Check "a refused number", CreateObject("KADRELDLL.Cls_Conversion").Ctrl_SaiseNombre("12 euros"), ""
Finish 1
