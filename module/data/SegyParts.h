#pragma once

/// What the submodule segy consists of; registered in the current scope.
namespace python {

void bindSegyExporter();
void bindSegyImport();

} // namespace python
