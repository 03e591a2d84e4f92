"""The dialog of the plug-in: what is asked, and what comes of it while it is asked."""
import base64
import html
import math
import os

import strativo_python as sp

import log_attributes

DEFAULTS = {"well": "", "curve": "", "attribute": log_attributes.RMS, "window": 40, "smoothing": 2,
            "colour": "#2f7fd6", "save": False}
COLOURS = {"Blue": "#2f7fd6", "Orange": "#e07b1a", "Green": "#2e9e5b", "Red": "#d64545"}


class WellField(sp.LineEdit):
    """The name of a well of the project, to type or to drop here from the project browser."""

    def __init__(self):
        super().__init__(placeholderText="Type a name or drop a well here", clearButtonEnabled=True, acceptDrops=True)

    @staticmethod
    def dropped(event):
        """The name of the first well that is dragged, None when there is none."""
        data = event.mimeData
        for kind, filename in zip(data.objectIds, data.objectFilenames):
            if kind == sp.ObjectId.Well:
                return os.path.splitext(os.path.basename(filename))[0]
        return None

    def dragEnterEvent(self, event):
        if self.dropped(event) is not None:
            event.accept()
        else:
            event.ignore()

    dragMoveEvent = dragEnterEvent

    def dropEvent(self, event):
        self.text = self.dropped(event)
        event.accept()


class AttributeDialog(sp.Dialog):
    """Nothing is computed for good in here: accepted() is the moment to take log, result and settings()."""

    def __init__(self, parent=None):
        super().__init__("Well Log Attribute", parent)
        self.log, self.problem = None, ""
        self.well = WellField()
        self.message = sp.Label()
        self.curve, self.attribute, self.colour = sp.ComboBox(), sp.ComboBox(), sp.ComboBox()
        self.attribute.addItems(list(log_attributes.SHORT))
        for name, colour in COLOURS.items():
            self.colour.addItem(name, userData=colour)
        self.window = sp.SpinBox(minimum=5, maximum=200, singleStep=5, suffix=" m")
        self.smoothing = sp.SpinBox(maximum=20, specialValueText="None", suffix=" passes")
        self.save = sp.CheckBox("&Add the result to the project as a well")
        self.picture = sp.Label(textFormat=sp.TextFormat.RichText, alignment=sp.Align.Center,
                                toolTip="The curve in grey, its attribute in colour")
        self.picture.setMinimumSize(440, 120)  # the dialog has its size before there is a preview
        self.summary = sp.Label()
        self.compute = sp.Button("C&ompute", default=True)
        self.cancel = sp.Button("Cancel")

        form = sp.FormLayout(labelAlignment=sp.Align.Right)
        form.addRow("&Well", self.well)
        form.addRow("", self.message)
        form.addRow("&Curve", self.curve)
        form.addRow("A&ttribute", self.attribute)
        form.addRow("Window &length", self.with_slider(self.window))
        form.addRow("&Smoothing", self.with_slider(self.smoothing))
        form.addRow("Colou&r", self.colour)
        form.addRow("", self.save)
        shown = sp.VBoxLayout()
        shown.addWidget(self.picture, stretch=1)
        shown.addWidget(self.summary)
        buttons = sp.HBoxLayout()
        buttons.addStretch()
        buttons.addWidget(self.compute)
        buttons.addWidget(self.cancel)
        everything = sp.VBoxLayout(margin=12, spacing=10)
        everything.addLayout(form)
        everything.addWidget(sp.GroupBox("Preview", layout=shown), stretch=1)
        everything.addLayout(buttons)
        self.setLayout(everything)

        self.compute.clicked(self.accept)
        self.cancel.clicked(self.reject)
        self.restore(DEFAULTS)
        self.well.textChanged(self.read_well)
        for signal in (self.curve.selectionChanged, self.attribute.selectionChanged, self.colour.selectionChanged,
                       self.window.valueChanged, self.smoothing.valueChanged):
            signal(self.update_preview)

    @staticmethod
    def with_slider(field):
        """The number and a slider that follow each other; setting a value that is there already calls nobody."""
        slider = sp.Slider(sp.Orientation.Horizontal, minimum=field.minimum, maximum=field.maximum)
        slider.valueChanged(lambda value: setattr(field, "value", value))
        field.valueChanged(lambda value: setattr(slider, "value", value))
        row = sp.HBoxLayout()
        row.addWidget(field, stretch=2)  # proportions, so that sliders below each other have one length
        row.addWidget(slider, stretch=5)
        return row

    def settings(self):
        return {"well": self.well.text.strip(), "curve": self.curve.currentText,
                "attribute": self.attribute.currentText, "window": self.window.value,
                "smoothing": self.smoothing.value, "colour": self.colour.currentData,
                "save": self.save.checked}

    def restore(self, settings):
        self.attribute.currentText = settings["attribute"]
        self.window.value, self.smoothing.value = settings["window"], settings["smoothing"]
        self.colour.currentIndex = list(COLOURS.values()).index(settings["colour"])
        self.save.checked = settings["save"]
        self.well.text = settings["well"]
        self.read_well(settings["well"])
        if settings["curve"] in (self.log.curves if self.log else ()):
            self.curve.currentText = settings["curve"]

    def read_well(self, text):
        name, self.log, self.problem = text.strip(), None, ""
        if not sp.hasProject():
            self.problem = "Open a project first."
        elif name:
            try:
                self.log = log_attributes.read_las(sp.getProject().getFilename(sp.ObjectId.Well, name))
            except FileNotFoundError:
                self.problem = "The project has no well of this name."
            except (OSError, ValueError) as error:
                self.problem = "The well can not be used: %s." % (getattr(error, "strerror", None) or error)
        before = self.curve.currentText
        self.curve.clear()
        if self.log:
            self.curve.addItems(list(self.log.curves))
            # The last curve: the first one is the time in most files.
            self.curve.currentText = before if before in self.log.curves else list(self.log.curves)[-1]
        self.update_preview()

    def compute_result(self, indices=None):
        """The attribute at every sample; indices may be a progress bar over them."""
        settings, log = self.settings(), self.log
        values = log_attributes.window_attribute(
            log.depths, log.curves[settings["curve"]], settings["attribute"], settings["window"],
            range(len(log.depths)) if indices is None else indices)
        return log_attributes.smooth(values, settings["smoothing"])

    def update_preview(self, _=None):
        ready = self.log is not None and self.curve.currentIndex >= 0
        for widget in (self.compute, self.curve):
            widget.enabled = ready
        if self.problem:
            self.message.text = '<span style="color: #d64545">%s</span>' % html.escape(self.problem)
        elif ready:
            self.message.text = "%d samples, %.0f to %.0f m" % (
                len(self.log.depths), self.log.depths[0], self.log.depths[-1])
        else:
            self.message.text = "Wells are in the Project panel."
        if not ready:
            self.picture.text = self.summary.text = ""
            return
        settings, curve, result = self.settings(), self.log.curves[self.curve.currentText], self.compute_result()
        svg = log_attributes.drawing(self.log.depths, curve, result, settings["colour"])
        self.picture.text = '<img src="data:image/svg+xml;base64,%s">' % base64.b64encode(svg.encode()).decode()
        known = [value for value in result if not math.isnan(value)]
        unit = self.log.units[settings["curve"]]
        self.summary.text = ("%s of %s: %.1f to %.1f %s, on average %.1f" % (
            settings["attribute"], settings["curve"], min(known), max(known), unit, sum(known) / len(known))
            if known else "The curve has no values.")
