#include "host/widgets/HVInputSelectionPreview.h"

#include "host/data/HVProject.h"
#include "host/viewers/HVPreviewViewer.h"
#include "host/widgets/HVInputSelectionLineEdit.h"

#include <QVBoxLayout>

HVInputSelectionPreview::HVInputSelectionPreview(QWidget* parent)
    : QWidget(parent), m_selection(new HVInputSelectionLineEdit), m_viewer(new HVPreviewViewer)
{
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(4);
    layout->addWidget(m_selection);
    layout->addWidget(m_viewer, 1);
    m_viewer->setHint(tr("No input is chosen"));
    setFocusProxy(m_selection);
    connect(m_selection, &HVInputSelectionLineEdit::selectionChanged, this, &HVInputSelectionPreview::showInput);
    connect(m_viewer, &HVPreviewViewer::pictureChanged, this, &HVInputSelectionPreview::viewerChanged);
}

HVMouseMode HVInputSelectionPreview::previewMouseMode() const
{
    return m_viewer->mouseMode();
}

hv::Result<void> HVInputSelectionPreview::setPreviewMouseMode(HVMouseMode mode)
{
    return m_viewer->setMouseMode(mode);
}

void HVInputSelectionPreview::showInput()
{
    HVProject* project = m_selection->project();
    const auto key = project ? project->keyOf(m_selection->object()) : std::nullopt;
    const auto object = key ? project->store().open(*key) : std::shared_ptr<hv::DataObject>();
    m_viewer->showObject(object ? *object : nullptr);
}
