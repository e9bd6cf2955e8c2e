"""Objects of Python that the component calls: forms, controls, sessions, and what they raise."""

import gc
import traceback
import unittest
import unittest.mock
import weakref

import tovera
from support import own_folder
from tovera import Error


class Control:
    def __init__(self, name, **texts):
        self.name = name
        vars(self).update(texts)


class Form(Control):
    def __init__(self, name, controls=(), **texts):
        super().__init__(name, **texts)
        self.items = list(controls)

    def __iter__(self):
        return iter(self.items)


class OtherCase:
    """Its attributes are written as Python likes it, and made by methods and properties."""

    def __init__(self):
        self._caption = "Bonjour"

    def NAME(self):
        return "Fenetre"

    @property
    def caption(self):
        return self._caption

    @caption.setter
    def caption(self, text):
        self._caption = text

    def controls(self):
        return [Control("B", tooltiptext="aide")]


def language_file(form):
    tovera.Cls_Traduction().Sauver_LangueFeuille(form, "./a.lng")
    with open("a.lng", encoding="cp1252") as file:
        return file.read().splitlines()


class Forms(unittest.TestCase):
    def test_a_form_is_saved_and_loaded(self):
        form = Form("Fenetre", [Control("A", Caption="Été"), Control("T", Text="saisie", ToolTipText="aide"),
                                Control("M", Caption="un", Index=0), Control("Minuterie")], Caption="Titre")
        with own_folder():
            lines = language_file(form)
            self.assertEqual(lines, ["[Fenetre]", "Fenetre.Caption=Titre", "A.Caption=Été", "T.Text=saisie",
                                     "T.ToolTipText=aide", "M(0).Caption=un"])
            with open("a.lng", "w", encoding="cp1252") as file:
                file.write("\r\n".join(line.split("=")[0] + "=x" if "=" in line else line for line in lines))
            tovera.Cls_Traduction().Charger_LangueFeuille(form, "./a.lng")
        self.assertEqual([form.Caption, form.items[0].Caption, form.items[1].Text, form.items[1].ToolTipText],
                         ["x"] * 4)
        self.assertFalse(hasattr(form.items[3], "Caption"))

    def test_names_in_any_case_methods_and_controls(self):
        with own_folder():
            form = OtherCase()
            self.assertEqual(language_file(form),
                             ["[Fenetre]", "Fenetre.Caption=Bonjour", "B.ToolTipText=aide"])
            with open("a.lng", "w") as file:
                file.write("[Fenetre]\nFenetre.Caption=Hello\n")
            tovera.Cls_Traduction().Charger_LangueFeuille(form, "./a.lng")
            self.assertEqual(form.caption, "Hello")

    def test_objects_that_make_up_their_attributes(self):
        class Proxy:
            def __getattr__(self, name):
                if name.lower() in ("name", "caption"):
                    return name.upper()
                raise AttributeError(name)

        with own_folder():
            self.assertEqual(language_file(Proxy()), ["[NAME]", "NAME.Caption=CAPTION"])

    def test_what_is_no_form(self):
        with own_folder():
            for form in (1, "Fenetre", True, 1.5, tovera.Null):
                with self.assertRaises(Error) as raised:
                    tovera.Cls_Traduction().Sauver_LangueFeuille(form, "./a.lng")
                self.assertEqual(raised.exception.number, 13)
            # Their members fail, which the member ignores.
            for form in (None, object(), [1, "a", None], {}, Form, Form("A", [None, 1, object()])):
                tovera.Cls_Traduction().Sauver_LangueFeuille(form, "./a.lng")

    def test_an_object_by_its_value(self):
        class Cell:
            def __init__(self, value):
                self.Value = value

        self.assertEqual(tovera.Cls_Date().Chrono(Cell(10), Cell("20")), 10)
        for cell in (object(), Cell(None).__class__, Cell(Cell(10)), Cell(b"1")):
            with self.assertRaises(Error) as raised:
                tovera.Cls_Date().Chrono(cell, 20)
            self.assertEqual(raised.exception.number, 13)


class Session:
    """As much of Lotus Notes as a mail needs."""

    def __init__(self, fails=None):
        self.items = {}
        self.fails = fails

    def GetDatabase(self, server, file):
        self.opened = (server, file)
        if self.fails:
            raise self.fails
        return self

    def OPENMAIL(self):
        pass

    def CreateDocument(self):
        return self

    def ReplaceItemValue(self, name, value):
        self.items[name] = value

    def Send(self, with_form):
        self.sent = with_form


class Sessions(unittest.TestCase):
    def setUp(self):
        self.boxes = []
        before = tovera.set_message_box(lambda *box: self.boxes.append(box))
        self.addCleanup(tovera.set_message_box, before)
        self.internet = tovera.Cls_Internet()

    def send(self, *arguments):
        self.internet.EcrireEmail_LotusNotes("marie@exemple.fr", "Sujet", "Été", "", True, *arguments)

    def test_a_session_is_called_and_comes_back(self):
        session = Session()
        self.internet.nsession = session
        self.assertIs(self.internet.NSession, session)
        self.send()
        self.assertEqual(session.items, {"Subject": "Sujet", "Body": "Été", "SendTo": "marie@exemple.fr"})
        self.assertEqual((session.opened, session.sent), (("", "Mail\\user.nsf"), False))
        self.assertEqual(self.boxes, [("Notes Sendmail OK.", "HoldDLL", 0)])

    def test_any_object_will_do(self):
        self.internet.NSession = session = unittest.mock.MagicMock()
        self.send()
        session.GETDATABASE.assert_called_once_with("", "Mail\\user.nsf")

    def test_a_failure_goes_to_the_handler_of_the_member(self):
        self.internet.NSession = session = Session()
        session.OPENMAIL = unittest.mock.Mock(side_effect=ValueError("panne"))
        self.send()
        self.assertEqual([text for text, _, _ in self.boxes],
                         ["Error opening Notes mailbox: panne", "Unable to connect to Notes mailbox ... Exiting!"])

    def test_what_must_not_be_ignored_comes_out(self):
        for exception in (KeyboardInterrupt(), SystemExit(3), GeneratorExit()):
            self.internet.NSession = Session(exception)
            with self.assertRaises(type(exception)) as raised:
                self.send()
            self.assertIs(raised.exception, exception)

    def test_an_object_of_another_component(self):
        made = []

        def create(prog_id):
            made.append(prog_id)
            return Session() if prog_id == "Notes.Notessession" else None

        before = tovera.set_create_object(create)
        self.addCleanup(tovera.set_create_object, before)
        self.send()
        self.assertEqual(made, ["Notes.Notessession"])
        self.assertIsInstance(self.internet.NSession, Session)

    def test_one_of_our_objects_is_itself_again(self):
        date = tovera.Cls_Date()
        self.internet.NSession = date
        self.assertIs(self.internet.NSession, date)
        self.internet.NSession = self.internet
        self.assertIs(self.internet.NSession, self.internet)

    def test_a_session_must_be_an_object(self):
        self.internet.NSession = session = Session()
        for value in (1, "a", tovera.Null):
            with self.assertRaises(Error) as raised:
                self.internet.NSession = value
            self.assertEqual(raised.exception.number, 13)
        self.assertIs(self.internet.NSession, session)

    def test_the_object_vanishes_in_the_middle_of_its_call(self):
        class Vanishing(Session):
            def GetDatabase(self, server, file):
                test.internet.NSession = None
                del test.internet
                gc.collect()
                return super().GetDatabase(server, file)

        test = self
        self.internet.NSession = Vanishing()
        internet = weakref.ref(self.internet)
        self.send()
        self.assertIsNone(internet())
        self.assertEqual(self.boxes[-1][0], "Notes Sendmail OK.")

    def test_circles_are_collected(self):
        for target in (Session, lambda: self.internet):
            self.internet = tovera.Cls_Internet()
            session = target()
            if session is not self.internet:
                session.internet = self.internet
            self.internet.NSession = session
            seen = weakref.ref(session)
            del session
            del self.internet
            gc.collect()
            self.assertIsNone(seen())

    def test_what_changes_while_it_is_set_is_not_collected(self):
        """The session that goes sets another one; so does the maker of a session that is to be kept."""

        class Going(Session):
            def __del__(self):
                internet.NSession = Kept()

        class Kept(Session):
            pass

        def create(prog_id):
            self.internet.NSession = Kept()
            return Session()

        def look(expected):
            for _ in range(2):
                gc.collect()
            self.assertIs(type(internet.NSession), expected)
            internet.NSession.GetDatabase("", "")

        internet = self.internet
        internet.NSession = Going()
        internet.NSession = None
        look(Kept)
        before = tovera.set_create_object(create)
        self.addCleanup(tovera.set_create_object, before)
        internet.NSession = None
        self.send()
        look(Session)

    def test_a_long_chain_ends(self):
        class Last:
            pass

        last = Last()
        seen = weakref.ref(last)
        self.internet.NSession = last
        del last
        for _ in range(100_000):
            before, self.internet = self.internet, tovera.Cls_Internet()
            self.internet.NSession = before
        del before
        self.assertIsNotNone(seen())
        del self.internet
        self.assertIsNone(seen())

    def test_what_is_used_is_not_collected(self):
        session = Session()
        self.internet.NSession = session
        session.internet = self.internet
        seen = weakref.ref(session)
        del session
        gc.collect()
        self.assertIs(self.internet.NSession, seen())
        self.send()
        self.assertEqual(len(self.boxes), 1)


class Exceptions(unittest.TestCase):
    """Of objects whose failures the member lets through."""

    class Window:
        def __init__(self, failure):
            self.failure = failure

        @property
        def hwnd(self):
            raise self.failure

    def test_the_very_same_exception(self):
        for failure in (ValueError("panne"), KeyError("x"), Error(1004, "Erreur", "Feuille"), OSError(5, "x"),
                        KeyboardInterrupt(), RecursionError(), Exception("\ud800"), ZeroDivisionError()):
            try:
                tovera.Cls_Windows().ParcourirDossier(self.Window(failure), "Choisir")
            except BaseException as raised:
                self.assertIs(raised, failure)
                self.assertEqual(traceback.extract_tb(raised.__traceback__)[-1].name, "hwnd")
            else:
                self.fail(failure)

    def test_a_missing_member(self):
        with self.assertRaises(Error) as raised:
            tovera.Cls_Windows().ParcourirDossier(object(), "Choisir")
        self.assertEqual(raised.exception.number, 438)

    def test_numbers_that_no_failure_has(self):
        for number in (0, 2**32, -(2**32), 2**32 + 5, 2**100, None, "x"):
            failure = Error(number, "Erreur", "Feuille")
            with self.assertRaises(Error) as raised:
                tovera.Cls_Windows().ParcourirDossier(self.Window(failure), "Choisir")
            self.assertIs(raised.exception, failure)

    def test_a_failure_with_a_cause_of_its_own(self):
        """A value that can't be had is a type that doesn't fit; the reason is told as its context."""

        class Cell:
            @property
            def value(self):
                raise ValueError("panne")

        with self.assertRaises(Error) as raised:
            tovera.Cls_Date().Chrono(Cell(), 20)
        self.assertEqual(raised.exception.number, 13)
        self.assertEqual(repr(raised.exception.__context__), "ValueError('panne')")

    def test_a_message_box_that_fails(self):
        def box(text, title, flags):
            raise ValueError(title)

        before = tovera.set_message_box(box)
        self.addCleanup(tovera.set_message_box, before)
        with self.assertRaises(ValueError):
            tovera.Cls_InitREG().CreerREG_Cle("rien")
        tovera.set_message_box(lambda *box: None)
        self.assertIsNone(tovera.Cls_InitREG().CreerREG_Cle("rien"))
