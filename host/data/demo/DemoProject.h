#pragma once

#include "host/kinds/ObjectKind.h"

#include <QString>

#include <functional>
#include <vector>

class HVProject;

/// host/data/demo: the demonstration project.
namespace demo {

/// One thing that a demonstration project gets. False with a sentence when it cannot be made.
struct Step
{
    QString what; ///< as shown to the user: "Wells"
    std::function<bool(HVProject& project, QString* error)> make;
};

/// In the order in which they are made: the reference system, then each kind that has something to show, see
/// IObjectKind::demo(). Two runs are the same to the byte.
std::vector<Step> steps();
/// The kind's objects alone. False with a sentence when one cannot be made.
bool makeObjects(HVProject& project, ObjectKind kind, QString* error);

/// Makes a project in `folder`, which must be missing or empty, telling `tell` about each step. False with a sentence
/// when one fails; what was made until then stays.
bool makeProject(const QString& folder, const std::function<void(const QString& what)>& tell, QString* error);

} // namespace demo
