"""The computations of the example plug-ins, on numbers that can be worked out by hand."""
import math
import pathlib
import struct
import sys
import tempfile
import unittest

EXAMPLES = pathlib.Path(__file__).parents[2] / "examples" / "plugins"
sys.path[:0] = [str(EXAMPLES / name) for name in ("velocity_tools", "trace_header_report", "well_tie_quick_look")]

import textual_header
import velocity
import well_tie


class Velocities(unittest.TestCase):
    TIMES, INTERVAL = [1000.0, 2000.0], [2000.0, 4000.0]

    def test_there_and_back(self):
        rms = velocity.rms_from_interval(self.TIMES, self.INTERVAL)
        self.assertAlmostEqual(rms[1], math.sqrt(10e6))
        self.assertAlmostEqual(velocity.average_from_interval(self.TIMES, self.INTERVAL)[1], 3000.0)
        for got, wanted in zip(velocity.interval_from_rms(self.TIMES, rms), self.INTERVAL):
            self.assertAlmostEqual(got, wanted)

    def test_refusals(self):
        for text, reason in (("1000 2000\n900 2500", "increase"), ("1000 -1", "positive"), ("a b", "line 1"), ("", "one")):
            with self.assertRaisesRegex(ValueError, reason):
                velocity.parse_table(text)
        with self.assertRaisesRegex(ValueError, "falls too fast"):
            velocity.interval_from_rms([1000, 1100], [3000, 2000])
        self.assertEqual(velocity.parse_table("# t v\n100;1500\n200, 1600 # x"), ([100, 200], [1500, 1600]))


class Headers(unittest.TestCase):
    def write(self, text, code=1, size=400):
        binary = bytearray(400)
        struct.pack_into(">H2xHxxh", binary, 16, 4000, 1501, code)
        binary[300] = 1
        with tempfile.NamedTemporaryFile(delete=False) as file:
            file.write(text.ljust(3200, text[-1:]) + binary[:size])
        self.addCleanup(pathlib.Path(file.name).unlink)
        return file.name

    def test_ebcdic_and_ascii(self):
        card = "C 1 CLIENT ÄCME & SONS"
        for text in (card.encode("cp037") + b"\x40", card.replace("Ä", "A").encode("ascii") + b" "):
            lines, fields = textual_header.read(self.write(text))
            self.assertEqual(len(lines), 40)
            self.assertIn(lines[0], (card, card.replace("Ä", "A")))
            self.assertEqual(list(fields.values()), [4000, 1501, "IBM float", "1.0"])

    def test_refusals(self):
        for path in (self.write(b"x", size=10), self.write(b"x", code=77)):
            with self.assertRaises(textual_header.NotSegy):
                textual_header.report(path)


class WellTie(unittest.TestCase):
    def test_one_interface(self):
        # 100 m at 3048 m/s, then 100 m twice as dense: one reflection of 1/3 after 65.6 ms.
        rows = "0 100 2\n100 100 4\n200 100 4\n"
        seismogram = well_tie.synthetic(rows)
        peak = max(range(len(seismogram)), key=lambda i: seismogram[i])
        self.assertAlmostEqual(seismogram[peak], 1 / 3, places=6)
        self.assertEqual(peak * well_tie.SAMPLE_MS, 64.0)
        self.assertEqual(well_tie.draw(seismogram).count("*"), len(seismogram))
        with self.assertRaisesRegex(ValueError, "increase"):
            well_tie.synthetic("0 100 2\n0 100 2\n1 100 2")
