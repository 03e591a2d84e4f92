"""The example plug-ins: their computations on numbers that can be worked out by hand, and the one with a dialog. The
runner has opened a project of the tests' own.
"""
import contextlib
import importlib.util
import io
import math
import pathlib
import struct
import sys
import tempfile
import unittest

EXAMPLES = pathlib.Path(__file__).parents[2] / "examples" / "plugins"
sys.path[:0] = [str(EXAMPLES / name) for name in (
    "velocity_tools", "trace_header_report", "well_tie_quick_look", "log_attributes")]

import attribute_dialog
import log_attributes
import strativo_python as sp
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


class LogAttributes(unittest.TestCase):
    DEPTHS = [0.0, 10.0, 20.0, 30.0, 40.0]
    LAS = "~W\n NULL. -999 : NULL\n~C\n DEPT.M :\n TWT.MS :\n GR.GAPI : GAMMA\n~A\n%s"

    def well(self, name, values=(3, 1, -999, 1, 3)):
        path = pathlib.Path(sp.getProject().getFilename(sp.ObjectId.Well, name))
        path.parent.mkdir(exist_ok=True)
        rows = ("%g %g %g\n" % (depth, 2 * depth, value) for depth, value in zip(self.DEPTHS, values))
        path.write_text(self.LAS % "".join(rows))
        self.addCleanup(path.unlink)
        return path

    def test_windows(self):
        def attribute(kind, values, length):
            return log_attributes.window_attribute(self.DEPTHS, values, kind, length, range(5))

        values = [3.0, 1.0, math.nan, 1.0, 3.0]
        for kind, ends, middle in ((log_attributes.MEAN, 2, 1), (log_attributes.RMS, math.sqrt(5), 1),
                                   (log_attributes.DEVIATION, 1, 0)):
            for got, wanted in zip(attribute(kind, values, 20), (ends, ends, middle, ends, ends)):
                self.assertAlmostEqual(got, wanted)
        self.assertTrue(math.isnan(attribute(log_attributes.MEAN, values, 5)[2]))
        # Small differences on a large number survive.
        deviations = attribute(log_attributes.DEVIATION, [1e8 + value for value in (0, 1, 0, 1, 0)], 80)
        self.assertAlmostEqual(deviations[2], math.sqrt(0.24), places=6)
        self.assertEqual(log_attributes.smooth([0.0, 4.0, 0.0, math.nan], 1)[:3], [4 / 3, 2.0, 4 / 3])

    def test_refused_files(self):
        path = self.well("broken")
        for text, reason in ((self.LAS % "0 0 1\n1 2\n", "line 9"), (self.LAS % "1 0 1\n1 0 1\n", "increase"),
                             (self.LAS % "", "no curves"), ("PNG", "no curves")):
            path.write_text(text)
            with self.assertRaisesRegex(ValueError, reason):
                log_attributes.read_las(path)

    def test_dialog(self):
        self.well("A & B")
        self.well("broken", values=(1,)).write_text("~A\n")
        spec = importlib.util.spec_from_file_location("log_attributes_main", EXAMPLES / "log_attributes" / "main.py")
        main = importlib.util.module_from_spec(spec)
        spec.loader.exec_module(main)
        main.ask()
        dialog = main.dialog
        self.assertFalse(dialog.compute.enabled)
        for name, text in (("<C>", "no well of this name"), ("broken", "no curves"), ("a/b", "can not be used")):
            dialog.well.text = name
            self.assertIn(text, dialog.message.text)
            self.assertEqual((dialog.compute.enabled, dialog.curve.count, dialog.picture.text), (False, 0, ""))
        dialog.well.text = " A & B "
        dialog.attribute.currentText = log_attributes.MEAN
        dialog.smoothing.value = 0
        before = dialog.picture.text
        dialog.window.value = 20
        self.assertNotEqual(dialog.picture.text, before)
        self.assertEqual((dialog.curve.currentText, dialog.message.text), ("GR", "5 samples, 0 to 40 m"))
        self.assertEqual(dialog.summary.text, "Mean of GR: 1.0 to 2.0 GAPI, on average 1.8")
        dialog.save.checked = True
        output = io.StringIO()
        with contextlib.redirect_stdout(output):
            dialog.accept()
        self.assertRegex(output.getvalue(), r"GR_MEAN of well A & B, window 20 m:\n +0\.00 m +2\.00 GAPI\n")
        saved = pathlib.Path(sp.getProject().getFilename(sp.ObjectId.Well, "A & B GR_MEAN"))
        self.addCleanup(saved.unlink)
        log = log_attributes.read_las(saved)
        self.assertEqual(log.curves["GR_MEAN"], [2, 2, 1, 2, 2])
        self.assertTrue(math.isnan(log.curves["GR"][2]))

        # What was cancelled is forgotten, what was computed comes back.
        main.ask()
        dialog.window.value, dialog.curve.currentText = 90, "TWT"
        dialog.reject()
        main.ask()
        self.assertEqual((dialog.window.value, dialog.curve.currentText, dialog.well.text), (20, "GR", "A & B"))
        dialog.reject()
