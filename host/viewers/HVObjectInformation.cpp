#include "host/viewers/HVObjectInformation.h"

#include "host/icons/HVIconStore.h"
#include "host/kinds/IObjectKind.h"
#include "host/objects/DataObject.h"
#include "host/viewers/HVPreviewViewer.h"

#include <QDateTime>
#include <QDialogButtonBox>
#include <QDir>
#include <QFileInfo>
#include <QHeaderView>
#include <QLocale>
#include <QSplitter>
#include <QTableWidget>
#include <QVBoxLayout>

namespace {

constexpr QSize g_preferredSize(860, 460);

std::vector<hv::Description> describe(hv::DataObject& object)
{
    const auto& kind = hv::objectKind(object.key().kind);
    std::vector<hv::Description> rows{
        {HVObjectInformation::tr("Kind"), QLatin1String(kind.info().singular)},
        {HVObjectInformation::tr("File"), QDir::toNativeSeparators(object.path())},
        {HVObjectInformation::tr("Changed"),
         QLocale().toString(QFileInfo(object.path()).lastModified(), QLocale::ShortFormat)},
    };
    const hv::Result<hv::ObjectValue> value = object.value();
    if (!value) {
        rows.push_back({HVObjectInformation::tr("Problem"), value.failure().sentence});
        return rows;
    }
    for (hv::Description& row : kind.describe(*value))
        rows.push_back(std::move(row));
    return rows;
}

} // namespace

HVObjectInformation::HVObjectInformation(std::shared_ptr<hv::DataObject> object, QWidget* parent)
    : QDialog(parent), m_object(std::move(object)), m_viewer(new HVPreviewViewer), m_rows(new QTableWidget(0, 2))
{
    m_rows->horizontalHeader()->hide();
    m_rows->horizontalHeader()->setSectionResizeMode(0, QHeaderView::ResizeToContents);
    m_rows->horizontalHeader()->setSectionResizeMode(1, QHeaderView::Stretch);
    m_rows->verticalHeader()->hide();
    m_rows->verticalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
    m_rows->setShowGrid(false);
    m_rows->setWordWrap(true);
    m_rows->setTabKeyNavigation(false);
    m_rows->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_rows->setSelectionBehavior(QAbstractItemView::SelectRows);
    auto* parts = new QSplitter;
    parts->addWidget(m_viewer);
    parts->addWidget(m_rows);
    parts->setChildrenCollapsible(false);
    parts->setStretchFactor(0, 1);
    parts->setStretchFactor(1, 1);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(parts);
    layout->addWidget(buttons);
    resize(g_preferredSize);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(m_object.get(), &hv::DataObject::changed, this, [this] {
        if (m_object->exists())
            showRows();
        else
            close();
    });
    m_viewer->showObject(m_object);
    showRows();
    m_rows->setFocus();
}

HVObjectInformation::~HVObjectInformation() = default;

void HVObjectInformation::showRows()
{
    setWindowTitle(tr("%1 - Information").arg(m_object->key().name));
    setWindowIcon(HVIconStore::icon(QLatin1String(objectKindInfo(m_object->key().kind).icon)));
    const std::vector<hv::Description> rows = describe(*m_object);
    m_rows->setRowCount(static_cast<int>(rows.size()));
    for (int row = 0; row < m_rows->rowCount(); ++row) {
        const hv::Description& each = rows[static_cast<std::size_t>(row)];
        auto* label = new QTableWidgetItem(each.label);
        label->setTextAlignment(Qt::AlignLeft | Qt::AlignTop);
        m_rows->setItem(row, 0, label);
        m_rows->setItem(row, 1, new QTableWidgetItem(each.text));
    }
}
