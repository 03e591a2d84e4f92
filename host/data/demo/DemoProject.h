#pragma once

#include "host/core/Result.h"
#include "host/kinds/ObjectKind.h"

#include <QString>

#include <functional>
#include <vector>

class HVProject;

/// host/data/demo: the demonstration project.
namespace demo {

/// One thing that a demonstration project gets.
struct Step
{
    QString what; ///< as shown to the user: "Wells"
    std::function<hv::Result<void>(HVProject& project)> make;
};

/// In the order in which they are made: the reference system, then each kind that has something to show, see
/// IObjectKind::demo(). Two runs are the same to the byte.
std::vector<Step> steps();
/// The kind's objects alone. When one cannot be made, those before it stay.
hv::Result<void> makeObjects(HVProject& project, ObjectKind kind);

/// Makes a project in `folder`, which must be missing or empty, telling `tell` about each step. When one fails, what
/// was made until then stays.
hv::Result<void> makeProject(const QString& folder, const std::function<void(const QString& what)>& tell);

} // namespace demo
