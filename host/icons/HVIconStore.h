#pragma once

#include <QIcon>
#include <QString>

/// The application's icons by name. They are line drawings (Tabler Icons, MIT licence) in the colour of the palette's
/// button text, so one set serves light and dark themes and any resolution; nothing is read or drawn before an icon is
/// painted for the first time.
class HVIconStore
{
public:
    /// A null icon for an unknown name. The number in a name is history: every icon is drawn at the size asked for.
    static QIcon icon(const QString& name);
};
