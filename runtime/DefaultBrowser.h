#pragma once

#include <QString>

namespace python {

/// The program that shows HTML files for this user, as an absolute path; empty when there is none. Looks at $BROWSER
/// (programs separated by ":"), then at the desktop's setting, then for the distribution's usual names.
QString defaultBrowser();

} // namespace python
