"""Well log attributes: a dialog that asks for the parameters of an attribute and shows what they do."""
import os

import strativo_python as sp

import attribute_dialog
import log_attributes

TITLE = "Well Logs"
remembered = dict(attribute_dialog.DEFAULTS)
dialog = None


def ask():
    """Shows the dialog beside the main window: wells are dragged into it, so it does not block the window."""
    global dialog
    if dialog is None or dialog.deleted:
        dialog = attribute_dialog.AttributeDialog(sp.mainWindow())
        dialog.accepted(compute)
    if not dialog.visible:
        dialog.restore(remembered)
    dialog.show()
    dialog.activate()


def compute():
    remembered.update(dialog.settings())
    log, settings = dialog.log, dict(remembered)
    bar = sp.ModalProgressBar("Attribute of " + settings["well"], len(log.depths) - 1)
    values = dialog.compute_result(bar)
    if bar.cancelled():
        print("The attribute was cancelled.")
        return
    name = "%s_%s" % (settings["curve"], log_attributes.SHORT[settings["attribute"]])
    print("%s of well %s, window %d m:" % (name, settings["well"], settings["window"]))
    for depth, value in list(zip(log.depths, values))[::max(1, len(values) // 20)]:
        print("%10.2f m %10.2f %s" % (depth, value, log.units[settings["curve"]]))
    if settings["save"] and sp.hasProject():
        try:
            path = sp.getProject().getNewFilename(sp.ObjectId.Well, "%s %s" % (settings["well"], name))
            log_attributes.write_las(path, log, settings["curve"], name, values)
        except (OSError, RuntimeError) as error:
            sp.showDialogBox("The result can not be saved: %s" % error)
            return
        sp.updateProject(sp.ObjectId.Well)
        print("saved as", os.path.basename(path))


def register():
    icon = sp.Icon.getPluginIcon("icon.svg")
    for place in (sp.addMainWindowMenu(TITLE), sp.addMainWindowToolBar(TITLE)):
        action = place.addAction("Attribute of a Log...", ask, icon)
        action.toolTip = "Mean, RMS or standard deviation in a moving window"
    return True


def unregister():
    global dialog
    if dialog is not None and not dialog.deleted:
        dialog.parentWidget = None  # the main window lets go of it; dropping the name ends it
    dialog = None
    sp.removeMainWindowToolBar(TITLE)
    sp.removeMainWindowMenu(TITLE)
    return True
