#pragma once

/// What a file chooser is for. Scripts use the numbers: they never change.
enum class HVFileDialogType : int
{
    Open = 0,
    Save = 1,
};
