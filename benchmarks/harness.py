"""Measures Python statements against each other and keeps the results.

    strativo run benchmarks/bench_NAME.py FOLDER

FOLDER holds the comparison modules of the build (build/release/benchmarks/modules); it is put on the search path when
this file is imported. A benchmark looks like this:

    bench = harness.Bench("Typed arrays", reference="C type", subject="strativo_python", limit=1.3)
    bench.case("a[i]", {"strativo_python": ("a[7]", {"a": sp.FloatArray(10)}), "C type": ("a[7]", {"a": c.Array(10)})})
    bench.finish()

The machine is never quiet, so the candidates of a case take turns within one process, each shows the minimum of its
rounds with the empty loop taken off, and only the ratio of two minima means anything. finish() prints the table and
replaces the section of that title in RESULTS.md; it ends the script with status 1 when a case is above the limit by
more than NOISE.
"""
import os
import platform
import sys
import timeit

HERE = os.path.dirname(os.path.abspath(__file__))
RESULTS = os.path.join(HERE, "RESULTS.md")
# Nanoseconds by which two runs of the same short statement differ.
NOISE = 3.0

sys.path[:0] = [os.path.abspath(folder) for folder in sys.argv[1:2]]


def machine():
    """The machine in one line."""
    model = "unknown processor"
    with open("/proc/cpuinfo") as info:
        for line in info:
            if line.startswith("model name"):
                model = line.split(":", 1)[1].strip()
                break
    return "%s, %d cores, Linux %s, CPython %s" % (
        model, os.cpu_count(), platform.release(), platform.python_version())


def command_line():
    """The command that was given, as it would be typed from the root of the project."""
    root = os.path.dirname(HERE)
    words = [os.path.relpath(os.path.abspath(word), root) if os.path.exists(word) else word for word in sys.argv]
    return "strativo run " + " ".join(words)


def write_section(title, body):
    """Puts `body` between the markers of the section `title`, which is added at the end when it is not there yet."""
    begin, end = "<!-- begin %s -->" % title, "<!-- end %s -->" % title
    section = "%s\n## %s\n\n%s\n%s\n" % (begin, title, body.strip(), end)
    text = ""
    if os.path.exists(RESULTS):
        with open(RESULTS) as file:
            text = file.read()
    before, found, rest = text.partition(begin + "\n")
    if found:
        text = before + section + rest.partition(end + "\n")[2]
    else:
        text = (text.rstrip() + "\n\n" if text.strip() else "") + section
    temporary = RESULTS + ".tmp"
    with open(temporary, "w") as file:
        file.write(text)
    os.replace(temporary, RESULTS)


def report(title, lines, remark=""):
    """Prints the lines of a result and keeps them, with the command and the machine, as the section `title`."""
    table = "\n".join(lines)
    print("== %s\n%s" % (title, table))
    write_section(title, "`%s`\n\n%s.\n\n%s\n%s" % (command_line(), machine(), table, "\n" + remark if remark else ""))


class Bench:
    """The cases of one section. `subject` is held against `reference`, at most `limit` times its time (None: no
    limit). Times are in nanoseconds per execution of a statement."""

    def __init__(self, title, reference, subject, limit=None, rounds=41, seconds=0.01):
        self.title, self.reference, self.subject, self.limit = title, reference, subject, limit
        self.rounds, self.seconds = rounds, seconds
        self.candidates, self.rows, self.too_slow = [], [], []
        os.sched_setaffinity(0, {max(os.sched_getaffinity(0))})

    def case(self, name, statements, once=False, limit=None):
        """`statements`: candidate -> (statement, names it uses) or (statement, names, set-up before each round);
        a name that the statement assigns must come from the set-up. `once`: the statement is long by itself and runs
        once a round, without an empty loop taken off."""
        timers = {who: timeit.Timer(what[0], what[2] if len(what) > 2 else "pass", globals=what[1])
                  for who, what in statements.items()}
        trial = 100
        number = 1 if once else max(10, int(trial * self.seconds / max(timers[self.subject].timeit(trial), 1e-9)))
        empty = timeit.Timer("pass")
        times = {who: [] for who in timers}
        loop = []
        for _ in range(self.rounds):
            loop.append(0.0 if once else empty.timeit(number))
            for who, timer in timers.items():
                times[who].append(timer.timeit(number))
        least = {who: max((min(values) - min(loop)) / number * 1e9, 0.1) for who, values in times.items()}
        ratio = least[self.subject] / least[self.reference] if self.reference in least else None
        self.candidates += [who for who in statements if who not in self.candidates]
        self.rows.append((name, least, ratio))
        limit = self.limit if limit is None else limit
        if limit is not None and ratio is not None and least[self.subject] > limit * least[self.reference] + NOISE:
            self.too_slow.append("%s: %.2f times %s, at most %.2f is wanted" % (name, ratio, self.reference, limit))
        return least

    def table(self):
        head = "| ns | %s | %s / %s |" % (" | ".join(self.candidates), self.subject, self.reference)
        lines = [head, "|---" * (len(self.candidates) + 2) + "|"]
        for name, least, ratio in self.rows:
            cells = ["%.1f" % least[who] if who in least else "" for who in self.candidates]
            lines.append("| `%s` | %s | %s |" % (name, " | ".join(cells), "" if ratio is None else "%.2f" % ratio))
        return lines

    def finish(self, remark=""):
        report(self.title, self.table(), remark)
        if self.too_slow:
            print("\n".join(["too slow:"] + self.too_slow))
            raise SystemExit(1)
