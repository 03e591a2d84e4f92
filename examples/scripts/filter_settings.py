"""Asks for the settings of a band-pass filter."""
from strativo_python import (Button, CheckBox, ComboBox, Dialog, DialogResponse, DoubleSpinBox, FormLayout, HBoxLayout,
                             Label, LineEdit, Orientation, ProgressBar, RadioButton, Slider, SliderTickPosition,
                             SpinBox)


class FilterDialog(Dialog):
    """The settings stand in the widgets; nothing is copied before the user has said yes."""

    def __init__(self):
        super().__init__("Band-pass filter")
        self.name = LineEdit(placeholderText="Name of the result", clearButtonEnabled=True)
        self.window = ComboBox()
        for text, exponent in (("Boxcar", 0.0), ("Cosine", 1.0), ("Hann", 2.0)):
            self.window.addItem(text, userData=exponent)
        self.window.currentText = "Hann"
        self.low = DoubleSpinBox(value=8, maximum=500, decimals=1, suffix=" Hz")
        self.high = DoubleSpinBox(value=60, maximum=500, decimals=1, suffix=" Hz")
        self.length = SpinBox(maximum=2000, singleStep=4, suffix=" ms", specialValueText="Whole trace")
        self.taper = Slider(Orientation.Horizontal, maximum=50, tickPosition=SliderTickPosition.TicksBelow,
                            tickInterval=10)
        self.percent = Label()
        self.minimumPhase = RadioButton("Minimum phase")
        self.zeroPhase = RadioButton("Zero phase", checked=True)
        self.keepGain = CheckBox("Keep the gain", checked=True)
        self.progress = ProgressBar(maximum=400, value=260, textFormat="%v of %m lines")
        self.run = Button("Filter")

        # The lower bound never passes the upper one: each limits the other.
        self.low.valueChanged(self.limitHigh)
        self.high.valueChanged(self.limitLow)
        self.limitHigh(self.low.value)
        self.limitLow(self.high.value)
        self.taper.valueChanged(self.showTaper)
        self.taper.value = 20
        self.name.textChanged(self.allowRun)
        self.allowRun(self.name.text)
        self.run.clicked(self.accept)

        taper, phase, form = HBoxLayout(), HBoxLayout(), FormLayout()
        for widget in (self.taper, self.percent):
            taper.addWidget(widget)
        for widget in (self.zeroPhase, self.minimumPhase):
            phase.addWidget(widget)
        for label, field in (("&Name", self.name), ("&Window", self.window), ("&Low cut", self.low),
                             ("&High cut", self.high), ("L&ength", self.length), ("Taper", taper), ("Phase", phase),
                             ("", self.keepGain), ("", self.progress), ("", self.run)):
            form.addRow(label, field)
        self.setLayout(form)

    def limitHigh(self, low):
        self.high.minimum = low

    def limitLow(self, high):
        self.low.maximum = high

    def showTaper(self, percent):
        self.percent.text = "%d %%" % percent

    def allowRun(self, name):
        self.run.enabled = bool(name.strip())


dialog = FilterDialog()
if dialog.execute() == DialogResponse.Accepted:
    print("%s: %.1f to %.1f Hz, window exponent %g, taper %d %%" % (
        dialog.name.text, dialog.low.value, dialog.high.value, dialog.window.currentData, dialog.taper.value))
