"""Ready-made utility functions with French names and messages, called by name as Automation hosts do it.

    import tovera
    tovera.Dispatch("KADRELDLL.Cls_Date").Paques(2027)
"""

from ._values import Array, ByRef, Error, MemberError, Missing, Nothing, Null
from ._tovera import *  # the classes, Dispatch and what can be set
from ._tovera import __version__
