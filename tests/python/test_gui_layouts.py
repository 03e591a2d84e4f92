"""Layouts and containers: who keeps whom alive, what they refuse, what they say."""
import gc
import unittest
import weakref

import qt_warnings
import strativo_python as sp
from strativo_python import (Align, Button, Dialog, FormLayout, Frame, GridLayout, GroupBox, HBoxLayout, LineEdit,
                             MenuBar, Orientation, ScrollArea, Splitter, StackedWidget, TabWidget, VBoxLayout, Widget)

BIG = 1 << 40


class QuietCase(unittest.TestCase):
    """Nothing that a script does wrong may reach Qt, which would warn."""

    def setUp(self):
        warnings = []
        watching = qt_warnings.collected(warnings)
        watching.__enter__()
        self.addCleanup(lambda: self.assertEqual(warnings, []))
        self.addCleanup(watching.__exit__, None, None, None)

    def refuses(self, error, text, call, *arguments, **keywords):
        with self.assertRaises(error) as caught:
            call(*arguments, **keywords)
        self.assertEqual(str(caught.exception), text)

    def texts(self, layout):
        return [layout.widget(index).text for index in range(layout.count)]


class Lifetimes(QuietCase):
    def test_dropped_widgets_stay_in_a_layout_that_waits(self):
        outer, inner = VBoxLayout(), HBoxLayout()
        for layout, text in ((outer, "a"), (inner, "b"), (inner, "c")):
            layout.addWidget(Button(text))
        outer.addLayout(inner)
        reference = weakref.ref(inner)
        del layout, inner
        gc.collect()
        self.assertIs(outer.layout(1), reference())
        self.assertEqual(self.texts(outer.layout(1)), ["b", "c"])
        window = Widget(layout=outer)
        self.assertIs(outer.widget(0).parentWidget, window)
        self.assertIs(reference().widget(1).parentWidget, window)
        self.assertIs(window.layout, outer)
        del outer
        gc.collect()
        self.assertEqual(self.texts(window.layout.layout(1)), ["b", "c"])
        kept = window.layout
        del window
        self.assertTrue(kept.deleted and reference() is None)
        with self.assertRaisesRegex(RuntimeError, "VBoxLayout has been deleted"):
            kept.addStretch()

    def test_subclass_comes_back(self):
        class Row(HBoxLayout):
            def __init__(self, note):
                super().__init__(spacing=3, margin=4)
                self.note = note

        window = Dialog(layout=Row("mine"))
        gc.collect()
        self.assertEqual((window.layout.note, window.layout.spacing, window.layout.margin), ("mine", 3, 4))

    def test_what_dies_leaves_the_layout(self):
        layout, owner = VBoxLayout(), Widget()
        child, bar = Button("child", owner), MenuBar(owner)
        layout.addWidget(child)
        layout.addWidget(Button("stays"))
        layout.menuBar = bar
        del owner
        self.assertTrue(child.deleted and bar.deleted)
        self.assertEqual(self.texts(layout), ["stays"])
        self.assertIsNone(layout.menuBar)
        window = Widget(layout=layout)
        window.show()
        window.hide()

    def test_cycles_are_collected(self):
        class Part(Button):
            pass

        def waiting():
            layout, part = VBoxLayout(), Part("x")
            part.layout_of_mine = layout
            layout.addWidget(part)
            return weakref.ref(part)

        def in_window():
            window, outer, inner, part = Dialog(), VBoxLayout(), HBoxLayout(), Part("x")
            part.window, inner.window, outer.inner = window, window, inner
            outer.addLayout(inner)
            inner.addWidget(part)
            part.clicked(lambda: (window, outer))
            window.setLayout(outer)
            return weakref.ref(part)

        def containers():
            tabs, scroll, page = TabWidget(), ScrollArea(), Part("x")
            page.tabs, scroll.page = tabs, page
            scroll.widget = page
            tabs.addTab(scroll, "scrolled")
            return weakref.ref(page)

        for make in (waiting, in_window, containers):
            with self.subTest(make.__name__):
                reference = make()
                gc.collect()
                self.assertIsNone(reference())
                kept = gc.collect()  # nothing was visited twice
                self.assertEqual(kept, 0)

    def test_inner_layouts_forget_a_menu_bar_that_goes(self):
        window, inner = Widget(layout=VBoxLayout()), HBoxLayout()
        window.layout.addLayout(inner)
        bar = MenuBar()
        inner.menuBar = bar
        bar.parentWidget = None
        del bar
        self.assertIsNone(inner.menuBar)
        inner.menuBar = MenuBar()
        self.assertIsInstance(inner.menuBar, MenuBar)

    def test_label_of_a_row_goes_with_a_layout_without_window(self):
        form = FormLayout()
        for _ in range(3):
            form.addRow("Name", Button())
        self.assertEqual(form.count, 6)
        del form
        window = Widget(layout=FormLayout())
        window.layout.addRow("Name", Button())
        self.assertEqual(window.layout.count, 2)


class Refusals(QuietCase):
    def test_widget_messages(self):
        for layout in (HBoxLayout(), GridLayout(), FormLayout()):
            self.refuses(TypeError, "Layout.addWidget(), expected type 'Widget' but got 'NoneType' instead",
                         layout.addWidget, None)
            self.refuses(TypeError, "Layout.addWidget(), expected type 'Widget' but got 'HBoxLayout' instead",
                         layout.addWidget, HBoxLayout())
            self.refuses(TypeError, "Layout.addWidget(), expected type 'int' for optional argument 'stretch' but got "
                                    "'str' instead", layout.addWidget, Button(), stretch="1")
            self.refuses(TypeError, "Layout.addWidget(), expected type 'Alignment' for optional argument 'align' but got "
                                    "'float' instead", layout.addWidget, Button(), align=1.0)
            self.refuses(TypeError, "Layout.addLayout(), expected 'Layout' but got 'NoneType' instead",
                         layout.addLayout, None)
            self.refuses(TypeError, "Layout.addLayout(), expected type 'int' for optional argument 'align' but got 'str' "
                                    "instead", layout.addLayout, HBoxLayout(), align="x")
            self.assertRaises(ValueError, layout.addWidget, Button(), stretch=-1)
            self.assertEqual(layout.count, 0)
        box = HBoxLayout()
        self.refuses(TypeError, "BoxLayout.addStretch(), expected type 'int' but got 'NoneType' instead",
                     box.addStretch, None)
        self.refuses(TypeError, "BoxLayout.addStretch(), expected type 'int' but got 'float' instead",
                     box.addStretch, 1.5)
        self.assertRaises((OverflowError, ValueError), box.addStretch, BIG)
        for name, value in (("margin", -1), ("spacing", -2), ("spacing", 1 << 30)):
            self.assertRaises(ValueError, setattr, box, name, value)
        self.assertRaises(RuntimeError, box.addRow, "label", Button())
        self.refuses(IndexError, "BoxLayout.widget(), index (0) out of range (0 -> -1)", box.widget, 0)
        self.assertRaises(RuntimeError, sp.Layout)

    def test_one_place_for_a_widget(self):
        first, button = HBoxLayout(), Button("one")
        first.addWidget(button)
        taken = "%s, supplied 'Widget' is already in a layout or container"
        places = {"Layout.addWidget()": VBoxLayout().addWidget, "StackedWidget.addWidget()": StackedWidget().addWidget,
                  "Splitter.addWidget()": Splitter().addWidget,
                  "ScrollArea.widget": lambda widget: setattr(ScrollArea(), "widget", widget),
                  "TabWidget.addTab()": lambda widget: TabWidget().addTab(widget, "label")}

        def refused_everywhere():
            for method, put in places.items():
                self.refuses(ValueError, taken % method, put, button)

        refused_everywhere()
        self.refuses(ValueError, taken % "Layout.addWidget()", first.addWidget, button)
        window = Widget(layout=first)
        refused_everywhere()
        self.assertEqual(self.texts(first), ["one"])
        first.removeWidget(button)
        self.assertEqual((first.count, button.parentWidget), (0, None))
        scroll, stack, tabs, splitter = ScrollArea(), StackedWidget(), TabWidget(), Splitter()
        for put, count in ((lambda: setattr(scroll, "widget", button), lambda: scroll.widget is not None),
                           (lambda: stack.addWidget(button), lambda: stack.count),
                           (lambda: tabs.addTab(button, "x"), lambda: tabs.count),
                           (lambda: splitter.addWidget(button), lambda: splitter.count)):
            put()
            self.assertEqual(count(), 1)
            refused = VBoxLayout()
            self.refuses(ValueError, taken % "Layout.addWidget()", refused.addWidget, button)
            button.parentWidget = None
            self.assertEqual(count(), 0)
        window.layout.addWidget(button)
        self.assertIs(button.parentWidget, window)

    def test_one_place_for_a_layout(self):
        layout, other = HBoxLayout(), VBoxLayout()
        window = Widget(layout=layout)
        self.refuses(RuntimeError, "Widget.setLayout(), the widget already has a layout", window.setLayout, layout)
        self.refuses(RuntimeError, "Widget.setLayout(), the widget already has a layout", window.setLayout, other)
        self.refuses(ValueError, "Widget.setLayout(), supplied 'Layout' is already in a widget or layout",
                     Widget().setLayout, layout)
        self.refuses(ValueError, "Layout.addLayout(), supplied 'Layout' is already in a widget or layout",
                     other.addLayout, layout)
        self.refuses(ValueError, "Layout.addLayout(), a layout can not be inside itself", other.addLayout, other)
        middle, inner = HBoxLayout(), VBoxLayout()
        other.addLayout(middle)
        middle.addLayout(inner)
        self.refuses(ValueError, "Layout.addLayout(), a layout can not be inside itself", inner.addLayout, other)
        self.refuses(TypeError, "Widget.setLayout(), expected type 'Layout' but got 'NoneType' instead",
                     Widget().setLayout, None)
        self.assertIs(window.layout, layout)
        self.assertIsNone(StackedWidget().layout)
        for widget in (ScrollArea(), Splitter(), TabWidget(), StackedWidget()):
            self.assertRaises(RuntimeError, widget.setLayout, VBoxLayout())

    def test_nothing_inside_itself(self):
        window, layout = Dialog(), VBoxLayout()
        child = Dialog(parent=window)
        layout.addWidget(window)
        inside = "%s, a widget can not be inside itself"
        self.refuses(ValueError, inside % "Widget.setLayout()", window.setLayout, layout)
        self.refuses(ValueError, inside % "Widget.setLayout()", child.setLayout, layout)
        self.assertIsNone(child.layout)
        layout.removeWidget(window)
        child.setLayout(layout)
        self.refuses(ValueError, inside % "Layout.addWidget()", layout.addWidget, window)
        self.refuses(ValueError, inside % "Layout.addWidget()", layout.addWidget, child)
        waiting = HBoxLayout()
        waiting.addWidget(window)
        self.refuses(ValueError, inside % "Layout.addLayout()", layout.addLayout, waiting)
        self.refuses(ValueError, inside % "Widget.parentWidget", setattr, window, "parentWidget", child)
        stack = StackedWidget(parent=child)
        self.refuses(ValueError, inside % "StackedWidget.addWidget()", stack.addWidget, stack)
        waiting.removeWidget(window)
        self.refuses(ValueError, inside % "StackedWidget.addWidget()", stack.addWidget, window)

    def test_parts_of_other_widgets_stay(self):
        scroll, page = ScrollArea(), Widget()
        scroll.widget = page
        viewport = page.parentWidget
        for call in (lambda: VBoxLayout().addWidget(viewport), lambda: viewport.setLayout(VBoxLayout()),
                     lambda: setattr(viewport, "parentWidget", None)):
            self.assertRaisesRegex(RuntimeError, "fixed part", call)


class Arranging(QuietCase):
    def test_box(self):
        box = VBoxLayout()
        box.addWidget(Button("a"), 2, Align.Right | Align.Top)
        box.addStretch(5)
        box.addLayout(HBoxLayout(), align=Align.Center)
        self.assertEqual([box.stretch(index) for index in range(3)], [2, 5, 0])
        self.assertEqual(box.alignment(0), Align.Right | Align.Top)
        self.assertEqual(box.alignment(2), Align.Center)
        self.assertIsNone(box.widget(1))
        self.assertIsNone(box.layout(0))

    def test_grid(self):
        grid = GridLayout(horizontalSpacing=1, verticalSpacing=2)
        grid.addWidget(Button("a"), 0, 1)
        grid.addWidget(Button("b"), 2, 0, 1, 2, align=Align.Left)
        self.assertEqual((grid.rowCount, grid.columnCount, grid.spacing), (3, 2, -1))
        grid.addRow("label", Button("c"))
        grid.addWidget(Button("below"), align=Align.Right)
        grid.addLayout(HBoxLayout(), row=0, column=2)
        self.assertEqual((grid.rowCount, grid.columnCount), (5, 3))
        for place in ((-1, 0), (0, 10000), (9999, 0, 2, 1), (0, 0, 0, 1)):
            self.assertRaises(ValueError, grid.addWidget, Button(), *place)
        self.assertRaises(OverflowError, grid.addWidget, Button(), BIG, 0)
        self.assertRaises(TypeError, grid.addWidget, Button(), "0", 0)
        self.refuses(TypeError, "Layout.addWidget(), expected type 'Widget' but got 'NoneType' instead",
                     grid.addWidget, None, 0, 0)
        self.assertEqual((grid.count, grid.rowCount), (6, 5))

    def test_form(self):
        form = FormLayout(labelAlignment=Align.Right, formAlignment=Align.HCenter | Align.Top)
        self.assertEqual((form.labelAlignment, form.formAlignment), (Align.Right, Align.HCenter | Align.Top))
        field = Button("field")
        form.addRow("&Inline", field)
        form.addRow(Button("label"), HBoxLayout())
        form.addRow(Button("over both columns"))
        form.addWidget(Button("over both columns too"))
        count = form.count
        for row in ((field,), ("label", field), ("label", None), (5, Button()), (None, Button()), (None,)):
            self.assertRaises((TypeError, ValueError), form.addRow, *row)
        both = Button()
        self.assertRaises(ValueError, form.addRow, both, both)
        self.assertEqual(form.count, count)
        window = Widget(layout=form)
        self.assertIs(field.parentWidget, window)

    def test_letter_of_a_row_leads_into_a_layout(self):
        # A label that leads nowhere shows its ampersand, so it is wider.
        starts = []
        for wrapped in (False, True):
            field, form = LineEdit(), FormLayout()
            if wrapped:
                inner, row = VBoxLayout(), HBoxLayout(margin=0)
                inner.addWidget(field)
                inner.margin = 0
                row.addLayout(inner)
            form.addRow("&Inline", row if wrapped else field)
            window = Dialog(layout=form)
            window.show()
            starts.append(field.toGlobalPosition((0, 0)).x - window.toGlobalPosition((0, 0)).x)
            window.hide()
        self.assertEqual(*starts)

    def test_menu_bar(self):
        window = Dialog(layout=VBoxLayout())
        first, second = MenuBar(), MenuBar()
        window.layout.menuBar = first
        self.assertIs(first.parentWidget, window)
        self.assertRaises(ValueError, setattr, VBoxLayout(), "menuBar", first)
        self.assertRaises(TypeError, setattr, window.layout, "menuBar", Button())
        window.layout.menuBar = second
        self.assertEqual((first.parentWidget, window.layout.menuBar), (None, second))
        window.layout.menuBar = None
        self.assertEqual((second.parentWidget, window.layout.menuBar), (None, None))


class Containers(QuietCase):
    def test_errors_name_their_property_though_a_conversion_sets_the_same_one(self):
        frame, scroll = Frame(lineWidth=2), ScrollArea()

        class Number:
            def __index__(self):
                scroll.lineWidth = 3
                return 2**40

        self.refuses(OverflowError, "Frame.lineWidth, the value must fit 32 bits", setattr, frame, "lineWidth",
                     Number())
        self.assertEqual((frame.lineWidth, scroll.lineWidth), (2, 3))

    def test_scroll_area_hands_back(self):
        scroll, first, second = ScrollArea(widgetResizable=True, alignment=Align.Center), Button("1"), Button("2")
        scroll.widget = first
        scroll.widget = second
        self.assertEqual((first.text, first.parentWidget, scroll.widget), ("1", None, second))
        self.refuses(TypeError, "ScrollArea.widget, expected type 'Widget' but got 'int' instead",
                     setattr, scroll, "widget", 5)
        self.assertIs(scroll.widget, second)
        reference = weakref.ref(second)
        del second
        self.assertIsNotNone(reference())
        scroll.widget = None
        gc.collect()
        self.assertEqual((scroll.widget, scroll.alignment), (None, Align.Center))

    def test_stack(self):
        stack, seen = StackedWidget(), []
        stack.stackChanged(seen.append)
        pages = [Button(str(number)) for number in range(3)]
        self.assertEqual([stack.addWidget(pages[0]), stack.addWidget(pages[1]), stack.insertWidget(1, pages[2])],
                         [0, 1, 1])
        stack.currentIndex = 2
        stack.currentWidget = pages[2]
        self.assertEqual((stack.currentIndex, stack.count, seen), (1, 3, [0, 2, 1]))
        text = "StackedWidget.%s, %s"
        for value in (3, -1):
            self.refuses(IndexError, "StackedWidget.currentIndex, index (%d) out of range (0 -> 2" % value,
                         setattr, stack, "currentIndex", value)
        self.assertRaises(IndexError, setattr, stack, "currentIndex", BIG)
        for method, call in (("currentWidget", lambda value: setattr(stack, "currentWidget", value)),
                             ("addWidget()", stack.addWidget),
                             ("insertWidget()", lambda value: stack.insertWidget(0, value))):
            for value in (None, 5):
                self.refuses(TypeError, text % (method, "expected type 'Widget' but got '%s' instead") %
                             type(value).__name__, call, value)
        self.refuses(ValueError, "StackedWidget.currentWidget, supplied 'Widget' is not a child of this 'StackedWidget'",
                     setattr, stack, "currentWidget", Button())
        self.refuses(ValueError, "StackedWidget.addWidget(), supplied 'Widget' is already a child the 'StackedWidget'",
                     stack.addWidget, pages[0])
        self.refuses(ValueError,
                     "StackedWidget.addWidget(), supplied 'Widget' is already a child of the 'StackedWidget'",
                     stack.insertWidget, 0, pages[0])
        stack.removeWidget(pages[2])
        self.assertEqual((stack.count, pages[2].parentWidget, pages[2].text), (2, None, "2"))
        self.assertEqual([stack.widget(index) for index in range(2)], pages[:2])

    def test_tabs(self):
        tabs, seen, pages = TabWidget(), [], [Button(str(number)) for number in range(3)]
        tabs.tabChanged(seen.append)
        icon = sp.Icon.getBuiltinIcon("pythoneditor24")
        self.assertEqual([tabs.addTab(pages[0], "a"), tabs.addTab(pages[1], icon, "b"), tabs.addTab(pages[2], "c")],
                         [0, 1, 2])
        free, text = Button(), "TabWidget.addTab(), expected '%s' for %s argument not '%s'"
        self.refuses(TypeError, text % ("Widget", "first", "NoneType"), tabs.addTab, None, "x")
        self.refuses(TypeError, text % ("str", "second", "int"), tabs.addTab, free, 5)
        self.refuses(TypeError, text % ("Icon", "second", "str"), tabs.addTab, free, "x", "y")
        self.refuses(TypeError, text % ("str", "third", "NoneType"), tabs.addTab, free, icon, None)
        self.refuses(ValueError, "TabWidget.removeTab(), tab 'z' not found", tabs.removeTab, "z")
        self.refuses(ValueError, "TabWidget.setCurrentTab(), tab '3' not found", tabs.setCurrentTab, 3)
        self.refuses(TypeError, "TabWidget.indexOf(), expected 'Widget' not 'NoneType'", tabs.indexOf, None)
        self.refuses(TypeError, "TabWidget.indexOf(), expected 'Widget' not 'str'", tabs.indexOf, "a")
        self.assertEqual((tabs.count, tabs.indexOf(pages[1]), tabs.indexOf(free)), (3, 1, -1))
        for tab in ("b", 2, pages[0]):
            tabs.setCurrentTab(tab)
        self.assertEqual(seen, [0, 1, 2, 0])
        tabs.removeTab("b")
        self.assertEqual((tabs.count, pages[1].text, pages[1].parentWidget), (2, "1", None))
        for name, good, bad in (("tabPosition", 3, 4), ("tabShape", 1, -1)):
            setattr(tabs, name, good)
            self.assertRaises(ValueError, setattr, tabs, name, bad)
            self.assertEqual(getattr(tabs, name), good)

    def test_page_removes_itself(self):
        class Page(Frame):
            def hideEvent(self, event):
                log.append(tabs.count)

        log, tabs = [], TabWidget()
        tabs.addTab(Page(), "only")
        tabs.show()
        tabs.tabChanged(lambda index: log.append(index))
        tabs.removeTab(0)
        gc.collect()
        self.assertEqual(tabs.count, 0)
        self.assertIn(-1, log)
        tabs.hide()

    def test_splitter(self):
        splitter = Splitter(Orientation.Vertical, handleWidth=3, childrenCollapsible=False)
        splitter.addWidget(Button("b"))
        splitter.insertWidget(0, Button("a"))
        self.assertEqual([splitter.widget(index).text for index in range(splitter.count)], ["a", "b"])
        splitter.height = 203
        splitter.show()
        splitter.sizes = [50, 150]
        self.assertEqual(splitter.sizes, [50, 150])
        for sizes in ([1], [1, -1], [1, "2"], 5, [1, BIG]):
            self.assertRaises((TypeError, ValueError, OverflowError), setattr, splitter, "sizes", sizes)
        self.assertEqual(splitter.sizes, [50, 150])
        splitter.hide()

    def test_group_box(self):
        group, seen = GroupBox("Input", checkable=True, checked=False, titleAlignment=Align.HCenter), []
        group.toggled(seen.append)
        group.checked = True
        self.assertEqual((group.title, group.titleAlignment, seen), ("Input", Align.HCenter, [True]))


if __name__ == "__main__":
    unittest.main()
