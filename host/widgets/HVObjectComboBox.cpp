#include "host/widgets/HVObjectComboBox.h"

#include "host/icons/HVIconStore.h"
#include "host/services/HVProjectItemDrag.h"
#include "host/widgets/HVProjectModel.h"
#include "host/widgets/HVProjectObjects.h"

#include <QAbstractListModel>
#include <QDir>
#include <QDragEnterEvent>
#include <QListView>

#include <vector>

/// The rows of the box.
class ObjectRows final : public QAbstractListModel
{
public:
    using QAbstractListModel::QAbstractListModel;

    struct Row
    {
        ObjectKind kind;
        QString text;
        QString path;
    };

    bool isOptional = false;

    void setRows(std::vector<Row> rows)
    {
        beginResetModel();
        m_rows = std::move(rows);
        endResetModel();
    }
    /// -1 when it is not listed.
    int rowOf(const QString& path) const
    {
        if (path.isEmpty())
            return isOptional && !m_rows.empty() ? 0 : -1;
        const auto at =
            std::find_if(m_rows.begin(), m_rows.end(), [&path](const Row& row) { return row.path == path; });
        return at == m_rows.end() ? -1 : static_cast<int>(at - m_rows.begin());
    }

    int rowCount(const QModelIndex& parent = {}) const override
    {
        return parent.isValid() ? 0 : static_cast<int>(m_rows.size());
    }
    QVariant data(const QModelIndex& index, int role) const override
    {
        if (!index.isValid() || index.row() >= rowCount())
            return {};
        const Row& row = m_rows[static_cast<std::size_t>(index.row())];
        if (role == Qt::DisplayRole || role == Qt::EditRole)
            return row.text;
        if (row.path.isEmpty())
            return {};
        switch (role) {
        case Qt::DecorationRole:
            return HVIconStore::icon(QLatin1String(objectKindInfo(row.kind).icon));
        case Qt::ToolTipRole:
            return QDir::toNativeSeparators(row.path);
        case Qt::UserRole:
        case hv::g_objectPathRole:
            return row.path;
        case hv::g_objectTypeRole:
            return static_cast<int>(row.kind);
        default:
            return {};
        }
    }

private:
    std::vector<Row> m_rows;
};

namespace {

constexpr int g_charactersAtLeast = 16;
constexpr int g_visibleRows = 20;

void addRows(std::vector<ObjectRows::Row>& rows, const ProjectNode& node, const QString& directory)
{
    for (const auto& child : node.children)
        if (child->type == ProjectNode::Type::Object)
            rows.push_back({child->kind, directory + child->name, child->path});
        else
            addRows(rows, *child, directory + child->name + QLatin1Char('/'));
}

} // namespace

HVObjectComboBox::HVObjectComboBox(QWidget* parent) : HVObjectComboBox(FirstKinds::current(), parent) {}

HVObjectComboBox::HVObjectComboBox(ObjectKind kind, QWidget* parent) : HVObjectComboBox(std::set{kind}, parent) {}

HVObjectComboBox::HVObjectComboBox(const std::set<ObjectKind>& kinds, QWidget* parent)
    : QComboBox(parent), m_objects(new HVProjectObjects(this)), m_rows(new ObjectRows(this))
{
    m_objects->setKinds(kinds);
    setModel(m_rows);
    // Asking every row for its width would take longer than listing them.
    setSizeAdjustPolicy(AdjustToMinimumContentsLengthWithIcon);
    setMinimumContentsLength(g_charactersAtLeast);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    setMaxVisibleItems(g_visibleRows);
    if (auto* list = qobject_cast<QListView*>(view()))
        list->setUniformItemSizes(true);
    setAcceptDrops(true);
    connect(this, QOverload<int>::of(&QComboBox::currentIndexChanged), this, [this] {
        if (m_updating)
            return;
        m_isTouched = true;
        m_chosen = object();
        tellChange();
    });
    connect(m_objects, &HVProjectObjects::replaced, this, &HVObjectComboBox::startAnew);
    connect(m_objects, &HVProjectObjects::changed, this, [this] { list(!m_isTouched && m_rows->rowCount() == 0); });
    connect(m_objects, &HVProjectObjects::renamed, this, [this](const QString& before, const QString& after) {
        if (m_chosen == before)
            m_chosen = after;
    });
    updateObjects();
}

HVObjectComboBox::~HVObjectComboBox() = default;

const std::set<ObjectKind>& HVObjectComboBox::kinds() const
{
    return m_objects->kinds();
}

void HVObjectComboBox::setKinds(std::set<ObjectKind> kinds)
{
    m_objects->setKinds(std::move(kinds));
}

HVProject* HVObjectComboBox::project() const
{
    return m_objects->project();
}

void HVObjectComboBox::setProject(HVProject* project)
{
    m_objects->setProject(project);
}

bool HVObjectComboBox::isOptional() const
{
    return m_rows->isOptional;
}

void HVObjectComboBox::setOptional(bool optional)
{
    if (optional == m_rows->isOptional)
        return;
    m_rows->isOptional = optional;
    if (!m_isTouched)
        m_chosen.clear();
    list(!m_isTouched);
}

QString HVObjectComboBox::object() const
{
    return currentData().toString();
}

bool HVObjectComboBox::setObject(const QString& path)
{
    const int row = m_rows->rowOf(path.isEmpty() ? path : m_objects->suitable(path));
    if (row < 0 && !path.isEmpty())
        return false;
    m_isTouched = true;
    setCurrentIndex(row);
    return true;
}

void HVObjectComboBox::startAnew()
{
    // A project that is closed and opened again finds its object chosen still.
    if (m_objects->project() && m_objects->suitable(m_chosen).isEmpty()) {
        m_chosen.clear();
        m_isTouched = false;
    }
    list(!m_isTouched && m_chosen.isEmpty());
}

void HVObjectComboBox::updateObjects()
{
    // Names that have changed before rows that have: the chosen object is known by its name.
    if (HVProject* project = m_objects->project())
        project->store().tellChanges();
    list(!m_isTouched && m_rows->rowCount() == 0);
}

void HVObjectComboBox::list(bool fromFirst)
{
    std::vector<ObjectRows::Row> rows;
    if (HVProject* project = m_objects->project()) {
        if (m_rows->isOptional)
            rows.push_back({ObjectKind::Volume, tr("None"), {}});
        for (const ObjectKindInfo& info : objectKinds())
            if (kinds().count(info.kind))
                if (const auto tree = buildProjectTree(*project, info.kind))
                    addRows(rows, *tree, {});
    }
    const int indexBefore = currentIndex();
    const QString textBefore = currentText();
    {
        // The reset passes through "nothing chosen", which nobody need hear of.
        const QSignalBlocker blocker(this);
        m_rows->setRows(std::move(rows));
        setCurrentIndex(fromFirst && count() > 0 ? 0 : m_rows->rowOf(m_chosen));
    }
    showHint();
    if (fromFirst)
        m_chosen = object();
    m_updating = true;
    if (currentIndex() != indexBefore)
        Q_EMIT currentIndexChanged(currentIndex());
    if (currentText() != textBefore)
        Q_EMIT currentTextChanged(currentText());
    m_updating = false;
    tellChange();
}

void HVObjectComboBox::tellChange()
{
    const QString now = object();
    if (now == m_told)
        return;
    m_told = now;
    Q_EMIT objectChanged(now);
}

void HVObjectComboBox::showHint()
{
    setPlaceholderText(m_rows->rowCount() == 0 ? m_objects->whyNone() : tr("Choose an object"));
}

void HVObjectComboBox::dragEnterEvent(QDragEnterEvent* event)
{
    const QString path = m_objects->dropped(*event);
    if (path.isEmpty() || m_rows->rowOf(path) < 0)
        return;
    event->setDropAction(Qt::CopyAction);
    event->accept();
}

void HVObjectComboBox::dropEvent(QDropEvent* event)
{
    const QString path = m_objects->dropped(*event);
    if (path.isEmpty() || !setObject(path))
        return;
    event->setDropAction(Qt::CopyAction);
    event->accept();
}
