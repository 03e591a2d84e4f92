"""Element access, growth and bulk input of the typed arrays against a hand-written C type and plain Boost.Python."""
import copy
import pickle

import harness

import arrays_ctype
import arrays_plainboost
import numpy
import strativo_python as sp

COUNT = 100_000
MODULES = {"strativo_python": sp, "C type": arrays_ctype, "Boost.Python": arrays_plainboost}
NUMBERS = [float(i) for i in range(COUNT)]
MEMORY = numpy.arange(10 * COUNT, dtype=numpy.float32)

bench = harness.Bench("Typed arrays", reference="C type", subject="strativo_python", limit=1.3)
spaces = {who: {"A": module.FloatArray, "a": module.FloatArray(10), "long": module.FloatArray(COUNT),
                "numbers": NUMBERS, "memory": MEMORY} for who, module in MODULES.items()}
spaces["list"] = {"A": list, "a": [0.0] * 10, "long": [0.0] * COUNT, "numbers": NUMBERS}
spaces["numpy"] = {"a": numpy.zeros(10, numpy.float32), "long": numpy.zeros(COUNT, numpy.float32)}


def case(name, statement, who, setup="pass", **options):
    bench.case(name, {w: (statement, spaces[w], setup) for w in who}, **options)


for statement in ("a[7]", "a[7] = 1.5", "len(a)"):
    case(statement, statement, spaces)
case("for x in long: pass (100,000)", "for x in long: pass", [w for w in spaces if w != "Boost.Python"], once=True)
case("append(x) (100,000)", "for x in numbers: add(x)", ["strativo_python", "C type", "Boost.Python", "list"],
     "add = A().append", once=True)
case("extend(list of 100,000)", "b.extend(numbers)", ["strativo_python", "C type", "Boost.Python", "list"],
     "b = A()", once=True)
case("extend(1,000,000 float32)", "b.extend(memory)", ["strativo_python", "C type"], "b = A()", once=True)

# Without a counterpart in the small comparison types; numpy's own operation stands beside where there is one.
big = sp.FloatArray()
big.extend(MEMORY)
own = {"a": big, "b": copy.copy(big), "numpy": numpy, "copy": copy, "pickle": pickle, "A": sp.FloatArray,
       "D": sp.DoubleArray, "memory": MEMORY, "other": MEMORY.copy(), "swapped": MEMORY.astype(">f4")}
for name, ours, theirs in (("a == b, 1,000,000", "a == b", "numpy.array_equal(memory, other)"),
                           ("reverse, 1,000,000", "a.reverse()", "memory[::-1].copy()"),
                           ("copy, 1,000,000", "copy.copy(a)", "copy.copy(memory)"),
                           ("pickle and back, 1,000,000", "pickle.loads(pickle.dumps(a, 5))",
                            "pickle.loads(pickle.dumps(memory, 5))"),
                           ("float32 to 64 bits, 1,000,000", "D().extend(memory)", "memory.astype(float)"),
                           ("swapped float32, 1,000,000", "A().extend(swapped)", "swapped.astype(numpy.float32)")):
    bench.case(name, {"strativo_python": (ours, own), "numpy": (theirs, own)}, once=True)
bench.case("numpy.asarray(a)", {"strativo_python": ("numpy.asarray(a)", own)})
bench.case("FloatArray(10)", {who: ("A(10)", spaces[who]) for who in MODULES}, limit=2.5)
bench.finish("Bulk operations are single statements on so many elements. The C type of the comparison takes nothing but "
             "a list or float32 memory and tests neither exported views nor the memory that is free.")
