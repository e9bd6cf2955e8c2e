"""Easter and an amount in words from a Python with pywin32: python paques.py [year]

The objects are late-bound: members are looked up by name at each call. A parameter by reference that the method
changes comes back through a VARIANT.
"""
import sys

import pythoncom
import win32com.client
from win32com.client import VARIANT


def main(year: int) -> None:
    dates = win32com.client.dynamic.Dispatch("KADRELDLL.Cls_Date")
    print(f"Pâques {year} : {dates.Paques(year):%d/%m/%Y}")

    conversion = win32com.client.dynamic.Dispatch("KADRELDLL.Cls_Conversion")
    conversion.IntituleMonnaie = "euro"
    conversion.IntitulePetiteMonnaie = "centime"
    print(conversion.ConvertirNombreEnLettre(1234.5, True))

    math = win32com.client.dynamic.Dispatch("KADRELDLL.Cls_Math")
    angle = VARIANT(pythoncom.VT_VARIANT | pythoncom.VT_BYREF, 10)
    math.MesurePrincipale(angle)
    print(f"10 radians = {angle.value:.2f} radian")


if __name__ == "__main__":
    main(int(sys.argv[1]) if len(sys.argv) > 1 else 2026)
