#include "host/widgets/HVProjectBrowser.h"

#include "host/icons/HVIconStore.h"
#include "host/widgets/HVProjectCommands.h"
#include "host/widgets/HVProjectFilter.h"
#include "host/widgets/HVProjectModel.h"

#include <QAction>
#include <QDir>
#include <QEvent>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QStackedWidget>
#include <QTreeView>
#include <QVBoxLayout>

namespace {

constexpr int g_searchMilliseconds = 120;
// A kind or directory with more objects is closed at first.
constexpr int g_openedAtFirst = 25;

template <typename Visit>
void forEachBranch(const HVProjectFilter& filter, const QModelIndex& parent, const Visit& visit)
{
    for (int row = 0; row < filter.rowCount(parent); ++row) {
        const QModelIndex index = filter.index(row, 0, parent);
        if (!filter.hasChildren(index))
            continue;
        visit(index);
        forEachBranch(filter, index, visit);
    }
}

} // namespace

HVProjectBrowser::HVProjectBrowser(QWidget* parent)
    : QWidget(parent), m_model(new HVProjectModel(this)), m_filter(new HVProjectFilter(this)),
      m_commands(new HVProjectCommands(this)), m_search(new QLineEdit), m_view(new QTreeView), m_hint(new QLabel),
      m_pages(new QStackedWidget)
{
    m_filter->setSourceModel(m_model);
    m_search->setPlaceholderText(tr("Search objects"));
    m_search->setClearButtonEnabled(true);
    m_search->addAction(HVIconStore::icon(QStringLiteral("zoommode16")), QLineEdit::LeadingPosition);
    m_searchSoon.setSingleShot(true);
    m_searchSoon.setInterval(g_searchMilliseconds);
    connect(m_search, &QLineEdit::textChanged, this, [this] { m_searchSoon.start(); });
    connect(&m_searchSoon, &QTimer::timeout, this, &HVProjectBrowser::search);

    makeView();
    m_hint->setAlignment(Qt::AlignCenter);
    m_hint->setWordWrap(true);
    m_hint->setMargin(12);
    m_hint->setTextInteractionFlags(Qt::LinksAccessibleByMouse | Qt::LinksAccessibleByKeyboard);
    connect(m_hint, &QLabel::linkActivated, this, &HVProjectBrowser::followLink);
    m_pages->addWidget(m_view);
    m_pages->addWidget(m_hint);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 4, 0, 0);
    layout->setSpacing(4);
    auto* searchRow = new QHBoxLayout;
    searchRow->setContentsMargins(4, 0, 4, 0);
    searchRow->addWidget(m_search);
    layout->addLayout(searchRow);
    layout->addWidget(m_pages);

    connect(m_model, &QAbstractItemModel::modelAboutToBeReset, this, &HVProjectBrowser::keepState);
    connect(m_model, &QAbstractItemModel::modelReset, this, &HVProjectBrowser::restoreState);
    // With a search, what is found may come and go; other pages come with a reset.
    connect(m_filter, &QAbstractItemModel::rowsInserted, this, &HVProjectBrowser::showPage);
    connect(m_filter, &QAbstractItemModel::rowsRemoved, this, &HVProjectBrowser::showPage);
    connect(m_commands, &HVProjectCommands::renameRequested, this, [this] { m_view->edit(m_view->currentIndex()); });
    showPage();
}

HVProjectBrowser::~HVProjectBrowser() = default;

void HVProjectBrowser::makeView()
{
    m_view->setModel(m_filter);
    m_view->setHeaderHidden(true);
    m_view->setUniformRowHeights(true);
    m_view->setFrameShape(QFrame::NoFrame);
    m_view->setSelectionMode(QAbstractItemView::ExtendedSelection);
    m_view->setEditTriggers(QAbstractItemView::EditKeyPressed);
    m_view->setDragDropMode(QAbstractItemView::DragDrop);
    m_view->setDropIndicatorShown(true);
    m_view->setExpandsOnDoubleClick(true);
    m_view->setContextMenuPolicy(Qt::CustomContextMenu);
    m_view->setTextElideMode(Qt::ElideMiddle);
    m_view->header()->setStretchLastSection(false);
    m_view->header()->setSectionResizeMode(0, QHeaderView::Stretch);
    m_view->header()->setSectionResizeMode(1, QHeaderView::ResizeToContents);
    connect(m_view, &QWidget::customContextMenuRequested, this, &HVProjectBrowser::showMenu);
    connect(m_view, &QTreeView::activated, this, [this](const QModelIndex& index) {
        const ProjectNode* row = m_model->node(m_filter->mapToSource(index));
        if (row && row->type == ProjectNode::Type::Object)
            Q_EMIT objectActivated(row->kind, QString(row->path));
    });
    m_view->installEventFilter(this);
}

void HVProjectBrowser::setProject(HVProject* project)
{
    m_known.clear();
    m_expanded.clear();
    m_selected.clear();
    m_search->clear();
    search();
    m_project = project;
    m_commands->setProject(project);
    m_model->setProject(isVisible() ? project : nullptr);
    showPage();
}

void HVProjectBrowser::showEvent(QShowEvent* event)
{
    if (m_project != m_model->project())
        m_model->setProject(m_project);
    QWidget::showEvent(event);
}

void HVProjectBrowser::setJobs(hv::JobManager* jobs)
{
    m_commands->setJobs(jobs);
}

QVector<const ProjectNode*> HVProjectBrowser::selectedRows() const
{
    QVector<const ProjectNode*> rows;
    for (const QModelIndex& index : m_view->selectionModel()->selectedRows())
        rows << m_model->node(m_filter->mapToSource(index));
    return rows;
}

void HVProjectBrowser::select(const hv::ObjectKey& object)
{
    const QModelIndex row = m_model->indexOf(object);
    if (!row.isValid())
        return;
    if (!m_filter->mapFromSource(row).isValid()) {
        m_search->clear();
        search();
    }
    m_view->setCurrentIndex(m_filter->mapFromSource(row));
    m_view->scrollTo(m_view->currentIndex());
}

void HVProjectBrowser::keepState()
{
    m_selected.clear();
    for (const ProjectNode* row : selectedRows())
        m_selected.insert(row->key());
    // A search opens everything it finds; that is no wish of the user's.
    if (m_filter->isActive())
        return;
    forEachBranch(*m_filter, {}, [this](const QModelIndex& index) {
        const QString key = index.data(HVProjectModel::KeyRole).toString();
        m_known.insert(key);
        if (m_view->isExpanded(index))
            m_expanded.insert(key);
        else
            m_expanded.remove(key);
    });
}

void HVProjectBrowser::restoreState()
{
    QItemSelection selection;
    forEachBranch(*m_filter, {}, [&](const QModelIndex& index) {
        const ProjectNode* row = m_model->node(m_filter->mapToSource(index));
        const QString key = row->key();
        const bool isOpen = m_filter->isActive() || m_expanded.contains(key) ||
                            (!m_known.contains(key) && row->children.size() <= g_openedAtFirst);
        m_view->setExpanded(index, isOpen);
        if (m_selected.isEmpty())
            return;
        for (int child = 0; child < m_filter->rowCount(index); ++child) {
            const QModelIndex object = m_filter->index(child, 0, index);
            if (m_selected.contains(object.data(HVProjectModel::KeyRole).toString()))
                selection.select(object, object);
        }
    });
    m_view->selectionModel()->select(selection, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    showPage();
}

void HVProjectBrowser::search()
{
    m_searchSoon.stop();
    if (!m_filter->isActive())
        keepState();
    m_filter->setText(m_search->text());
    restoreState();
}

void HVProjectBrowser::showPage()
{
    const HVProject* project = m_project;
    const auto link = [](const char* target, const QString& text) {
        return QStringLiteral("<a href=\"%1\" style=\"text-decoration:none\">%2</a>").arg(QLatin1String(target), text);
    };
    QString hint;
    if (!project)
        hint =
            QStringLiteral("<p><b>%1</b></p><p>%2</p><p>%3</p>")
                .arg(tr("No project is open"), link("new", tr("New Project...")), link("open", tr("Open Project...")));
    else if (m_model->rowCount() == 0)
        hint =
            QStringLiteral("<p><b>%1</b></p><p>%2</p><p>%3</p>")
                .arg(tr("The project is empty"), tr("Objects that are saved or copied into its folders appear here."),
                     QDir::toNativeSeparators(project->path()).toHtmlEscaped());
    else if (m_filter->isActive() && m_filter->rowCount() == 0)
        hint = QStringLiteral("<p>%1</p>").arg(tr("No object has a name like this."));
    m_hint->setText(hint);
    m_search->setEnabled(project && m_model->rowCount() > 0);
    m_pages->setCurrentWidget(hint.isEmpty() ? static_cast<QWidget*>(m_view) : m_hint);
}

void HVProjectBrowser::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    // Links take their colour when the text is set.
    if (event->type() == QEvent::PaletteChange)
        showPage();
}

bool HVProjectBrowser::eventFilter(QObject* receiver, QEvent* event)
{
    // Not a shortcut: the key belongs to the rows, and to the text while a name is edited.
    if (event->type() != QEvent::KeyPress || !static_cast<QKeyEvent*>(event)->matches(QKeySequence::Delete))
        return QWidget::eventFilter(receiver, event);
    m_commands->removeRows(selectedRows());
    return true;
}

void HVProjectBrowser::showMenu(const QPoint& position)
{
    QMenu menu;
    menu.setToolTipsVisible(true);
    const QVector<const ProjectNode*> rows = selectedRows();
    m_commands->fillMenu(menu, rows);
    std::vector<hv::ObjectKey> objects;
    for (const ProjectNode* row : rows)
        if (row->type == ProjectNode::Type::Object)
            objects.push_back({row->kind, row->name});
    if (!objects.empty() && static_cast<int>(objects.size()) == rows.size())
        Q_EMIT menuAboutToShow(menu, objects);
    if (!menu.isEmpty())
        menu.exec(m_view->viewport()->mapToGlobal(position));
}

void HVProjectBrowser::followLink(const QString& link)
{
    if (link == QLatin1String("new"))
        Q_EMIT newProjectRequested();
    else if (link == QLatin1String("open"))
        Q_EMIT openProjectRequested();
}
