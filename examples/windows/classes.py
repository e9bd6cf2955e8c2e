"""A call of each of the eleven classes from a Python with pywin32: python classes.py"""
import os
import tempfile

from win32com.client.dynamic import Dispatch


def create(name: str):
    return Dispatch("KADRELDLL." + name)


def message_of_a_file() -> str:
    """Messages of an application, in a file that can be translated."""
    with tempfile.TemporaryDirectory() as folder:
        file = os.path.join(folder, "messages.lng")
        translation = create("Cls_Traduction")
        translation.Sauver_TousLesMessages(["", "Valider", "Annuler"], file)
        return translation.Charger_LeMessage(file, 2)


def there_and_back(text: str) -> str:
    """The first object of a user makes the user's keys, and says so in message boxes."""
    cryptage = create("Cls_Cryptage")
    cryptage.Password = "secret"
    cryptage.InBuffer = text
    cryptage.Encrypt()
    cryptage.InBuffer = cryptage.OutBuffer
    cryptage.Decrypt()
    return cryptage.OutBuffer


print("Cls_InitREG:", create("Cls_InitREG").ErrorMsg(2))
print("Cls_Windows:", create("Cls_Windows").GET_ExtentionFichier(r"C:\Documents\lettre.doc"))
print("Cls_Traduction:", message_of_a_file())
print("Cls_Internet:", create("Cls_Internet").GetIPFromHostName("localhost"))
print("Cls_Date:", create("Cls_Date").NBJoursOuvrablesParMois(2026, 11))
print("Cls_SQL:", create("Cls_SQL").RepAPOS("l'ami"))
print("Cls_Cryptage:", there_and_back("Bonjour"))
print("Cls_Conversion:", create("Cls_Conversion").ConvertirNombreEnLettre(80, False))
print("Cls_Multimedia:", create("Cls_Multimedia").TypePeripherique("C"))
print("Cls_Math:", round(create("Cls_Math").Hypothenuse(0, 0, 3, 4), 2))
print("Cls_SourisClv:", create("Cls_SourisClv").SourisDelaiDoubleClique())
