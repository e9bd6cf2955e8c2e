"""Members by name: in any case, with named arguments, with variables, and what they raise."""

import copy
import inspect
import pathlib
import pickle
import re
import unittest

import tovera
from tovera import ByRef, Error


class Calls(unittest.TestCase):
    def setUp(self):
        self.date = tovera.Dispatch("KADRELDLL.Cls_Date")

    def test_classes_by_prog_id_and_name_in_any_case(self):
        for name in ("KADRELDLL.Cls_Date", "kadreldll.cls_date", "Cls_Date", "CLS_DATE"):
            self.assertIs(type(tovera.Dispatch(name)), tovera.Cls_Date)
        classes = [name for name in dir(tovera) if name.startswith("Cls_")]
        self.assertEqual(len(classes), 11)
        for name in classes:
            if name != "Cls_Cryptage":
                self.assertIs(type(tovera.Dispatch("KADRELDLL." + name)), getattr(tovera, name))

    def test_members_in_any_case(self):
        conversion = tovera.Cls_Conversion()
        conversion.intitulemonnaie = "euro"
        conversion.INTITULEPETITEMONNAIE = "centime"
        self.assertEqual(conversion.IntituleMonnaie, "euro")
        self.assertEqual(conversion.IntitulePetitemonnaie, "centime")
        self.assertEqual(conversion.CONVERTIRNOMBREENLETTRE(1, True), "un euro")
        self.assertEqual(getattr(self.date, "chrono")(10, 20), 10)

    def test_ways_of_passing_arguments(self):
        chrono = self.date.Chrono
        for call in (
            lambda: chrono(10, 25),
            lambda: chrono(10, ArriveeSec=25),
            lambda: chrono(ArriveeSec=25, DepartSec=10),
            lambda: chrono(arriveesec=25, DEPARTSEC=10),
            lambda: chrono(*[10], **{"ArriveeSec": 25}),
        ):
            self.assertEqual(call(), 15)

    def test_optional_arguments(self):
        windows = tovera.Cls_Windows()
        name = windows.GetNomFichier_DuChemin
        self.assertEqual(name(r"C:\a\b.ini"), name(r"C:\a\b.ini", False))
        self.assertEqual(name(r"C:\a\b.ini", tovera.Missing), name(r"C:\a\b.ini", None))

    def test_failures(self):
        date = self.date
        cases = [
            (13, lambda: date.Paques("bientôt")),
            (13, lambda: date.Paques(b"2027")),
            (13, lambda: date.Paques([1])),
            (13, lambda: date.Paques(object())),
            (13, lambda: date.Paques(1 + 2j)),
            (94, lambda: date.Paques(tovera.Null)),
            (6, lambda: date.Chrono(-(2**31), 2**31 - 1)),
            (6, lambda: date.Chrono(2**31, 1)),
            (6, lambda: date.Chrono(2**200, 1)),
            (6, lambda: date.Chrono(1e300, 1)),
            (450, lambda: date.Chrono(1, 2, 3)),
            (450, lambda: date.Chrono(*range(1000))),
            (450, lambda: tovera.Cls_Date(1)),
            (449, lambda: date.Chrono()),
            (449, lambda: date.Chrono(ArriveeSec=1)),
            (448, lambda: date.Chrono(1, autre=2)),
            (5, lambda: date.Chrono(1, 2, DepartSec=3)),
            (429, lambda: tovera.Dispatch("Excel.Application")),
            (429, lambda: tovera.Dispatch("")),
            (429, lambda: tovera.Dispatch("Cls_Date\0")),
            (13, lambda: tovera.Dispatch(None)),
            (13, lambda: tovera.set_message_box("no function")),
            (13, lambda: ByRef(1, "I3")),
        ]
        for number, call in cases:
            with self.subTest(inspect.getsource(call).strip()), self.assertRaises(Error) as raised:
                call()
            self.assertEqual(raised.exception.number, number)
            self.assertTrue(raised.exception.description)
            self.assertEqual(str(raised.exception), f"{number}: {raised.exception.description}")
        self.assertEqual(date.Chrono(1, 2), 1)

    def test_unknown_members_are_attribute_errors(self):
        cryptage = tovera.Cls_Conversion()
        for act in (
            lambda: self.date.Noel,
            lambda: setattr(self.date, "Noel", 1),
            lambda: setattr(self.date, "Paques", 1),
            lambda: delattr(self.date, "Paques"),
            lambda: delattr(cryptage, "IntituleMonnaie"),
        ):
            with self.assertRaises(tovera.MemberError) as raised:
                act()
            self.assertEqual(raised.exception.number, 438)
            self.assertIsInstance(raised.exception, AttributeError)
        self.assertFalse(hasattr(self.date, "Noel"))
        self.assertIsNone(getattr(self.date, "Noel", None))

    def test_names_that_are_odd_texts(self):
        class NoHash(str):
            def __hash__(self):
                raise ValueError("hash")

        class NoLower(str):
            def lower(self):
                return 5

        for act in (lambda: setattr(self.date, NoHash("noel"), 1), lambda: getattr(self.date, NoHash("noel"))):
            with self.assertRaises(ValueError):
                act()
        self.assertEqual(getattr(self.date, NoLower("CHRONO"))(10, 25), 15)
        self.assertEqual(self.date.Chrono(10, **{NoLower("arriveeSEC"): 25}), 15)

    def test_a_method_of_another_class_is_refused(self):
        with self.assertRaises(TypeError):
            tovera.Cls_Date.Paques(tovera.Cls_Math(), 2027)

    def test_an_object_has_no_copy(self):
        for act in (copy.copy, copy.deepcopy, pickle.dumps):
            with self.assertRaises((TypeError, pickle.PicklingError)):
                act(self.date)

    def test_errors_and_constants_can_be_copied(self):
        error = pickle.loads(pickle.dumps(Error(13, "Type incompatible", "tovera")))
        self.assertEqual((error.number, error.source), (13, "tovera"))
        self.assertIs(pickle.loads(pickle.dumps(tovera.Null)), tovera.Null)
        self.assertIs(copy.deepcopy(tovera.Missing), tovera.Missing)

    def test_a_class_can_be_derived_from(self):
        class Calendar(tovera.Cls_Date):
            def __init__(self, year):
                self.year = year

            def easter(self):
                return self.paques(self.year)

        self.assertEqual(str(Calendar(2027).easter().date()), "2027-03-28")


class Descriptions(unittest.TestCase):
    def test_signatures(self):
        self.assertEqual(str(inspect.signature(tovera.Cls_Date.Chrono)), "(self, /, DepartSec, ArriveeSec)")
        name = inspect.signature(tovera.Cls_Windows().GetNomFichier_DuChemin)
        self.assertIsNone(list(name.parameters.values())[1].default)

    def test_every_member_is_there_and_tells_what_it_is(self):
        """The members are those of the reference pages, which come from the same table."""
        pages = pathlib.Path(__file__).parents[2] / "docs" / "reference"
        for name in dir(tovera):
            made = getattr(tovera, name)
            if not name.startswith("Cls_"):
                continue
            self.assertIn("KADRELDLL." + name, made.__doc__)
            members = [member for member in vars(made) if not member.startswith("_")]
            titles = re.findall("^## (.*)$", (pages / f"{name}.md").read_text(), re.M)
            self.assertEqual(sorted(members), sorted(titles))
            for member in members:
                self.assertIn(member, getattr(made, member).__doc__.splitlines()[-1])
