#pragma once

#include <QObject>

namespace workbench {

class MainWindow;

/// Brings SEG-Y files into the project: by the menu, and dropped anywhere on the main window, on an editor too, which
/// would else insert their names.
class VolumeFiles : public QObject
{
    Q_OBJECT

public:
    /// `window` owns the object.
    explicit VolumeFiles(MainWindow& window);

protected:
    bool eventFilter(QObject* receiver, QEvent* event) override;

private:
    MainWindow& m_window;
};

} // namespace workbench
