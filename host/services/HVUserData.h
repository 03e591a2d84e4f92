#pragma once

#include <QString>

/// Where the application keeps what belongs to one user.
namespace hv {

/// The folder ".strativo" under $STRATIVO_HOMEPATH when that is set, else under the user's home directory; without a
/// trailing separator. Creates it when missing; a folder that cannot be created is still named.
QString userDataDirectory();

/// Names the application, and so the file of its settings.
void nameApplication();

/// Directs QSettings into userDataDirectory(), so that one variable moves everything a user owns. Call once, after
/// the application's name is set and before the first QSettings.
void keepSettingsInUserData();

} // namespace hv
