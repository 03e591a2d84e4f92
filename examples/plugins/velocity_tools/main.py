"""Velocity tools: converts a text file of times and velocities between interval and RMS velocities."""
import os

import strativo_python as sp

import velocity

TITLE = "Velocity"


def convert(kind):
    path = sp.getFile("A text file with two columns: two-way time in ms, %s velocity in m/s" % kind)
    if not path:
        return
    try:
        with open(path, encoding="utf-8", errors="replace") as file:
            times, given = velocity.parse_table(file.read())
        if kind == "RMS":
            interval, rms = velocity.interval_from_rms(times, given), given
        else:
            interval, rms = given, velocity.rms_from_interval(times, given)
    except (OSError, ValueError) as error:
        sp.showDialogBox("%s can not be converted: %s" % (os.path.basename(path), error))
        return
    report = sp.TextEdit()
    report.windowTitle = "Velocities of " + os.path.basename(path)
    report.text = velocity.format_table(
        times, interval=interval, rms=rms, average=velocity.average_from_interval(times, interval))
    sp.addSubWindow(report)


def from_rms():
    convert("RMS")


def from_interval():
    convert("interval")


def register():
    menu = sp.addMainWindowMenu(TITLE)
    bar = sp.addMainWindowToolBar(TITLE)
    for label, tip, function in (
            ("Interval from RMS...", "Interval velocities by Dix's formula", from_rms),
            ("RMS from Interval...", "RMS and average velocities of layers", from_interval)):
        for place in (menu, bar):
            place.addAction(label, function).toolTip = tip
    return True


def unregister():
    sp.removeMainWindowToolBar(TITLE)
    sp.removeMainWindowMenu(TITLE)
    return True
