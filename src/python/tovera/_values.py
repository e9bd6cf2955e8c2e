"""Values that Automation has and Python has not, and the failures of calls."""


class Error(Exception):
    """A failure of the component: its Automation error number, what happened, and who says so."""

    def __init__(self, number, description="", source=""):
        super().__init__(number, description, source)
        self.number = number
        self.description = description
        self.source = source

    def __str__(self):
        return f"{self.number}: {self.description}"


class MemberError(Error, AttributeError):
    """Error 438: a member that the object has not."""


class _Constant:
    """A value that there is one of."""

    __slots__ = ("_name",)

    def __init__(self, name):
        self._name = name

    def __repr__(self):
        return f"tovera.{self._name}"

    def __bool__(self):
        return False

    def __reduce__(self):
        return self._name


Null = _Constant("Null")
Nothing = _Constant("Nothing")
Missing = _Constant("Missing")

# The types of variables, with their numbers in the C interface.
_TYPES = {
    "I2": 2,
    "I4": 3,
    "R4": 4,
    "R8": 5,
    "DATE": 7,
    "BSTR": 8,
    "OBJECT": 9,
    "BOOL": 11,
    "VARIANT": 12,
    "UI1": 17,
    "ARRAY": 0x2008,
}


class ByRef:
    """A variable that a call may change: its value is in `value` afterwards.

    With a type (I2, I4, R4, R8, DATE, BSTR, OBJECT, BOOL, UI1, ARRAY) the variable keeps it; without one it takes
    values of any type.
    """

    __slots__ = ("value", "_type")

    def __init__(self, value=None, type="VARIANT"):
        if type not in _TYPES:
            raise Error(13, f"Type inconnu : {type}", "tovera")
        self.value = value
        self._type = _TYPES[type]

    def __repr__(self):
        return f"tovera.ByRef({self.value!r})"


class Array(list):
    """Texts with the index of the first one, as Automation numbers them.

    A list or tuple that is passed to a member begins with 1; an Array begins where it says.
    """

    def __init__(self, texts=(), lower=1):
        super().__init__(texts)
        self.lower = lower

    @property
    def upper(self):
        """The index of the last text."""
        return self.lower + len(self) - 1

    def __repr__(self):
        return f"tovera.Array({super().__repr__()}, lower={self.lower})"
