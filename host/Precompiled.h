#pragma once

// Precompiled for every source of the host library: the Qt headers that nearly all of them use.
#include <QAction>
#include <QApplication>
#include <QDockWidget>
#include <QFile>
#include <QMainWindow>
#include <QPlainTextEdit>
#include <QPointer>
#include <QSettings>
#include <QString>
#include <QTimer>
#include <QWidget>

#include <algorithm>
#include <cmath>
#include <functional>
#include <memory>
#include <string>
#include <vector>
