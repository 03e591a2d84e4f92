"""A loop over a progress bar against loops that show nothing."""
import itertools

import harness

import strativo_python

STEPS = 1000000


class Counter:
    """The least that an iterator in Python does for a loop of its own."""

    def __init__(self, steps):
        self.index, self.steps = -1, steps

    def __iter__(self):
        return self

    def __next__(self):
        if self.index >= self.steps:
            raise StopIteration
        self.index += 1
        return self


bench = harness.Bench("Progress bars", reference="empty range", subject="ModalProgressBar", limit=5.0, rounds=15)
names = {"Bar": strativo_python.ModalProgressBar, "Counter": Counter, "count": itertools.count, "n": STEPS}
outer = strativo_python.ModalProgressBar("outer", 3)
bench.case("for i in LOOP: pass, 1e6 steps", {
    "empty range": ("for i in range(n): pass", names),
    "range and a counter object": ("c = count()\nfor i in range(n): next(c)", dict(names, next=next)),
    "ModalProgressBar": ("for i in Bar('x', n): pass", names),
    "iterator in Python": ("for i in Counter(n): pass", names)}, once=True)
with outer:
    names["outer"] = outer
    bench.case("the same, nested in an open bar", {
        "empty range": ("for i in range(n): pass", names),
        "ModalProgressBar": ("for i in Bar('x', n, outer): pass", names)}, once=True)
    bench.case("bar.increment(), 1e6 times", {
        "empty range": ("for i in range(n): pass", names),
        "ModalProgressBar": ("for i in range(n): outer.increment()", names)}, once=True, limit=6.0)
bench.case("a loop of one step", {"ModalProgressBar": ("for i in Bar('x', 0): pass", names)})
bench.finish("Loops of a million steps, in nanoseconds for the whole loop. A view of the bars looks on: the lines of the "
             "runner on standard error.")
