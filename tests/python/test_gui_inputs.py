"""Labels, fields, boxes, sliders and bars: what comes back, what is told when, and what is refused."""
import math
import pathlib
import tempfile
import unittest

from strativo_python import (Align, CheckBox, CheckState, ComboBox, ComboBoxSizePolicy, DoubleSpinBox, Icon, Label,
                             LineEdit, ObjectId, Orientation, ProgressBar, RadioButton, ScaleType, Slider,
                             SliderTickPosition, SpinBox, TextFormat, Widget)

# A picture of 3 x 2 pixels.
PICTURE = b"P6\n3 2\n255\n" + bytes(range(18))


class Refusals(unittest.TestCase):
    def refuses(self, exception, message, work, *arguments, **named):
        with self.assertRaises(exception) as caught:
            work(*arguments, **named)
        self.assertEqual(str(caught.exception), message)


class ComboBoxes(Refusals):
    def test_data_comes_back_as_a_plain_value(self):
        class Name(str):
            pass

        box = ComboBox()
        given = [(None, None), (True, 1), (False, 0), (-2**31, -2**31), (2**63 - 1, 2**63 - 1), (1.5, 1.5),
                 (math.inf, math.inf), ("", ""), (Name("one"), "one"), (ObjectId.Horizon3d, 29), (ScaleType.World, int(ScaleType.World))]
        for value, _ in given:
            box.addItem("item", userData=value)
        for index, (_, kept) in enumerate(given):
            box.currentIndex = index
            for data in (box.currentData, box.itemData(index)):
                self.assertEqual((data, type(data)), (kept, type(kept)))
        box.currentIndex = -1
        self.assertEqual((box.currentData, box.currentText), (None, ""))

    def test_what_is_refused_changes_nothing(self):
        box = ComboBox()
        box.addItems(("a", "b"))
        for value in ([], b"x", object(), 1j, Widget):
            self.refuses(TypeError, "ComboBox.addItem(), conversion to 'userData' not supported for type '%'",
                         box.addItem, "c", userData=value)
            self.refuses(TypeError, "ComboBox.insertItem(), conversion to 'userData' not supported for type '%'",
                         box.insertItem, 0, "c", None, value)
        self.refuses(TypeError, "ComboBox.addItem(), expected 'str' but got 'int' instead", box.addItem, 5)
        self.refuses(TypeError, "ComboBox.addItem(), expected 'Icon' but got 'int' instead", box.addItem, "c", 5)
        self.refuses(TypeError, "ComboBox.addItems(), expected 'list' but got 'str' instead", box.addItems, "cd")
        self.refuses(TypeError, "ComboBox, expected 'str' but got 'int' for element 1 of list", box.addItems, ["c", 5])
        self.assertRaises(OverflowError, box.addItem, "c", userData=2**63)
        for index in (-1, 2):
            message = "ComboBox.%s, index (" + str(index) + ") out of range (0 -> 1)"
            for method in (box.removeItem, box.itemText, box.itemData):
                self.refuses(IndexError, message % (method.__name__ + "()"), method, index)
        self.refuses(IndexError, "ComboBox.insertItem(), index (3) out of range (0 -> 2)", box.insertItem, 3, "c")
        self.refuses(IndexError, "ComboBox.currentIndex, index (2) out of range (0 -> 1)", setattr, box,
                     "currentIndex", 2)
        self.refuses(ValueError, "ComboBox.currentText, item 'c' not found", setattr, box, "currentText", "c")
        self.assertRaises(IndexError, box.removeItem, 2**32)
        self.assertEqual(([box.itemText(index) for index in range(box.count)], box.currentIndex), (["a", "b"], 0))

    def test_texts_may_change_the_box_while_they_are_read(self):
        box = ComboBox()

        class Clearing:
            def __index__(self):
                box.clear()
                return 0

        box.addItems(box.clear() or "late %d" % number for number in range(2))
        self.assertEqual(box.count, 2)
        self.assertRaises(IndexError, box.removeItem, Clearing())

    def test_selection_is_told_and_follows_the_items(self):
        box, told = ComboBox(), []
        box.selectionChanged(told.append)
        box.addItem("b")
        box.insertItem(0, "a")
        box.insertItem(2, "c")
        self.assertEqual((told, box.currentText), ([0, 1], "b"))
        box.currentIndex = 1
        box.currentText = "c"
        box.removeItem(2)
        box.clear()
        self.assertEqual(told, [0, 1, 2, 1, -1])

    def test_finds_the_exact_text_among_many(self):
        box = ComboBox(sizeAdjustPolicy=ComboBoxSizePolicy.AdjustToContents)
        box.addItems("Line %d" % number for number in range(100000))
        box.insertItem(100000, "line 7")
        self.assertEqual([box.index(text) for text in ("Line 7", "line 7", "Line", "Line 99999")],
                         [7, 100000, -1, 99999])

    def test_typed_text_needs_no_item(self):
        box = ComboBox(editable=True, currentText="typed")
        self.assertEqual((box.currentText, box.currentIndex, box.count), ("typed", -1, 0))


class Numbers(Refusals):
    def test_value_is_set_after_what_bounds_and_rounds_it(self):
        fine = DoubleSpinBox(value=1234.56789, maximum=2000, minimum=0.0005, decimals=4)
        self.assertEqual((fine.value, fine.minimum, fine.maximum), (1234.5679, 0.0005, 2000.0))
        for widget in (SpinBox, Slider, ProgressBar):
            far = widget(value=-150, maximum=-100, minimum=-200)
            self.assertEqual((far.value, far.minimum, far.maximum), (-150, -200, -100))

    def test_values_beyond_the_bounds_and_crossing_bounds(self):
        for widget in (SpinBox, Slider, ProgressBar, DoubleSpinBox):
            told = []
            number = widget(minimum=10, maximum=20, value=15)
            number.valueChanged(told.append)
            for value in (25, 25, 5, 12):
                number.value = value
            self.assertEqual(told, [20, 10, 12])
            number.minimum = 30
            self.assertEqual((number.minimum, number.maximum, number.value, told[3:]),
                             (30, 30, number.value, [number.value] if widget is not ProgressBar else told[3:]))
            number.maximum = 4
            self.assertEqual((number.minimum, number.maximum), (4, 4))
            self.assertIs(type(told[0]), float if widget is DoubleSpinBox else int)

    def test_impossible_numbers(self):
        box = DoubleSpinBox(value=2.5)
        for name in ("value", "minimum", "maximum", "singleStep"):
            for value in (math.nan, math.inf, -math.inf):
                self.refuses(ValueError, "DoubleSpinBox.%s, the value must be finite" % name, setattr, box, name,
                             value)
        self.assertEqual((box.value, box.minimum, box.maximum, box.singleStep), (2.5, 0.0, 99.99, 1.0))
        for number, name in ((box, "singleStep"), (SpinBox(), "singleStep"), (Slider(), "singleStep"),
                             (Slider(), "pageStep"), (Slider(), "tickInterval")):
            message = "%s.%s, a step can not be negative" % (type(number).__name__, name)
            self.refuses(ValueError, message, setattr, number, name, -1)
        for widget in (SpinBox, Slider, ProgressBar):
            self.assertRaises(OverflowError, widget, value=2**31)
            self.refuses(TypeError, widget.__name__ + ".value, expected 'int' but got 'float' instead", widget,
                         value=1.0)

    def test_bars_start_anew(self):
        bar, told = ProgressBar(maximum=10, textFormat="%v of %m"), []
        bar.valueChanged(told.append)
        bar.value = 3
        bar.reset()
        self.assertEqual((bar.value, bar.textFormat, told[0]), (-1, "%v of %m", 3))

    def test_sliders_lie_and_can_stand(self):
        self.assertEqual(Slider().orientation, Orientation.Horizontal)
        slider = Slider(Orientation.Vertical, tickPosition=SliderTickPosition.TicksLeft)
        self.assertEqual((slider.orientation, slider.tickPosition),
                         (Orientation.Vertical, SliderTickPosition.TicksLeft))


class Switches(unittest.TestCase):
    def test_states_of_check_boxes(self):
        box, told = CheckBox("Depth"), []
        box.stateChanged(told.append)
        box.checked = True
        box.checkState = CheckState.PartiallyChecked
        box.checkState = CheckState.Unchecked
        self.assertEqual(told, [CheckState.Checked, CheckState.PartiallyChecked, CheckState.Unchecked])
        self.assertTrue(all(type(state) is CheckState for state in told) and box.tristate)

    def test_one_radio_button_of_a_widget_is_on(self):
        group, other, told = Widget(), Widget(), []
        first, second = RadioButton("Time", group, checked=True), RadioButton("Depth", group)
        elsewhere = RadioButton("Other", other, checked=True)
        first.stateChanged(lambda on: told.append(("first", on)))
        second.stateChanged(lambda on: told.append(("second", on)))
        second.checked = True
        self.assertEqual(sorted(told), [("first", False), ("second", True)])
        self.assertIs(told[0][1].__class__, bool)
        self.assertTrue(elsewhere.checked)


class Texts(Refusals):
    def test_fields_tell_of_changes(self):
        field, told = LineEdit("Senja", clearButtonEnabled=True), []
        field.textChanged(told.append)
        field.text = "Senja"
        field.text = "Lofoten"
        self.assertFalse(field.hasSelectedText)
        field.selectAll()
        self.assertEqual((field.hasSelectedText, field.selectedText), (True, "Lofoten"))
        field.clear()
        self.assertEqual(told, ["Lofoten", ""])

    def test_labels_show_a_text_or_a_picture(self):
        label = Label("<b>Top</b>", alignment=Align.Right | Align.Top, textFormat=TextFormat.PlainText, lineWidth=2)
        self.assertEqual((label.text, label.alignment, label.lineWidth), ("<b>Top</b>", Align.Right | Align.Top, 2))
        self.refuses(ValueError, "4096 is no combination of Align", setattr, label, "alignment", 4096)
        self.refuses(TypeError, "Label.alignment, expected 'Align' but got 'Orientation' instead", setattr, label,
                     "alignment", Orientation.Vertical)
        self.assertEqual(label.alignment, Align.Right | Align.Top)
        with tempfile.TemporaryDirectory() as folder:
            path = pathlib.Path(folder, "picture.ppm")
            path.write_bytes(PICTURE)
            label.icon = Icon(str(path))
        self.assertEqual(label.text, "")
        label.text = "again"
        self.assertEqual(label.text, "again")


class Connectors(Refusals):
    def test_what_can_not_be_called(self):
        for widget, names in ((ComboBox, ["selectionChanged"]), (CheckBox, ["stateChanged"]),
                              (RadioButton, ["stateChanged"]), (Slider, ["valueChanged"]),
                              (ProgressBar, ["valueChanged"]), (SpinBox, ["valueChanged"]),
                              (DoubleSpinBox, ["valueChanged"]),
                              (LineEdit, ["textChanged", "returnPressed", "editingFinished"])):
            for name in names:
                message = "%s.%s(), expected callable object, but got 'int' instead" % (widget.__name__, name)
                self.refuses(TypeError, message, getattr(widget(), name), 5)
