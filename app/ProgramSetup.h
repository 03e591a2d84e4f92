#pragma once

#include <QString>

/// app: the program, as workbench (app/workbench) and as headless runner (app/headless); what both need first is here.
namespace program {

/// Gives a process that was started in the plain "C" locale UTF-8 text. Before the application object.
void coerceLocale();

/// Gives a process that was started with closed standard streams streams that lead nowhere, before some other file
/// takes their numbers. First of all.
void openStandardStreams();

/// Lets a process without a display run all the same. Before the application object.
void choosePlatform();

/// Whether windows can be seen, or are drawn without a screen because the user has asked for that. After the
/// application object.
bool hasDisplay();

/// Names the application, keeps its settings in the user-data folder, tells the scripting layer where it lies and what
/// it consists of. Where there is an application object from the start, after that, since it sets the
/// locale.
void setUp();

/// One sentence naming what is missing of the Python tree beside the program; empty when it is there. After setUp().
QString missingPythonTree();

} // namespace program
