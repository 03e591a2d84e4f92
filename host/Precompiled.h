#pragma once

// Precompiled for every source of the data library: the Qt headers that nearly all of them use.
#include <QFile>
#include <QPointer>
#include <QSettings>
#include <QString>
#include <QTimer>

#include <algorithm>
#include <cmath>
#include <functional>
#include <memory>
#include <string>
#include <vector>
