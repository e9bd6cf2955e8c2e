"""Values of Python as values of the component, and back."""

import datetime
import decimal
import enum
import fractions
import unittest

import tovera
from tovera import Array, ByRef, Error
from support import own_folder

Decimal = decimal.Decimal


class Year(enum.IntEnum):
    LAST = 2026


class Large(int, enum.Enum):
    ONE = 2**40


class OddWhole(int):
    def __str__(self):
        return "1E99999999999999999999999"

    def bit_length(self):
        return "x"


class OddDate(datetime.date):
    def toordinal(self):
        return "x"


class FarDate(datetime.date):
    def toordinal(self):
        return -(2**63)


class OddTime(datetime.datetime):
    hour = "x"


class LongTime(datetime.datetime):
    hour = 2**62


class Values(unittest.TestCase):
    def test_numbers_of_all_kinds(self):
        words = tovera.Cls_Conversion().ConvertirNombreEnLettre
        for number in (71, 71.0, Decimal(71), Decimal("7.1e1"), fractions.Fraction(71), "71", True * 71):
            self.assertEqual(words(number, False), "soixante et onze")
        self.assertEqual(words(Decimal("12.34"), False), words(12.34, False))
        self.assertEqual(tovera.Cls_Date().Paques(Year.LAST), tovera.Cls_Date().Paques(2026))
        for number in (Large.ONE, OddWhole(2**40), Decimal(2**40)):
            self.assertEqual(words(number, False), words(2**40, False))
        with decimal.localcontext(capitals=0):
            self.assertEqual(words(Decimal("7.1e1"), False), words(71, False))
            self.assertEqual(words(Decimal("7e20"), False), words(7 * 10**20, False))

    def test_what_derived_classes_say_wrong(self):
        """It comes out as it is raised, or as a failure, and nothing is left behind."""
        date, variable = tovera.Cls_Date(), ByRef(1)
        variable._type = "x"
        for expected, call in (
            (TypeError, lambda: date.NBJoursOuvrables(OddDate(2027, 1, 1), 5)),
            (Error, lambda: date.NBJoursOuvrables(FarDate(2027, 1, 1), 5)),
            (TypeError, lambda: date.HeureEnSeconde(OddTime(2027, 1, 1))),
            (Error, lambda: date.HeureEnSeconde(LongTime(2027, 1, 1))),
            (TypeError, lambda: tovera.Cls_Math().MesurePrincipale(variable)),
        ):
            with self.assertRaises(expected) as raised:
                call()
            self.assertIs(type(raised.exception), expected)
            self.assertEqual(date.Chrono(1, 2), 1)

    def test_a_variable_that_nobody_changes_comes_back_as_it_was(self):
        """By way of a member that takes any value by reference and leaves it alone."""
        hypothenuse = tovera.Cls_Math().Hypothenuse
        numbers = [0, -1, 2**31 - 1, -(2**31), 2**31, -(2**31) - 1, 2**63, 2**96 - 1, -(2**96) + 1, 10**28]
        numbers += [0.1, -2.5, 1e300, True, False]
        numbers += [Decimal(text) for text in ("12.34", "12.50", "0E-5", "-0.5", "1e-28", "9.9E+27", "7.9228162514264337593543950335")]
        numbers += [None, "12", "", datetime.datetime(2027, 3, 28)]
        for number in numbers:
            variable = ByRef(number)
            try:
                hypothenuse(variable, 0, 0, 0)
            except Error:
                pass
            self.assertEqual(variable.value, number)
            is_whole = isinstance(number, Decimal) and number == int(number)
            self.assertIs(type(variable.value), int if is_whole else type(number))

    def test_numbers_that_are_too_large(self):
        for number in (2**96, -(2**96), 10**5000, Decimal("1e29"), Decimal("1e-29"), Decimal("NaN"),
                       Decimal("-Infinity"), Decimal("1e999999"), Decimal("1.00000000000000000000000000001")):
            with self.assertRaises(Error) as raised:
                tovera.Cls_Math().MesurePrincipale(number)
            self.assertEqual(raised.exception.number, 6)
        # Zeros at the end need no room.
        nine = ByRef(Decimal("9." + "0" * 28))
        tovera.Cls_Math().Hypothenuse(nine, 0, 0, 0)
        self.assertEqual(nine.value, 9)
        self.assertEqual(tovera.Cls_Math().MesurePrincipale(Decimal("1." + "0" * 60)), 1)

    def test_texts(self):
        conversion = tovera.Cls_Conversion()
        texts = ["", "euro", "été", "œuvre €", "日本", "😀", "\0a\0", "a\ud800b", "\udc00", "x" * 100_000,
                 "é" * 1000, "€" * 1000, "\ufeff", "\ufeffa"]
        for text in texts:
            conversion.IntituleMonnaie = text
            self.assertEqual(conversion.IntituleMonnaie, text)
        conversion.IntituleMonnaie = None
        self.assertEqual(conversion.IntituleMonnaie, "")
        conversion.IntituleMonnaie = 12
        self.assertEqual(conversion.IntituleMonnaie, "12")

    def test_dates(self):
        """Every kind of moment there and back: a date by reference that nobody changes."""
        days = tovera.Cls_Date().NBJoursOuvrables
        seconds = tovera.Cls_Date().HeureEnSeconde
        for moment in ("1899-12-30", "1899-12-29T06:00", "1899-12-31T06:00:00.000001", "2002-05-06T12:00:01",
                       "2026-11-23T23:59:59.999999", "0100-01-01", "9999-12-31T23:59:59", "2000-02-29",
                       "1900-02-28T18:00", "1600-02-29T00:00:00.5"):
            variable = ByRef(datetime.datetime.fromisoformat(moment))
            before = variable.value
            tovera.Cls_Math().Hypothenuse(variable, 0, 0, 0)
            self.assertLess(abs(variable.value - before), datetime.timedelta(microseconds=60), moment)
        self.assertEqual(days(datetime.date(2002, 5, 6), datetime.datetime(2002, 5, 12)), 5)
        self.assertEqual(seconds(datetime.time(12, 0, 1)), 43201)
        self.assertEqual(tovera.Cls_Date().Paques(2027), datetime.datetime(2027, 3, 28))

    def test_dates_that_are_none(self):
        aware = datetime.datetime(2027, 3, 28, tzinfo=datetime.timezone.utc)
        with self.assertRaises(Error) as raised:
            tovera.Cls_Date().HeureEnSeconde(aware)
        self.assertEqual(raised.exception.number, 13)
        for days in (3e6, -7e5, 1e300):
            with self.assertRaises(Error) as raised:
                tovera.Cls_Math().Hypothenuse(ByRef(days, "DATE"), 0, 0, 0)
            self.assertEqual(raised.exception.number, 6)
        with self.assertRaises(Error) as raised:
            tovera.Cls_Math().Hypothenuse(ByRef(3e6, "DATE"), "trois", 0, 0)
        self.assertEqual(raised.exception.number, 13)

    def test_typed_variables(self):
        cases = [("I2", 10, 10), ("I2", 2.5, 2), ("I2", True, -1), ("I4", 3.5, 4), ("UI1", 255, 255),
                 ("R4", 0.1, 0.10000000149011612), ("R8", 1, 1.0), ("BOOL", 3, True), ("BSTR", "a", "a"),
                 ("BSTR", None, ""), ("DATE", 1.5, datetime.datetime(1899, 12, 31, 12)), ("I4", None, 0)]
        for type_name, value, expected in cases:
            variable = ByRef(value, type_name)
            try:
                tovera.Cls_Math().Hypothenuse(variable, 0, 0, 0)
            except Error:
                pass
            self.assertEqual(variable.value, expected)
            self.assertIs(type(variable.value), type(expected))
        for type_name, value, number in (("I2", 40000, 6), ("UI1", -1, 6), ("R4", 1e300, 6), ("I4", "a", 13),
                                         ("BSTR", 1, 13), ("ARRAY", 1, 13), ("OBJECT", 1, 13)):
            with self.assertRaises(Error) as raised:
                tovera.Cls_Math().MesurePrincipale(ByRef(value, type=type_name))
            self.assertEqual(raised.exception.number, number)

    def test_variables_take_values_of_other_types(self):
        angle = ByRef(10)
        result = tovera.Cls_Math().MesurePrincipale(angle)
        self.assertAlmostEqual(angle.value, result, places=6)
        self.assertEqual(round(angle.value, 2), -2.56)

    def test_a_variable_in_two_places_is_one(self):
        both = ByRef("caf‚")
        tovera.Cls_Conversion().ConvertirOemAnsi(both, both)
        self.assertEqual(both.value, "café")

    def test_a_variable_of_variables_is_none(self):
        endless = ByRef()
        endless.value = endless
        for variable in (endless, ByRef(ByRef(ByRef(10)))):
            for call in (lambda: tovera.Cls_Math().MesurePrincipale(variable),
                         lambda: tovera.Cls_Date().Chrono(variable, 20)):
                with self.assertRaises(Error) as raised:
                    call()
                self.assertEqual(raised.exception.number, 13)

    def test_a_variable_of_a_failed_call_has_its_value(self):
        angle = ByRef("bientôt")
        with self.assertRaises(Error):
            tovera.Cls_Math().MesurePrincipale(angle)
        self.assertEqual(angle.value, "bientôt")


class Arrays(unittest.TestCase):
    def setUp(self):
        self.language = tovera.Cls_Traduction()

    def saved(self, texts):
        with own_folder():
            self.language.Sauver_TousLesMessages(texts, "./a.lng")
            messages = ByRef()
            self.language.Charger_TousLesMessages("./a.lng", messages)
            return messages.value

    def test_lists_and_tuples_number_from_1(self):
        for texts in (["Bonjour", "Été"], ("Bonjour", "Été"), Array(["Bonjour", "Été"]),
                      Array(["rien", "Bonjour", "Été"], lower=0), ByRef(["Bonjour", "Été"])):
            self.assertEqual(self.saved(texts), ["Bonjour", "Été", None])

    def test_bounds(self):
        messages = self.saved(["a"])
        self.assertEqual((type(messages), messages.lower, messages.upper), (Array, 1, 2))
        servers = ByRef([])
        tovera.Cls_Internet().GetDNSServers(ByRef(""), servers)
        self.assertIn(servers.value.lower, (0, 1))
        self.assertEqual(Array("ab", lower=5).upper, 6)

    def test_a_plain_list_is_left_alone(self):
        texts = ["a"]
        with own_folder():
            self.language.Charger_TousLesMessages("./absent.lng", texts)
        self.assertEqual(texts, ["a"])

    def test_what_is_no_array(self):
        for texts in ([1], ["a", b"b"], [["a"]], [tovera.Null], "a", 1, {"a": "b"}, iter("ab")):
            with self.assertRaises(Error) as raised:
                self.language.Sauver_TousLesMessages(texts, "./a.lng")
            self.assertEqual(raised.exception.number, 13)
        for lower in (2**31, -(2**40), 2**31 - 1):
            with self.assertRaises(Error) as raised:
                self.language.Sauver_TousLesMessages(Array("ab", lower=lower), "./a.lng")
            self.assertEqual(raised.exception.number, 6)
        with self.assertRaises(TypeError):
            self.language.Sauver_TousLesMessages(Array("ab", lower="1"), "./a.lng")


class Constants(unittest.TestCase):
    def test_none_is_nothing_and_the_null_text(self):
        internet = tovera.Cls_Internet()
        self.assertIsNone(internet.NSession)
        for nothing in (None, tovera.Nothing):
            internet.NSession = nothing
            self.assertIsNone(internet.NSession)
        self.assertEqual((bool(tovera.Null), repr(tovera.Null)), (False, "tovera.Null"))
        with own_folder():
            ini = tovera.Cls_InitREG()
            ini.IniEcrire("A", "B", "C", r"C:\a.ini")
            self.assertEqual(ini.IniLire("a", "b", "absent", r"C:\a.ini"), "C")
            ini.IniEcrire("A", "B", None, r"C:\a.ini")
            self.assertEqual(ini.IniLire("a", "b", "absent", r"C:\a.ini"), "absent")
