#pragma once

#include <QString>

#include <string>

/// Where the embedded interpreter and its packages lie. Everything derives from the application directory, which the
/// program sets before it makes the execution context.
namespace python::utils {

/// Stores the directory of the application's executable; no checks.
void setApplicationDirPath(const QString& path);
QString applicationDirPath();

/// The embedded interpreter as a program of its own, for child processes: `<application>/python/python3`
/// ("python.exe" on Windows), in native separators.
std::wstring ConstructPythonExecutablePath();

/// The module search path: the standard library archive, the Python home, its site-packages and the user's
/// site-packages, each followed by ";" on every platform; directories end with a separator. Creates the user's
/// site-packages when missing.
std::wstring ConstructPythonPath();

} // namespace python::utils
