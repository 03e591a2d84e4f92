#pragma once

// Precompiled for every source of the scripting layer. Python.h comes first, as it demands.
#include <boost/python.hpp>

#include <QPointer>
#include <QSettings>
#include <QString>
#include <QStringList>

#include <algorithm>
#include <functional>
#include <memory>
#include <string>
#include <vector>
