#include "host/exchange/SegyHeaderPages.h"

#include <QComboBox>
#include <QFontDatabase>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QMenu>
#include <QPlainTextEdit>
#include <QTableView>
#include <QTableWidget>
#include <QVBoxLayout>

namespace hv {

namespace {

/// Rows as high as their text.
void makeDense(QTableView& table)
{
    table.verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    table.verticalHeader()->setDefaultSectionSize(table.fontMetrics().height() + 6);
}

} // namespace

SegyTextPage::SegyTextPage(QWidget* parent) : QWidget(parent), m_encoding(new QComboBox), m_text(new QPlainTextEdit)
{
    m_encoding->addItem(tr("Found"));
    for (const segy::TextEncoding encoding : {segy::TextEncoding::Ebcdic, segy::TextEncoding::Ascii})
        m_encoding->addItem(segy::nameOf(encoding), static_cast<int>(encoding));
    m_text->setReadOnly(true);
    m_text->setLineWrapMode(QPlainTextEdit::NoWrap);
    m_text->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    m_text->setTabChangesFocus(true);
    auto* label = new QLabel(tr("&Encoding:"));
    label->setBuddy(m_encoding);
    auto* row = new QHBoxLayout;
    row->addWidget(label);
    row->addWidget(m_encoding);
    row->addStretch();
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(row);
    layout->addWidget(m_text);
    connect(m_encoding, qOverload<int>(&QComboBox::activated), this, &SegyTextPage::edited);
}

void SegyTextPage::setPreview(const SegyPreview& preview)
{
    m_encoding->setItemText(0, tr("Found: %1").arg(segy::nameOf(preview.file->encoding())));
    QStringList texts;
    for (const QStringList& rows : preview.file->texts())
        texts << rows.join(QLatin1Char('\n'));
    const QString text = texts.join(QStringLiteral("\n\n"));
    if (text != m_text->toPlainText())
        m_text->setPlainText(text);
}

void SegyTextPage::choose(segy::ScanChoice& choice) const
{
    if (const QVariant encoding = m_encoding->currentData(); encoding.isValid())
        choice.format.encoding = static_cast<segy::TextEncoding>(encoding.toInt());
}

SegyBinaryPage::SegyBinaryPage(QWidget* parent)
    : QWidget(parent), m_fields(new QTableWidget(static_cast<int>(segy::binaryFields().size()), 3))
{
    m_fields->setHorizontalHeaderLabels({tr("Byte"), tr("Field"), tr("Value")});
    m_fields->verticalHeader()->hide();
    makeDense(*m_fields);
    m_fields->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_fields->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_fields->setTabKeyNavigation(false);
    m_fields->horizontalHeader()->setSectionResizeMode(1, QHeaderView::Stretch);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_fields);
}

void SegyBinaryPage::setPreview(const SegyPreview& preview)
{
    int row = 0;
    for (const segy::Field& field : segy::binaryFields()) {
        const QString texts[] = {QString::number(field.byte), QString::fromLatin1(field.name),
                                 QString::number(preview.file->binaryValue(field))};
        for (int column = 0; column < 3; ++column) {
            auto* item = new QTableWidgetItem(texts[column]);
            if (column != 1)
                item->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
            m_fields->setItem(row, column, item);
        }
        ++row;
    }
}

SegyTracesPage::SegyTracesPage(QWidget* parent)
    : QWidget(parent), m_model(new TraceHeaderModel(this)), m_table(new QTableView)
{
    m_table->setModel(m_model);
    m_table->setTabKeyNavigation(false);
    m_table->setWordWrap(false);
    makeDense(*m_table);
    QHeaderView* titles = m_table->horizontalHeader();
    titles->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(titles, &QWidget::customContextMenuRequested, this, &SegyTracesPage::showMenu);
    auto* hint = new QLabel(tr("Bold columns are read. Right-click the title of another one to read that instead."));
    hint->setWordWrap(true);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_table);
    layout->addWidget(hint);
}

void SegyTracesPage::setPreview(const SegyPreview& preview)
{
    m_model->setPreview(preview);
    m_table->resizeColumnsToContents();
}

void SegyTracesPage::setPositions(const segy::Positions& positions)
{
    m_model->setPositions(positions);
    m_table->resizeColumnsToContents();
}

void SegyTracesPage::showMenu(const QPoint& place)
{
    const int column = m_table->horizontalHeader()->logicalIndexAt(place);
    if (column < 0)
        return;
    QMenu menu;
    int number = 0;
    for (const PositionRole& role : positionRoles())
        menu.addAction(tr("Read as %1").arg(nameOf(role)), this,
                       [this, number = number++, position = m_model->positionOf(column)] {
                           Q_EMIT positionChosen(number, position);
                       });
    menu.exec(m_table->horizontalHeader()->mapToGlobal(place));
}

} // namespace hv
