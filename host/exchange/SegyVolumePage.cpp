#include "host/exchange/SegyVolumePage.h"

#include "host/data/HVProject.h"

#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QVBoxLayout>

#include <cmath>

namespace hv {

namespace {

enum CrsItem
{
    NoCrs,
    CodeCrs,
    ProjectCrs,
};

std::optional<std::int64_t> wholeNumber(const QLineEdit* field)
{
    bool isNumber = false;
    const qlonglong number = field->text().toLongLong(&isNumber);
    return isNumber ? std::optional<std::int64_t>(number) : std::nullopt;
}

std::optional<double> realNumber(const QLineEdit* field)
{
    bool isNumber = false;
    const double number = field->text().toDouble(&isNumber);
    return isNumber && std::isfinite(number) ? std::optional<double>(number) : std::nullopt;
}

bool isFilled(const QLineEdit* field)
{
    return !field->text().trimmed().isEmpty();
}

QLabel* addLabel(QGridLayout& grid, int row, int column, const QString& text, QWidget* buddy)
{
    auto* label = new QLabel(text);
    label->setBuddy(buddy);
    grid.addWidget(label, row, column);
    return label;
}

template <class Value>
void addItems(QComboBox& box, std::initializer_list<Value> values)
{
    box.addItem(SegyVolumePage::tr("Found"));
    for (const Value value : values)
        box.addItem(segy::nameOf(value), static_cast<int>(value));
}

template <class Value>
std::optional<Value> chosen(const QComboBox& box)
{
    const QVariant value = box.currentData();
    return value.isValid() ? std::optional<Value>(static_cast<Value>(value.toInt())) : std::nullopt;
}

} // namespace

SegyVolumePage::SegyVolumePage(const HVProject& project, QWidget* parent)
    : QWidget(parent), m_domain(new QComboBox), m_interval(new QLineEdit), m_start(new QLineEdit),
      m_format(new QComboBox), m_order(new QComboBox), m_crs(new QComboBox), m_code(new QLineEdit),
      m_crsName(new QLabel), m_isDomainChosen(project.domain() == georef::Domain::Depth)
{
    auto* grid = new QGridLayout;
    grid->setHorizontalSpacing(10);
    grid->setColumnStretch(1, 1);
    grid->setColumnStretch(3, 1);
    addSamples(*grid, project);
    addFormat(*grid);
    addCrs(*grid, project);
    auto* parts = new QGridLayout;
    parts->setHorizontalSpacing(10);
    parts->setColumnStretch(4, 1);
    addParts(*parts);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(grid);
    layout->addSpacing(12);
    layout->addLayout(parts);
    layout->addStretch();
    showCrs();
}

void SegyVolumePage::addSamples(QGridLayout& grid, const HVProject& project)
{
    m_domain->addItem(tr("Time"), static_cast<int>(georef::Domain::Time));
    m_domain->addItem(tr("Depth"), static_cast<int>(georef::Domain::Depth));
    m_domain->setCurrentIndex(project.domain() == georef::Domain::Depth ? 1 : 0);
    addLabel(grid, 0, 0, tr("&Vertical axis:"), m_domain);
    grid.addWidget(m_domain, 0, 1);
    addLabel(grid, 1, 0, tr("Sample in&terval:"), m_interval);
    grid.addWidget(m_interval, 1, 1);
    addLabel(grid, 2, 0, tr("&First sample at:"), m_start);
    grid.addWidget(m_start, 2, 1);
    connect(m_domain, qOverload<int>(&QComboBox::activated), this, [this] {
        m_isDomainChosen = true;
        Q_EMIT edited();
    });
    connect(m_interval, &QLineEdit::textEdited, this, &SegyVolumePage::edited);
    connect(m_start, &QLineEdit::textEdited, this, &SegyVolumePage::edited);
}

void SegyVolumePage::addFormat(QGridLayout& grid)
{
    using segy::SampleFormat;
    addItems(*m_format,
             {SampleFormat::Ibm, SampleFormat::Ieee, SampleFormat::Ieee64, SampleFormat::Int8, SampleFormat::Int16,
              SampleFormat::Int32, SampleFormat::UInt8, SampleFormat::UInt16, SampleFormat::UInt32});
    addItems(*m_order, {segy::ByteOrder::Big, segy::ByteOrder::Little});
    for (QComboBox* box : {m_format, m_order}) {
        box->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
        box->setMinimumContentsLength(24);
        connect(box, qOverload<int>(&QComboBox::activated), this, &SegyVolumePage::edited);
    }
    addLabel(grid, 0, 2, tr("Sam&ple format:"), m_format);
    grid.addWidget(m_format, 0, 3);
    addLabel(grid, 1, 2, tr("&Byte order:"), m_order);
    grid.addWidget(m_order, 1, 3);
}

void SegyVolumePage::addCrs(QGridLayout& grid, const HVProject& project)
{
    m_crs->addItem(tr("Not known"), NoCrs);
    m_crs->addItem(tr("EPSG code"), CodeCrs);
    if (const georef::Crs crs = project.crs(); !crs.isNull()) {
        m_crs->insertItem(0, tr("The project's: %1").arg(crs.name()), ProjectCrs);
        m_crs->setItemData(0, crs.toWkt(), Qt::UserRole + 1);
    }
    m_crs->setCurrentIndex(0);
    m_crs->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    m_crs->setMinimumContentsLength(24);
    m_code->setPlaceholderText(tr("EPSG code, such as 32631"));
    m_crsName->setForegroundRole(QPalette::PlaceholderText);
    addLabel(grid, 3, 0, tr("&Reference system:"), m_crs);
    grid.addWidget(m_crs, 3, 1);
    grid.addWidget(m_code, 3, 2);
    grid.addWidget(m_crsName, 3, 3);
    connect(m_crs, qOverload<int>(&QComboBox::activated), this, &SegyVolumePage::showCrs);
    connect(m_code, &QLineEdit::textEdited, this, &SegyVolumePage::showCrs);
}

void SegyVolumePage::addParts(QGridLayout& grid)
{
    grid.addWidget(new QLabel(tr("First")), 0, 1);
    grid.addWidget(new QLabel(tr("Last")), 0, 2);
    grid.addWidget(new QLabel(tr("Every")), 0, 3);
    const QString labels[] = {tr("Inli&nes:"), tr("&Crosslines:"), tr("&Samples, from 0:")};
    for (int axis = Inlines; axis <= Samples; ++axis) {
        Part& part = m_parts[static_cast<std::size_t>(axis)];
        int column = 0;
        for (QLineEdit** field : {&part.first, &part.last, &part.every}) {
            *field = new QLineEdit;
            (*field)->setMaximumWidth((*field)->fontMetrics().averageCharWidth() * 14);
            grid.addWidget(*field, axis + 1, ++column);
            const bool isScanned = axis != Samples && *field != part.every;
            connect(*field, &QLineEdit::textEdited, this,
                    isScanned ? &SegyVolumePage::edited : &SegyVolumePage::partEdited);
        }
        part.every->setPlaceholderText(QStringLiteral("1"));
        addLabel(grid, axis + 1, 0, labels[axis], part.first);
    }
}

void SegyVolumePage::showCrs()
{
    const bool isCode = m_crs->currentData() == CodeCrs;
    m_code->setVisible(isCode);
    m_crsName->setVisible(isCode);
    QString code = m_code->text().trimmed();
    if (code.startsWith(QLatin1String("EPSG:"), Qt::CaseInsensitive))
        code.remove(0, 5);
    const georef::Crs crs = isCode && !code.isEmpty()
                                ? georef::orNull(georef::Crs::fromAuthority(QStringLiteral("EPSG"), code))
                                : georef::Crs();
    m_wkt = crs.isNull() ? QString() : crs.toWkt();
    m_crsName->setText(crs.name());
    Q_EMIT partEdited();
}

QString SegyVolumePage::crs() const
{
    switch (m_crs->currentData().toInt()) {
    case ProjectCrs:
        return m_crs->currentData(Qt::UserRole + 1).toString();
    case CodeCrs:
        return m_wkt;
    default:
        return {};
    }
}

void SegyVolumePage::setPreview(const SegyPreview& preview)
{
    const segy::Layout& layout = preview.file->layout();
    m_format->setItemText(0, tr("Found: %1").arg(segy::nameOf(layout.format)));
    m_order->setItemText(0, tr("Found: %1").arg(segy::nameOf(layout.order)));
}

void SegyVolumePage::setScan(const segy::Scan& scan)
{
    const QString unit = scan.domain == georef::Domain::Time ? tr("ms") : scan.file->isInFeet() ? tr("ft") : tr("m");
    m_interval->setPlaceholderText(QStringLiteral("%1 %2").arg(scan.interval).arg(unit));
    m_start->setPlaceholderText(QStringLiteral("%1 %2").arg(scan.firstSample).arg(unit));
    const segy::LineRange ranges[] = {scan.inlines, scan.crosslines, {0, scan.samples() - 1, 1}};
    for (std::size_t axis = 0; axis < m_parts.size(); ++axis) {
        m_parts[axis].first->setPlaceholderText(QString::number(ranges[axis].first));
        m_parts[axis].last->setPlaceholderText(QString::number(ranges[axis].last));
    }
}

segy::PartChoice SegyVolumePage::part(Axis axis) const
{
    return {wholeNumber(first(axis)), wholeNumber(last(axis)), static_cast<int>(wholeNumber(every(axis)).value_or(1))};
}

void SegyVolumePage::choose(segy::ScanChoice& choice) const
{
    choice.format.format = chosen<segy::SampleFormat>(*m_format);
    choice.format.order = chosen<segy::ByteOrder>(*m_order);
    choice.interval = realNumber(m_interval);
    choice.firstSample = realNumber(m_start);
    if (m_isDomainChosen)
        choice.domain = chosen<georef::Domain>(*m_domain);
    // Numbers that are not wanted do not count either when the survey is looked for.
    const auto limit = [this](Axis axis, std::optional<segy::LineRange>& range) {
        const segy::PartChoice lines = part(axis);
        if (lines.first || lines.last)
            range = segy::LineRange{lines.first.value_or(std::numeric_limits<std::int32_t>::min()),
                                    lines.last.value_or(std::numeric_limits<std::int32_t>::max()), 1};
    };
    limit(Inlines, choice.inlines);
    limit(Crosslines, choice.crosslines);
}

void SegyVolumePage::choose(segy::ImportChoice& choice) const
{
    choice.inlines = part(Inlines);
    choice.crosslines = part(Crosslines);
    choice.samples = part(Samples);
    choice.crs = crs();
}

QString SegyVolumePage::problem() const
{
    for (const QLineEdit* field : {m_interval, m_start})
        if (isFilled(field) && !realNumber(field))
            return tr("\"%1\" is no number.").arg(field->text());
    if (isFilled(m_interval) && *realNumber(m_interval) <= 0)
        return tr("The sample interval must be above 0.");
    for (const Part& part : m_parts) {
        for (const QLineEdit* field : {part.first, part.last, part.every})
            if (isFilled(field) && !wholeNumber(field))
                return tr("\"%1\" is no whole number.").arg(field->text());
        if (isFilled(part.every) && (*wholeNumber(part.every) < 1 || *wholeNumber(part.every) > 1'000'000))
            return tr("Every how many is a number from 1 to 1,000,000, not %1.").arg(part.every->text());
    }
    if (m_crs->currentData() == CodeCrs && m_wkt.isEmpty())
        return tr("There is no reference system with the EPSG code \"%1\".").arg(m_code->text().trimmed());
    return {};
}

} // namespace hv
