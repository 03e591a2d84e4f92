#pragma once

/// The user's switch for texts on their way to scripts, see TextConversion.h. One for the process; from any thread.
namespace python {

/// Whether they arrive whole. False until a setting or an option says otherwise.
bool areTextsWhole();
void setTextsWhole(bool whole);

/// Switches them on for the processes that this one starts, too. Before the interpreter's start.
void setTextsWholeEverywhere();

/// Sets the switch as the settings say ("Python/unicode-text"), or the process that has started this one.
void readTextSetting();
/// Sets the switch and keeps it in the settings.
void storeTextSetting(bool whole);

} // namespace python
