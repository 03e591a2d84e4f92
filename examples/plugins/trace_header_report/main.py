"""Trace header report: shows what a SEG-Y file says about itself before anybody loads it."""
import os

import strativo_python as sp

import textual_header

TITLE = "SEG-Y"


def show_headers():
    for path in sp.getFiles("SEG-Y files to report on"):
        try:
            text = textual_header.report(path)
        except (OSError, ValueError) as error:
            sp.showDialogBox("%s: %s" % (os.path.basename(path), error))
            continue
        print(path, text, sep="\n")
        report = sp.TextEdit()
        report.windowTitle = "Headers of " + os.path.basename(path)
        report.text = text
        sp.addSubWindow(report)


def register():
    action = sp.addMainWindowMenu(TITLE).addAction("Header Report...", show_headers)
    action.toolTip = "Textual and binary header of SEG-Y files"
    return True


def unregister():
    sp.removeMainWindowMenu(TITLE)
    return True
