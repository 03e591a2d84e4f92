#pragma once

#include "host/viewers/HVMouseMode.h"

#include <QWidget>

class HVInputSelectionLineEdit;
class HVPreviewViewer;

/// The line to choose an input with, over a small viewer of what was chosen.
class HVInputSelectionPreview : public QWidget
{
    Q_OBJECT

public:
    explicit HVInputSelectionPreview(QWidget* parent = nullptr);

    /// Kinds, project and the chosen object are its.
    HVInputSelectionLineEdit* selection() const { return m_selection; }
    HVPreviewViewer* viewer() const { return m_viewer; }

    HVMouseMode previewMouseMode() const;
    /// Fails, with the mode unchanged, for a mode that no viewer action stands for.
    hv::Result<void> setPreviewMouseMode(HVMouseMode mode);

Q_SIGNALS:
    /// The viewer shows another object, or none any more.
    void viewerChanged();

private:
    void showInput();

    HVInputSelectionLineEdit* m_selection;
    HVPreviewViewer* m_viewer;
};
