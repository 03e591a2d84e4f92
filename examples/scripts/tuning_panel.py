"""A panel with a tuning table: how thick a bed must be before its top and base can be told apart.

    strativo run examples/scripts/tuning_panel.py
"""
import strativo_python as sp


class TuningPanel(sp.Dialog):
    def __init__(self):
        super().__init__("Tuning thickness")
        self.velocity = sp.DoubleSpinBox(minimum=1000, maximum=8000, decimals=0, value=2400)
        self.frequency = sp.DoubleSpinBox(minimum=5, maximum=150, decimals=1, value=30)
        self.result = sp.Label()

        form = sp.FormLayout(labelAlignment=sp.Align.Right)
        form.addRow("&Velocity (m/s)", self.velocity)
        form.addRow("&Peak frequency (Hz)", self.frequency)
        rock = sp.GroupBox("Bed", layout=form)

        grid = sp.GridLayout(spacing=4)
        for row, frequency in enumerate((20, 30, 40, 60)):
            grid.addWidget(sp.Label("%d Hz" % frequency), row, 0)
            grid.addWidget(sp.Label("%.1f m" % self.thickness(2400, frequency)), row, 1, align=sp.Align.Right)
        table = sp.GroupBox("At 2400 m/s", layout=grid)

        notes = sp.TextEdit("A quarter of the wavelength,\nafter Widess (1973).", readOnly=True)
        tabs = sp.TabWidget()
        tabs.addTab(table, "Table")
        tabs.addTab(notes, "Notes")

        parts = sp.Splitter()
        parts.addWidget(rock)
        parts.addWidget(tabs)

        close = sp.Button("Close")
        close.clicked(self.accept)
        buttons = sp.HBoxLayout()
        buttons.addWidget(self.result)
        buttons.addStretch()
        buttons.addWidget(close)

        everything = sp.VBoxLayout(margin=10)
        everything.addWidget(parts, stretch=1)
        everything.addLayout(buttons)
        self.setLayout(everything)

        for field in (self.velocity, self.frequency):
            field.valueChanged(self.update_result)
        self.update_result(None)

    @staticmethod
    def thickness(velocity, frequency):
        return velocity / (4 * frequency)

    def update_result(self, _):
        self.result.text = "Tuning at %.1f m" % self.thickness(self.velocity.value, self.frequency.value)


if __name__ == "__main__":
    TuningPanel().execute()
