"""Well tie quick-look: a synthetic seismogram of a well from a text file of depth, sonic and density."""
import os

import strativo_python as sp

import well_tie

TITLE = "Well Tie"


def quick_look():
    path = sp.getFile("Columns: depth in m, sonic in us/ft, density in g/cm3")
    if not path:
        return
    try:
        with open(path, encoding="utf-8", errors="replace") as file:
            seismogram = well_tie.synthetic(file.read())
    except (OSError, ValueError) as error:
        sp.showDialogBox("%s: %s" % (os.path.basename(path), error))
        return
    view = sp.TextEdit()
    view.windowTitle = "Synthetic of " + os.path.basename(path)
    view.text = well_tie.draw(seismogram)
    view.readOnly = True
    sp.addSubWindow(view)


def register():
    sp.addMainWindowMenu(TITLE).addAction("Synthetic Seismogram...", quick_look).toolTip = "30 Hz Ricker wavelet"
    return True


def unregister():
    sp.removeMainWindowMenu(TITLE)
    return True
