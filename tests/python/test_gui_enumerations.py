"""The numbers and names of the enumerations for windows, which scripts and files rely on."""
import pickle
import unittest

import strativo_python
from strativo_python import Align, ImageConversion, Key, PenStyle, SliderTickPosition

MEMBERS = {
    "MouseMode": "Unknown 0, Selection 1, SquareSelection 2, CrossNavigation 3, Translation 4, Zoom 5",
    "ScrollDirection": "Down 0, Up 1, NoDirection 2, Left 3, Right 4",
    "EventType": "MouseButtonPress 2, MouseButtonRelease 3, MouseMove 5, KeyPress 6, KeyRelease 7, Enter 10, Show 17, "
                 "Hide 18, Close 19, Wheel 31, DragEnter 60, DragMove 61, DragLeave 62, Drop 63, Scroll 205",
    "Modality": "NonModal 0, Window 1, Application 2",
    "DialogResponse": "Rejected 0, Accepted 1",
    "KeyboardModifiers": "NoModifier 0, Shift 0x2000000, Control 0x4000000, Alt 0x8000000, Meta 0x10000000, "
                         "Keypad 0x20000000",
    "MouseButton": "NoButton 0, Left 1, Right 2, Middle 4",
    "Align": "Left 1, Leading 1, Right 2, Trailing 2, HCenter 4, Justify 8, Absolute 16, Top 32, Bottom 64, "
             "VCenter 128, Baseline 256, Center 132",
    "CheckState": "Unchecked 0, PartiallyChecked 1, Checked 2",
    "Orientation": "Horizontal 1, Vertical 2",
    "ComboBoxSizePolicy": "AdjustToContents 0, AdjustToContentsOnFirstShow 1, AdjustToMinimumContentsLength 2, "
                          "AdjustToMinimumContentsLengthWithIcon 3",
    "FileDialogType": "Open 0, Save 1",
    "ScrollSizeAdjust": "AdjustIgnored 0, AdjustToContentsOnFirstShow 1, AdjustToContents 2",
    "ScrollBarPolicy": "AsNeeded 0, AlwaysOff 1, AlwaysOn 2",
    "ScrollEventState": "Started 0, Updated 1, Finished 2",
    "SliderTickPosition": "NoTicks 0, TicksAbove 1, TicksLeft 1, TicksBelow 2, TicksRight 2, TicksBothSides 3",
    "FrameShadow": "Plain 16, Raised 32, Sunken 48",
    "FrameShape": "NoFrame 0, Box 1, Panel 2, WinPanel 3, HLine 4, VLine 5, StyledPanel 6",
    "TextFormat": "PlainText 0, RichText 1, AutoText 2",
    "PenStyle": "NoPen 0, SolidLine 1, DashLine 2, DotLine 3, DashDotLine 4, DashDotDotLine 5",
    "Colors": "Black 2, White 3, DarkGray 4, Gray 5, LightGray 6, Red 7, Green 8, Blue 9, Cyan 10, Magenta 11, "
              "Yellow 12, DarkRed 13, DarkGreen 14, DarkBlue 15, DarkCyan 16, DarkMagenta 17, DarkYellow 18, "
              "Transparent 19",
    "Key": "Escape 0x1000000, Tab 0x1000001, Backtab 0x1000002, Backspace 0x1000003, Return 0x1000004, "
           "Enter 0x1000005, Insert 0x1000006, Delete 0x1000007, Pause 0x1000008, Print 0x1000009, Clear 0x100000b, "
           "Home 0x1000010, End 0x1000011, Up 0x1000013, Down 0x1000015, PageUp 0x1000016, PageDown 0x1000017, "
           "Shift 0x1000020, Control 0x1000021, Meta 0x1000022, Alt 0x1000023, CapsLock 0x1000024, NumLock 0x1000025, "
           "ScrollLock 0x1000026, "
           + "".join("F%d %d, " % (number, 0x100002f + number) for number in range(1, 13))
           + "Space 32, ExclamationPoint 33, DoubleQuote 34, NumberSign 35, Dollar 36, Percent 37, Ampersand 38, "
             "Apostrophe 39, LeftParen 40, RightParen 41, Plus 43, Comma 44, Minus 45, Period 46, Slash 47, "
           + "".join("Number_%d %d, " % (number, 48 + number) for number in range(10))
           + "Colon 58, SemiColon 59, Less 60, Equal 61, Greater 62, QuestionMark 63, at 64, LeftBracket 91, "
             "Backslash 92, RightBracket 93, Underscore 95, QuoteLeft 96, BraceLeft 123, BraceRight 125, Tilde 126",
}


class Enumerations(unittest.TestCase):
    def test_names_numbers_and_order(self):
        for name, members in MEMBERS.items():
            expected = [(label, int(number, 0)) for label, number in (each.split() for each in members.split(", "))]
            enumeration = getattr(strativo_python, name)
            self.assertEqual([(label, int(value)) for label, value in enumeration.names.items()], expected, name)
            for label, number in expected:
                self.assertEqual(getattr(enumeration, label), number)

    def test_second_names_are_equal_and_the_first_one_is_shown(self):
        self.assertEqual(SliderTickPosition.TicksLeft, SliderTickPosition.TicksAbove)
        for shown, value in (("Left", Align(1)), ("Right", Align(2)), ("TicksAbove", SliderTickPosition(1)),
                             ("AutoColor", ImageConversion(0)),
                             ("Left", pickle.loads(pickle.dumps(Align.Leading)))):
            self.assertEqual(value.name, shown)
        self.assertEqual(Align.Leading.name, "Leading")

    def test_combinations_and_numbers_without_a_name(self):
        self.assertEqual(Align.Left | Align.Top, 33)
        self.assertEqual(Align.HCenter | Align.VCenter, Align.Center)
        self.assertEqual(Key(ord("A")), 65)
        self.assertFalse(any(len(name) == 1 for name in Key.names))
        self.assertEqual(repr(PenStyle.DotLine), "strativo_python.PenStyle.DotLine")

    def test_numbers_that_the_binding_layer_has_no_room_for(self):
        enumerations = [each for each in vars(strativo_python).values()
                        if isinstance(each, type) and each.__base__.__name__ == "enum"]
        self.assertGreater(len(enumerations), 30)
        for enumeration in enumerations:
            derived = type("Derived", (enumeration,), {})
            for make in (enumeration, derived):
                for number in (2**60, -2**60, 2**64 + 1, 10**6000):
                    with self.assertRaisesRegex(OverflowError, "^%s, the number must lie between" % make.__name__):
                        make(number)
            # Around the class there is no way either.
            self.assertRaises(TypeError, int.__new__, enumeration, 2**60)
            self.assertRaises(TypeError, enumeration.__new__, bool, 5)
            self.assertRaises(TypeError, enumeration.__base__, 5)
            self.assertRaises(OverflowError, enumeration.from_bytes, bytes(range(1, 30)), "little")
        for number in (2**60 - 1, 1 - 2**60):
            self.assertEqual(Align(number), number)
            self.assertEqual(pickle.loads(pickle.dumps(Align(number))), number)

    def test_an_exception_while_a_value_is_shown(self):
        class Odd(Align):
            @property
            def __module__(self):
                raise LookupError("odd")

        self.assertRaises(LookupError, repr, Odd(77))
        self.assertRaises(LookupError, str, Odd(77))
