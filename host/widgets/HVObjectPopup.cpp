#include "host/widgets/HVObjectPopup.h"

#include "host/icons/HVIconStore.h"
#include "host/services/HVProjectItemDrag.h"
#include "host/widgets/HVProjectFilter.h"
#include "host/widgets/HVProjectModel.h"
#include "host/widgets/HVProjectObjects.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QScreen>
#include <QStackedWidget>
#include <QTreeView>
#include <QVBoxLayout>

namespace {

constexpr int g_searchMilliseconds = 120;
constexpr int g_charactersWide = 36;
constexpr int g_rowsHigh = 16;

} // namespace

HVObjectPopup::HVObjectPopup(HVProjectObjects* objects, QWidget* parent)
    : QFrame(parent, Qt::Popup), m_objects(objects), m_model(new HVProjectModel(this)),
      m_filter(new HVProjectFilter(this)), m_search(new QLineEdit), m_view(new QTreeView), m_hint(new QLabel),
      m_pages(new QStackedWidget)
{
    setFrameShape(QFrame::StyledPanel);
    m_filter->setSourceModel(m_model);
    m_search->setPlaceholderText(tr("Search objects"));
    m_search->setClearButtonEnabled(true);
    m_search->addAction(HVIconStore::icon(QStringLiteral("zoommode16")), QLineEdit::LeadingPosition);
    m_search->installEventFilter(this);
    m_searchSoon.setSingleShot(true);
    m_searchSoon.setInterval(g_searchMilliseconds);
    connect(m_search, &QLineEdit::textChanged, this, [this] { m_searchSoon.start(); });
    connect(&m_searchSoon, &QTimer::timeout, this, &HVObjectPopup::search);

    m_view->setModel(m_filter);
    m_view->setHeaderHidden(true);
    m_view->setUniformRowHeights(true);
    m_view->setFrameShape(QFrame::NoFrame);
    m_view->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_view->setTextElideMode(Qt::ElideMiddle);
    m_view->setColumnHidden(1, true);
    m_view->header()->setSectionResizeMode(0, QHeaderView::Stretch);
    // The keys are the search field's, which passes those for the tree on.
    m_view->setFocusPolicy(Qt::NoFocus);
    connect(m_view, &QTreeView::clicked, this, &HVObjectPopup::choose);
    m_hint->setAlignment(Qt::AlignCenter);
    m_hint->setWordWrap(true);
    m_hint->setMargin(12);
    m_pages->addWidget(m_view);
    m_pages->addWidget(m_hint);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(4, 4, 4, 4);
    layout->setSpacing(4);
    layout->addWidget(m_search);
    layout->addWidget(m_pages);
    connect(m_model, &QAbstractItemModel::modelReset, this, &HVObjectPopup::search);
}

void HVObjectPopup::open(const QString& path, const QString& text)
{
    m_search->setText(text);
    m_model->setKinds(m_objects->kinds());
    m_model->setProject(m_objects->project());
    search();
    makeCurrent(path);
    place();
    show();
    m_search->setFocus(Qt::PopupFocusReason);
    if (m_view->currentIndex().isValid())
        m_view->scrollTo(m_view->currentIndex(), QAbstractItemView::PositionAtCenter);
}

void HVObjectPopup::hideEvent(QHideEvent* event)
{
    m_searchSoon.stop();
    m_model->setProject(nullptr);
    QFrame::hideEvent(event);
}

void HVObjectPopup::place()
{
    const QWidget& owner = *parentWidget();
    const QScreen* screen = owner.screen();
    const QRect room = screen->availableGeometry();
    QRect place(owner.mapToGlobal(QPoint(0, owner.height())),
                QSize(std::max(owner.width(), fontMetrics().averageCharWidth() * g_charactersWide),
                      fontMetrics().height() * g_rowsHigh * 5 / 4));
    if (owner.layoutDirection() == Qt::RightToLeft)
        place.moveRight(owner.mapToGlobal(QPoint(owner.width() - 1, 0)).x());
    // Above the widget where there is no room below it.
    if (place.bottom() > room.bottom())
        place.moveBottom(owner.mapToGlobal(QPoint(0, 0)).y() - 1);
    place.moveLeft(std::max(room.left(), std::min(place.left(), room.right() - place.width())));
    place.moveTop(std::max(room.top(), place.top()));
    setGeometry(place);
}

void HVObjectPopup::search()
{
    m_searchSoon.stop();
    const QString current = m_view->currentIndex().data(hv::g_objectPathRole).toString();
    m_filter->setText(m_search->text());
    m_view->expandAll();
    QString hint;
    if (m_model->rowCount() == 0)
        hint = m_objects->whyNone();
    else if (m_filter->rowCount() == 0)
        hint = tr("No object has a name like this.");
    m_hint->setText(hint);
    m_pages->setCurrentWidget(hint.isEmpty() ? static_cast<QWidget*>(m_view) : m_hint);
    makeCurrent(current);
}

QModelIndex HVObjectPopup::find(const QModelIndex& parent, const QString& path) const
{
    for (int row = 0; row < m_filter->rowCount(parent); ++row) {
        const QModelIndex index = m_filter->index(row, 0, parent);
        const QString object = index.data(hv::g_objectPathRole).toString();
        if (!object.isEmpty() && (path.isEmpty() || object == path))
            return index;
        if (const QModelIndex below = find(index, path); below.isValid())
            return below;
    }
    return {};
}

void HVObjectPopup::makeCurrent(const QString& path)
{
    QModelIndex index = find({}, path);
    // Return after a search takes the first object found.
    if (!index.isValid())
        index = find({}, {});
    m_view->setCurrentIndex(index);
}

void HVObjectPopup::choose(const QModelIndex& index)
{
    const QString path = index.data(hv::g_objectPathRole).toString();
    if (path.isEmpty())
        return;
    hide();
    Q_EMIT chosen(path);
}

bool HVObjectPopup::eventFilter(QObject* receiver, QEvent* event)
{
    if (event->type() != QEvent::KeyPress)
        return QFrame::eventFilter(receiver, event);
    switch (static_cast<QKeyEvent*>(event)->key()) {
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
        QCoreApplication::sendEvent(m_view, event);
        return true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (m_searchSoon.isActive())
            search();
        choose(m_view->currentIndex());
        return true;
    default:
        return QFrame::eventFilter(receiver, event);
    }
}
