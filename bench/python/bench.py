"""Calls from Python against what one would use instead: one table of ratios, both sides in turn in one run.

    bench.py FOLDER [TEXT]    the folder that holds the package; with TEXT only the rows whose name contains it
"""

import datetime
import statistics
import sys
import time

sys.path.insert(0, sys.argv[1])
import tovera

ROUNDS = 301
SECONDS_A_ROUND = 0.001


class Plain:
    """What a call costs in Python itself."""

    def Chrono(self, DepartSec, ArriveeSec):
        return ArriveeSec - DepartSec

    def Paques(self, Annee):
        a, b, c = Annee % 19, Annee // 100, Annee % 100
        h = (19 * a + b - b // 4 - (b - (b + 8) // 25 + 1) // 3 + 15) % 30
        k = (32 + 2 * (b % 4) + 2 * (c // 4) - h - c % 4) % 7
        n = h + k - 7 * ((a + 11 * h + 22 * k) // 451) + 114
        return datetime.datetime(Annee, n // 31, n % 31 + 1)

    @property
    def IntituleMonnaie(self):
        return self._unit

    @IntituleMonnaie.setter
    def IntituleMonnaie(self, unit):
        self._unit = unit


def chrono(target):
    def loop(count):
        for _ in range(count):
            getattr(target, "Chrono")(10, 20)

    return loop


def chrono_named(target):
    def loop(count):
        for _ in range(count):
            target.Chrono(ArriveeSec=20, DepartSec=10)

    return loop


def easter(target):
    def loop(count):
        for _ in range(count):
            getattr(target, "Paques")(2027)

    return loop


def label(target):
    def loop(count):
        for _ in range(count):
            target.IntituleMonnaie = "euro"
            target.IntituleMonnaie

    return loop


def creation(made):
    def loop(count):
        for _ in range(count):
            made()

    return loop


def amounts(words):
    """Amounts of up to a million, in an order that repeats only after all of them."""

    def loop(count):
        for number in range(count):
            words(number * 61_803_399 % 100_000_000 / 100)

    return loop


def our_words():
    conversion = tovera.Cls_Conversion()
    conversion.IntituleMonnaie = "euro"
    conversion.IntitulePetiteMonnaie = "centime"
    convert = conversion.ConvertirNombreEnLettre
    return amounts(lambda amount: convert(amount, True))


def their_words():
    from num2words import num2words

    return amounts(lambda amount: num2words(amount, lang="fr", to="currency"))


def glib_call():
    import gi

    gi.require_version("GLib", "2.0")
    from gi.repository import GLib

    def loop(count):
        for _ in range(count):
            getattr(GLib, "bit_nth_lsf")(20, 1)

    return loop


def glib_method():
    from gi.repository import GLib

    date = GLib.Date.new_julian(730000)

    def loop(count):
        for _ in range(count):
            getattr(date, "is_last_of_month")()

    return loop


def rows():
    date = tovera.Cls_Date()
    plain = Plain()
    yield "call by name, two integers", chrono(date), "plain method", lambda: chrono(plain), "at most 2"
    yield "call by name, two integers", chrono(date), "PyGObject function", glib_call, ""
    yield "call by name, two integers", chrono(date), "PyGObject method", glib_method, ""
    yield "call with named arguments", chrono_named(date), "plain method", lambda: chrono_named(plain), ""
    yield "Easter, a datetime", easter(date), "plain method", lambda: easter(plain), ""
    label_holder = tovera.Cls_Conversion()
    yield "a property, set and read", label(label_holder), "plain property", lambda: label(plain), ""
    yield "an object made and dropped", creation(tovera.Cls_Date), "plain class", lambda: creation(Plain), ""
    yield "amounts in words", our_words(), "num2words", their_words, "at most 0.01"


def timed(loop, count):
    start = time.perf_counter()
    loop(count)
    return (time.perf_counter() - start) / count


def count_for(loop):
    count = 1
    while True:
        start = time.perf_counter()
        loop(count)
        if time.perf_counter() - start > SECONDS_A_ROUND / 4:
            return max(1, int(count * SECONDS_A_ROUND / (time.perf_counter() - start)))
        count *= 4


def compare(ours, theirs):
    """The medians of both in nanoseconds, and the median of the rounds' ratios."""
    counts = count_for(ours), count_for(theirs)
    pairs = [(timed(ours, counts[0]), timed(theirs, counts[1])) for _ in range(ROUNDS)]
    medians = [statistics.median(side) * 1e9 for side in zip(*pairs)]
    return *medians, statistics.median(a / b for a, b in pairs)


def main():
    wanted = sys.argv[2] if len(sys.argv) > 2 else ""
    print(f"{'Python':28}{'ns':>9}  {'against':22}{'ns':>9}{'ratio':>10}  goal")
    for name, ours, peer, make_theirs, goal in rows():
        if wanted not in name:
            continue
        try:
            theirs = make_theirs()
        except (ImportError, ValueError):
            print(f"bench: {peer} is not installed: its rows are left out", file=sys.stderr)
            continue
        our_time, their_time, ratio = compare(ours, theirs)
        print(f"{name:28}{our_time:9.0f}  {peer:22}{their_time:9.0f}{ratio:10.4g}  {goal}")


main()
