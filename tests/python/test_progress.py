"""Loops over progress bars: how often they run, how they end, what they refuse, what they leave behind."""
import gc
import threading
import unittest

from strativo_python import ModalProgressBar, ModalProgressBarIterator

from leaks import growth, under_address_sanitizer


def numbers(bar):
    return [int(step) for step in bar]


class Loops(unittest.TestCase):
    def test_run_one_time_more_than_there_are_steps(self):
        self.assertEqual(numbers(ModalProgressBar("a", 3)), [0, 1, 2, 3])
        self.assertEqual(numbers(ModalProgressBar("a", 0)), [0])
        self.assertEqual(numbers(ModalProgressBar("a", -1)), [])
        self.assertEqual(numbers(ModalProgressBar("a", -(2**31))), [])
        self.assertEqual(len(numbers(ModalProgressBar("default"))), 101)
        bar = ModalProgressBar(parent=None, steps=1, name="\u00e9 \U0001f40d")
        self.assertEqual(numbers(bar) + numbers(bar), [0, 1, 0, 1])
        self.assertIs(bar.cancelled(), False)

    def test_cancel_ends_the_loop_at_the_next_step(self):
        bar, seen = ModalProgressBar("a", 10), []
        for step in bar:
            seen.append(step.value())
            if len(seen) == 3:
                self.assertIsNone(bar.cancel())
        self.assertEqual((seen, bar.cancelled()), ([0, 1, 2], True))
        self.assertEqual(numbers(bar), [])
        before = ModalProgressBar("b", 10)
        before.cancel()
        self.assertEqual(numbers(before), [])

    def test_iterator(self):
        iterator = iter(ModalProgressBar("a", 2))
        self.assertIsInstance(iterator, ModalProgressBarIterator)
        self.assertEqual((int(iterator), iterator.value(), str(iterator)), (-1, -1, "-1"))
        first = next(iterator)
        second = iterator.next()
        self.assertEqual((int(first), str(second), second.value(), int(iterator)), (1, "1", 1, 1))
        self.assertEqual("abc"[second], "b")
        copy = iter(iterator)
        next(copy)
        self.assertEqual((int(copy), int(iterator)), (2, 1))
        self.assertRaises(StopIteration, copy.next)
        self.assertEqual(int(next(iterator)), 2)
        for _ in range(2):
            self.assertRaises(StopIteration, next, iterator)
        self.assertEqual(int(iterator), 2)
        self.assertRaises(RuntimeError, ModalProgressBarIterator)

    def test_same_bar_in_two_loops(self):
        bar = ModalProgressBar("a", 2)
        self.assertEqual([(int(i), int(j)) for i in bar for j in bar], [(i, j) for i in range(3) for j in range(3)])
        self.assertEqual([(int(i), int(j)) for i, j in zip(bar, bar)], [(0, 0), (1, 1), (2, 2)])

    def test_nested_to_any_depth(self):
        def dive(depth, parent=None):
            bar = ModalProgressBar("level %d" % depth, 1, parent)
            return sum(1 if depth == 0 else dive(depth - 1, bar) for _ in bar)

        self.assertEqual(dive(8), 2 ** 9)

    def test_parent_may_go_while_the_child_runs(self):
        outer = iter(ModalProgressBar("outer", 3))
        next(outer)
        parent = ModalProgressBar("parent", 3)
        inner = ModalProgressBar("inner", 5, parent)
        steps = iter(parent)
        seen = []
        for step in inner:
            seen.append(int(step))
            steps = parent = outer = None
            gc.collect()
        self.assertEqual(seen, [0, 1, 2, 3, 4, 5])
        self.assertEqual(numbers(inner), seen)


class Statement(unittest.TestCase):
    def test_with(self):
        with ModalProgressBar("a", 4) as bar:
            self.assertEqual((bar.increment(), bar.increment(n=2), bar.increment(0)), (True, True, True))
            self.assertRaises(ValueError, bar.increment, -1)
            self.assertRaises(TypeError, bar.increment, 1, 2)
            self.assertRaises(TypeError, bar.increment, count=1)
            self.assertRaises(OverflowError, bar.increment, 2**31)
            self.assertRaises(RuntimeError, bar.__enter__)
            bar.cancel()
            self.assertFalse(bar.increment())
        self.assertRaisesRegex(RuntimeError, "not open", bar.increment)
        with self.assertRaises(ZeroDivisionError), ModalProgressBar("b", 4) as bar:
            1 / 0
        self.assertRaises(RuntimeError, bar.increment)
        with bar:
            self.assertEqual(numbers(bar), [0, 1, 2, 3, 4])
            self.assertEqual(numbers(bar), [0, 1, 2, 3, 4])

    def test_loop_in_with_uses_the_open_bar_and_leaves_it_open_when_left_early(self):
        with ModalProgressBar("a", 4) as bar:
            for _ in bar:
                break
            self.assertTrue(bar.increment())

    def test_break_closes(self):
        bar = ModalProgressBar("a", 4)
        for step in bar:
            self.assertTrue(bar.increment())
            break
        self.assertRaises(RuntimeError, bar.increment)
        self.assertEqual((int(step), int(next(step))), (0, 1))

        def generate():
            for one in bar:
                yield one

        steps = generate()
        next(steps)
        self.assertTrue(bar.increment())
        del steps
        self.assertRaises(RuntimeError, bar.increment)


class BadInput(unittest.TestCase):
    def test_arguments(self):
        for parent in (3, "bar", iter(ModalProgressBar("a", 1))):
            with self.assertRaises(TypeError) as caught:
                ModalProgressBar("a", 1, parent)
            self.assertEqual(str(caught.exception), "ModalProgressBar, type 'ModalProgressBar' expected for optional "
                                                    "argument 'parent', instead got '%s'" % type(parent).__name__)
        self.assertRaises(TypeError, ModalProgressBar, 1, 1)
        self.assertRaises(TypeError, ModalProgressBar, "a", "1")
        self.assertRaises(TypeError, ModalProgressBar, "a", 1.5)
        self.assertRaises(TypeError, ModalProgressBar)
        self.assertRaises(UnicodeEncodeError, ModalProgressBar, "\ud800", 1)
        for steps in (2**31, -(2**31) - 1, 2**70):
            self.assertRaisesRegex(OverflowError, "32 bits, instead got %d" % steps, ModalProgressBar, "a", steps)

    def test_subclasses(self):
        class Named(ModalProgressBar):
            def __init__(self):
                super().__init__("named", 2)

        class Empty(ModalProgressBar):
            def __init__(self):
                pass

        class Step(ModalProgressBarIterator):
            def __init__(self):
                pass

        self.assertEqual(numbers(Named()), [0, 1, 2])
        self.assertRaises(TypeError, ModalProgressBar, "a", 1, Empty())
        self.assertRaises(TypeError, iter, Empty())
        self.assertRaises(TypeError, Empty().__enter__)
        for use in (next, int, str, iter, Step.next, Step.value):
            self.assertRaises(TypeError, use, Step())

    def test_other_threads(self):
        bar, errors, kept = ModalProgressBar("a", 3), [], [iter(ModalProgressBar("b", 3))]

        def work():
            for use in (lambda: iter(bar), lambda: next(kept[0]), lambda: bar.__enter__()):
                try:
                    use()
                except RuntimeError as error:
                    errors.append(error)
            kept.clear()  # the last one to know the bar
            bar.cancel()

        thread = threading.Thread(target=work)
        thread.start()
        thread.join()
        self.assertEqual(len(errors), 3)
        self.assertEqual((numbers(bar), bar.cancelled()), ([], True))

    def test_nothing_is_lost(self):
        def work(rounds):
            for _ in range(rounds):
                bar = ModalProgressBar("a", 2)
                with bar:
                    for step in bar:
                        iter(step)
                for step in bar:
                    break

        if not under_address_sanitizer():
            self.assertLess(growth(work, 2000, 20000), 2000)
