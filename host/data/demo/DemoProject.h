#pragma once

#include <QString>

#include <functional>
#include <vector>

class HVProject;

namespace demo {

/// One thing that a demonstration project gets. False with a sentence when it cannot be made.
struct Step
{
    const char* what; ///< as shown to the user: "Wells"
    std::function<bool(HVProject& project, QString* error)> make;
};

/// In the order in which they are made. Each writes its objects from SyntheticSurvey; what is the same in every run is
/// the same to the byte.
const std::vector<Step>& steps();

/// Makes a project in `folder`, which must be missing or empty, telling `tell` about each step. False with a sentence
/// when one fails; what was made until then stays.
bool makeProject(const QString& folder, const std::function<void(const QString& what)>& tell, QString* error);

} // namespace demo
