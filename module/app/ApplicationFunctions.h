#pragma once

#include "runtime/ApplicationInterface.h"

#include <boost/python/object.hpp>

class QMainWindow;

/// The functions of the module that reach the application around the interpreter; ApplicationInterface.cpp registers
/// them. All are called by scripts, with the lock held, on the GUI thread.
namespace python {

/// Null when the application has none, or when there is no application. RuntimeError on any thread but the main one.
QMainWindow* applicationWindow();

/// True for a program on a terminal, where nobody can answer a dialog.
bool isOnTerminal();

bool showQuestionBox(const boost::python::object& message, const boost::python::object& title);
void showDialogBox(const boost::python::object& message);
boost::python::object getDirectory(const boost::python::object& text);
boost::python::object getFile(const boost::python::object& text);
boost::python::object getFiles(const boost::python::object& text);

boost::python::object addMainWindowMenu(const boost::python::object& title);
boost::python::object getMainWindowMenu(const boost::python::object& title);
bool removeMainWindowMenu(const boost::python::object& title);
boost::python::object addMainWindowToolBar(const boost::python::object& name);
bool removeMainWindowToolBar(const boost::python::object& name);
boost::python::object addSubWindow(const boost::python::object& widget);

} // namespace python
