#pragma once

#include <QString>

class HVProject;

/// The steps of the demonstration project, one per kind of object; see DemoProject.h.
namespace demo {

bool makeReferenceSystem(HVProject& project, QString* error);
/// The outline of what was acquired and the channel's axis, as GeoJSON.
bool makeCultures(HVProject& project, QString* error);
/// One palette for amplitudes and one for times.
bool makeColorBars(HVProject& project, QString* error);
/// Two wells with depth, time and gamma ray (LAS 2.0), filed in a folder.
bool makeWells(HVProject& project, QString* error);

} // namespace demo
